#include "client/commands.h"

#include "client/describe.h"
#include "client/lookup.h"
#include "client/settings_file.h"
#include "client/terminal.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

namespace {

constexpr std::string_view prefix = "wlan_set_";

constexpr char head[] =
    "Settings of a gateway, written by wlanctl export: wlanctl diff FILE compares a gateway with them, "
    "wlanctl import FILE sets what differs. Lines can be changed and left out.\n"
    "The file is TOML. [radio.NAME] has the settings of the radio with that interface, [bss.NAME] those of "
    "the BSS. What a setting means stands where it comes first. A text is any bytes: what is not UTF-8 is "
    "{ hex = \"...\" }, two digits a byte. Of a setting that a place has several of, { 1 = ..., 2 = ... } "
    "has "
    "them by number. A line that begins with # and a name is for reading only: it is not set back.";

// Lines of a comment, as wide as the terminal or a page.
std::string comment(const std::string &text) {
    std::string lines;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        std::string line = "# " + wrapped(text.substr(begin, end - begin), 2);
        for (std::size_t at = line.find("\n  "); at != line.npos; at = line.find("\n  ", at + 1))
            line.replace(at, 3, "\n# ");
        lines += line + '\n';
        begin = end + 1;
    }
    return lines;
}

// What the setting is for and what it can be.
std::string meaning(const Setting &setting) {
    ValueMeaning value = meaning_of(setting);
    value.takes = {}; // what makes sense is enough
    if (value.sensible.known || !value.names.empty())
        value.range = {};
    std::string text =
        setting.clear != nullptr ? knowledge_of(*setting.get).summary : knowledge_of(*setting.set).summary;
    std::vector<std::string> parts;
    if (*value.meaning != '\0' && value.meaning != std::string_view("on or off"))
        parts.emplace_back(value.meaning);
    if (const std::string values = values_line(value); !values.empty())
        parts.push_back(values);
    for (const NamedValue &named : value.names)
        if (!named.answered_only)
            parts.push_back(fmt::format("{}: {}", named.value, named.meaning));
    if (setting.keys.known && setting.keys.least != setting.keys.most)
        parts.push_back(fmt::format("by {}", knowledge_of(*setting.get).arguments[1].meaning));
    if (!parts.empty())
        text.append("\n").append(fmt::format("{}", fmt::join(parts, "; ")));
    return text;
}

class Writer {
public:
    Writer(const Gateway &gateway, bool show_secrets) : gateway_(gateway), show_secrets_(show_secrets) {}

    void add_head() { text_ += comment(head); }

    // The items are those of the place, in the order of the settings.
    void add_place(const Place &place, std::span<const Item> items) {
        if (items.empty())
            return;
        const std::string name = name_of(gateway_, place.index);
        const bool radio = place.scope == Scope::radio;
        text_ += place.scope == Scope::gateway
                     ? "\n[gateway]\n"
                     : fmt::format("\n[{}.{}] # {}\n", name_of(place.scope), written_name(name),
                                   radio ? band_of(name) : fmt::format("index {}", place.index));
        std::string_view area;
        while (!items.empty()) {
            const Setting *setting = items.front().setting;
            const auto end = std::find_if(items.begin(), items.end(),
                                          [&](const Item &item) { return item.setting != setting; });
            const auto count = static_cast<std::size_t>(end - items.begin());
            if (const std::string_view own = knowledge_of(*setting->get).area; own != area)
                add_area(area = own);
            add_setting(*setting, items.first(count));
            items = items.subspan(count);
        }
    }

    // What is stored and cannot be read.
    void add_unreadable() {
        std::vector<std::string> names;
        for (const Procedure &each : protocol) {
            const bool known = std::any_of(settings().begin(), settings().end(), [&](const Setting &setting) {
                return setting.set == &each || setting.clear == &each;
            });
            const Knowledge &told = knowledge_of(each);
            if (each.name.starts_with(prefix) && !known && !told.keys.empty() && *told.resets == '\0' &&
                !adds_to_a_list(each))
                names.emplace_back(each.name);
        }
        if (!names.empty())
            text_ +=
                "\n" + comment(fmt::format("Stored, but no procedure reads it: {}.", fmt::join(names, ", ")));
    }

    const std::string &text() const { return text_; }

private:
    // Takes an entry off a list that is read as a whole.
    static bool adds_to_a_list(const Procedure &procedure) {
        return std::any_of(settings().begin(), settings().end(), [&](const Setting &setting) {
            const auto keys = knowledge_of(procedure).keys, own = knowledge_of(*setting.set).keys;
            return setting.clear != nullptr &&
                   std::equal(keys.begin(), keys.end(), own.begin(), own.end(),
                              [](std::string_view a, std::string_view b) { return a == b; });
        });
    }

    void add_area(std::string_view area) {
        std::string title{area};
        std::replace(title.begin(), title.end(), '_', ' ');
        text_ += fmt::format("\n# -- {}\n", title);
    }

    void add_setting(const Setting &setting, std::span<const Item> items) {
        if (std::find(explained_.begin(), explained_.end(), &setting) == explained_.end()) {
            text_ += "\n" + comment(meaning(setting));
            explained_.push_back(&setting);
        }
        if (is_second_name(setting)) {
            text_ += fmt::format("# {}: the same as {}, which sets it\n", setting.name,
                                 std::string_view(knowledge_of(*setting.set).same_as).substr(prefix.size()));
            return;
        }
        if (setting.get->is_secret && !show_secrets_) {
            text_ += fmt::format("# {}: secret, written with --show-secrets\n", setting.name);
            return;
        }
        std::vector<std::string> values;
        const bool several = setting.keys.known && setting.keys.least != setting.keys.most;
        const bool none = std::none_of(items.begin(), items.end(), [](auto &item) { return item.value; });
        for (const Item &item : items) {
            const std::string name =
                several && !none ? fmt::format("{} {}", setting.name, *item.key) : std::string{setting.name};
            if (!item.value)
                add_unread(setting, name);
            else if (const std::string why = obstacle(item); !why.empty())
                text_ += fmt::format("# {} = {} # not set back: {}\n", name, written(*item.value), why);
            else
                values.push_back(several ? fmt::format("{} = {}", *item.key, written(*item.value))
                                         : written(*item.value));
            if (none)
                break;
        }
        if (!values.empty())
            text_ += several ? fmt::format("{} = {{ {} }}\n", setting.name, fmt::join(values, ", "))
                             : fmt::format("{} = {}\n", setting.name, values[0]);
    }

    // With the likeliest cause of what the daemon does not tell.
    void add_unread(const Setting &setting, const std::string &name) {
        const auto causes = knowledge_of(*setting.get).fails;
        text_ += fmt::format("# {}: the daemon answered failure{}{}\n", name,
                             causes.empty() ? "" : "; perhaps ", causes.empty() ? "" : cause(causes[0]).text);
    }

    const Gateway &gateway_;
    bool show_secrets_;
    std::string text_{};
    std::vector<const Setting *> explained_{};
};

} // namespace

int export_settings(Context &context, const Words &words) {
    Values index{{{Kind::integer, 0}}};
    if (!words.empty())
        if (Error error = take_arguments(context, *find_procedure("wlan_get_status"), words, index))
            return print_error(context.output, error);
    if (Error error = find_some_names(context))
        return print_error(context.output, error);
    const std::vector<Place> places = places_of(context.gateway, index.list[0].number);
    std::vector<Item> items;
    std::vector<std::size_t> begins;
    for (const Place &place : places) {
        begins.push_back(items.size());
        add_items(place, items);
    }
    begins.push_back(items.size());
    if (Error error = read_values(context.connection, items))
        return print_error(context.output, error);
    Writer writer(context.gateway, context.output.show_secrets);
    writer.add_head();
    for (std::size_t i = 0; i < places.size(); ++i)
        writer.add_place(places[i], std::span(items).subspan(begins[i], begins[i + 1] - begins[i]));
    writer.add_unreadable();
    if (context.output.json)
        print_json({{"status", "done"}, {"code", 0}, {"settings", writer.text()}});
    else
        std::fwrite(writer.text().data(), 1, writer.text().size(),
                    stdout); // a failure shows when it is flushed
    return 0;
}
