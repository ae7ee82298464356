#include "client/settings.h"

#include "client/checks.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>

namespace {

unsigned depth_of(const Procedure &setter) {
    unsigned depth = 0;
    for (const char *name : knowledge_of(setter).after)
        depth = std::max(depth, depth_of(*find_procedure(name)) + 1);
    return depth;
}

const Procedure *setter_of(const Procedure &getter) {
    constexpr std::string_view prefix = "wlan_get_";
    if (const std::string_view told = knowledge_of(getter).setter; !told.empty())
        return find_procedure(told);
    return getter.name.starts_with(prefix)
               ? find_procedure(fmt::format("wlan_set_{}", getter.name.substr(prefix.size())))
               : nullptr;
}

// Of a getter that takes an index and perhaps one number more, and a setter that takes a value behind them.
bool is_pair(const Procedure &getter, const Procedure &setter, bool is_list) {
    const auto &asked = getter.arguments, &given = setter.arguments;
    const bool value = getter.result == Result::integer || getter.result == Result::unsigned_integer ||
                       getter.result == Result::text;
    if (!value || asked.count > 2 || given.count != asked.count + (is_list ? 2 : 1))
        return false;
    for (std::size_t i = 0; i < asked.count; ++i) {
        const bool counted =
            is_interface_index(asked.fields.at(i)) || knowledge_of(getter).arguments[i].range.known;
        if (asked.fields.at(i).kind != given.fields.at(i).kind || !counted)
            return false;
    }
    const bool text = kind_name(given.fields.at(asked.count).kind) == std::string_view("text");
    return text == (getter.result == Result::text);
}

std::vector<Setting> find_settings() {
    std::vector<Setting> found;
    std::map<std::string_view, unsigned> areas; // by their first procedure
    for (const Procedure &getter : protocol) {
        areas.emplace(knowledge_of(getter).area, getter.number);
        const Procedure *setter = setter_of(getter);
        const Procedure *clear = find_procedure(knowledge_of(getter).clear);
        if (setter == nullptr || !is_pair(getter, *setter, clear != nullptr))
            continue;
        Setting setting{getter.name.substr(std::string_view("wlan_get_").size()), &getter, setter, clear};
        if (getter.arguments.count > 1)
            setting.keys = knowledge_of(getter).arguments[1].range;
        setting.rank = depth_of(*setter);
        found.push_back(setting);
    }
    std::stable_sort(found.begin(), found.end(), [&](const Setting &a, const Setting &b) {
        return areas.at(knowledge_of(*a.get).area) < areas.at(knowledge_of(*b.get).area);
    });
    return found;
}

Values place_arguments(const Item &item) {
    Values arguments;
    for (const Argument &argument : item.setting->get->arguments)
        arguments.list.push_back(
            {argument.kind, is_interface_index(argument) ? item.index : item.key.value_or(0)});
    return arguments;
}

// The calls that add "a=b;c=d;". An entry without '=' is left out: obstacle() refuses it before.
void add_entries(const Item &item, std::string_view list, std::vector<Question> &calls) {
    while (!list.empty()) {
        const std::string_view entry = list.substr(0, list.find(';'));
        const std::size_t sign = entry.find('=');
        if (sign != entry.npos) {
            Values arguments = place_arguments(item);
            arguments.list.push_back({Kind::text, 0, std::string{entry.substr(0, sign)}});
            arguments.list.push_back({Kind::text, 0, std::string{entry.substr(sign + 1)}});
            calls.push_back({item.setting->set, arguments});
        }
        list.remove_prefix(std::min(entry.size() + 1, list.size()));
    }
}

bool is_list(std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = text.find(';');
        if (end == text.npos || text.find('=') > end)
            return false;
        text.remove_prefix(end + 1);
    }
    return true;
}

} // namespace

const std::vector<Setting> &settings() {
    static const std::vector<Setting> all = find_settings();
    return all;
}

Scope scope_of(const Setting &setting) {
    const std::string_view scope = knowledge_of(*setting.get).scope;
    return setting.get->arguments.count == 0 || scope == "gateway" ? Scope::gateway
           : scope == "radio"                                      ? Scope::radio
                                                                   : Scope::bss;
}

const char *name_of(Scope scope) {
    constexpr const char *names[] = {"gateway", "radio", "bss"};
    return names[static_cast<std::size_t>(scope)];
}

const ValueMeaning &meaning_of(const Setting &setting) {
    return setting.clear != nullptr ? knowledge_of(*setting.get).result
                                    : knowledge_of(*setting.set).arguments.back();
}

Kind kind_of(const Setting &setting) {
    return setting.set->arguments.fields.at(setting.set->arguments.count - 1).kind;
}

bool is_second_name(const Setting &setting) { return *knowledge_of(*setting.set).same_as != '\0'; }

bool is_equal(const Item &one, const Item &other) {
    return one.value && other.value && one.value->number == other.value->number &&
           one.value->text == other.value->text;
}

std::vector<Place> places_of(const Gateway &gateway, std::int64_t index) {
    const auto band = [&](std::int64_t each) { return std::string_view(band_of(name_of(gateway, each))); };
    std::vector<Place> places, bsses;
    if (index == 0)
        places.push_back({Scope::gateway, 0});
    std::int64_t first = 0; // BSS of the radio
    for (std::int64_t each = 1; each <= gateway.entries.value_or(0); ++each) {
        if (first == 0 || band(each) != band(first))
            first = each;
        if (index == 0 ? first == each : index == each)
            places.push_back({Scope::radio, first});
        if (index == 0 || index == each)
            bsses.push_back({Scope::bss, each});
    }
    places.insert(places.end(), bsses.begin(), bsses.end());
    return places;
}

void add_items(const Place &place, std::vector<Item> &items) {
    for (const Setting &setting : settings()) {
        if (scope_of(setting) != place.scope)
            continue;
        if (!setting.keys.known)
            items.push_back({&setting, place.index});
        for (std::int64_t key = setting.keys.least; setting.keys.known && key <= setting.keys.most; ++key)
            items.push_back({&setting, place.index, key});
    }
}

Error read_values(Connection &connection, std::vector<Item> &items) {
    std::vector<Question> questions;
    questions.reserve(items.size());
    for (const Item &item : items)
        questions.push_back({item.setting->get, place_arguments(item)});
    call(connection, questions);
    for (std::size_t i = 0; i < items.size(); ++i) {
        const auto &[procedure, arguments, answer, error] = questions[i];
        if (error)
            return {error.trouble, fmt::format("{}: {}", procedure->name, error.message)};
        items[i].value.reset();
        if (answer.code >= 0)
            items[i].value = {kind_of(*items[i].setting), answer.numbers.empty() ? 0 : answer.numbers[0],
                              answer.text};
    }
    return {};
}

std::string obstacle(const Item &item) {
    const Setting &setting = *item.setting;
    if (knowledge_of(*setting.set).effect == std::string_view("none"))
        return fmt::format("{} changes nothing", setting.set->name);
    if (!item.value)
        return "it has no value";
    const Value &value = *item.value;
    if (setting.clear != nullptr)
        return is_list(value.text) ? "" : "it is no list of A=B; each";
    const std::string text = value.kind == Kind::text ? value.text : fmt::format("{}", value.number);
    const auto names = meaning_of(setting).names;
    const bool answered_only = std::any_of(names.begin(), names.end(), [&](const NamedValue &named) {
        return named.answered_only && named.value == text;
    });
    if (answered_only || !is_taken(meaning_of(setting), value) ||
        (value.kind != Kind::text && !is_within(value.kind, value.number)))
        return fmt::format("{} does not take it", setting.set->name);
    return {};
}

std::vector<Question> calls_of(const Item &item) {
    const Setting &setting = *item.setting;
    std::vector<Question> calls;
    Values arguments = place_arguments(item);
    if (setting.clear != nullptr) {
        calls.push_back({setting.clear, arguments});
        add_entries(item, item.value->text, calls);
    } else {
        arguments.list.push_back(*item.value);
        calls.push_back({setting.set, arguments});
    }
    return calls;
}
