#include "client/settings_file.h"

#include "client/file.h"
#include "client/text.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <toml++/toml.h>

namespace {

std::optional<std::int64_t> whole_number(std::string_view text) {
    std::int64_t number = 0;
    const auto [end, failed] = std::from_chars(text.begin(), text.end(), number);
    return failed == std::errc{} && end == text.end() ? std::optional(number) : std::nullopt;
}

// What is in the node for an argument of that kind; otherwise, what it should be.
std::string take_value(const toml::node &node, Kind kind, Value &ret_value) {
    ret_value.kind = kind;
    if (kind == Kind::text) {
        if (const auto text = node.value_exact<std::string>()) {
            ret_value.text = *text;
            return {};
        }
        const toml::table *table = node.as_table();
        const auto digits = table != nullptr && table->size() == 1
                                ? (*table)["hex"].value_exact<std::string>()
                                : std::nullopt;
        const auto bytes = digits ? from_hexadecimal(*digits) : std::nullopt;
        ret_value.text = bytes.value_or("");
        return bytes ? "" : "it is to be a text, or { hex = \"...\" }";
    }
    if (const auto flag = node.value_exact<bool>())
        ret_value.number = *flag ? 1 : 0;
    else if (const auto number = node.value_exact<std::int64_t>(); number && is_within(kind, *number))
        ret_value.number = *number;
    else
        return fmt::format("it is to be {}", accepted_values(kind));
    return {};
}

// The parser cites letters of the file, which may be those of a secret.
std::string_view without_values(std::string_view description) {
    return description.substr(0, std::min(description.find(", saw"), description.find(": expected '")));
}

class Reader {
public:
    Reader(const Gateway &gateway, SettingsFile &file) : gateway_(gateway), file_(file) {}

    void take(const toml::table &root) {
        for (const auto &[key, node] : root)
            if (!take_scope(std::string{key.str()}, node))
                add_stranger(std::string{key.str()}, "", node, "there are [radio.NAME] and [bss.NAME]");
    }

private:
    void add_stranger(const std::string &place, const std::string &name, const toml::node &node,
                      const std::string &why) {
        file_.strangers.push_back({place, name, fmt::format("line {}: {}", node.source().begin.line, why)});
    }

    bool take_scope(const std::string &name, const toml::node &node) {
        const toml::table *table = node.as_table();
        if (table == nullptr)
            return false;
        for (const Scope scope : {Scope::gateway, Scope::radio, Scope::bss}) {
            if (name != name_of(scope))
                continue;
            if (scope == Scope::gateway)
                take_place({scope, 0}, name, *table);
            else
                for (const auto &[key, inner] : *table)
                    take_interface(scope, std::string{key.str()}, inner);
            return true;
        }
        return false;
    }

    void take_interface(Scope scope, const std::string &name, const toml::node &node) {
        std::int64_t index = index_of(gateway_, name);
        if (index == 0)
            index = whole_number(name).value_or(0);
        if (const toml::table *table = node.as_table(); table == nullptr)
            add_stranger(name, "", node, "it is to be a table of settings");
        else if (index < 1 || index > gateway_.entries.value_or(0))
            add_stranger(name, "", node, "the gateway has no such interface");
        else
            take_place({scope, index}, name, *table);
    }

    void take_place(const Place &place, const std::string &place_name, const toml::table &table) {
        for (const auto &[key, node] : table) {
            const std::string name{key.str()};
            const auto setting = std::find_if(settings().begin(), settings().end(), [&](const Setting &each) {
                return each.name == name && scope_of(each) == place.scope;
            });
            if (setting == settings().end())
                add_stranger(place_name, name, node,
                             fmt::format("a {} has no such setting that can be read and set",
                                         place.scope == Scope::bss ? "BSS" : name_of(place.scope)));
            else
                take_setting({&*setting, place.index}, place_name, node);
        }
    }

    // A table by number, or the value alone where there is one of it.
    void take_setting(Item item, const std::string &place, const toml::node &node) {
        const Limits &keys = item.setting->keys;
        const std::string name{item.setting->name};
        if (!keys.known || keys.least == keys.most) {
            if (keys.known)
                item.key = keys.least;
            return take_item(item, place, name, node);
        }
        const toml::table *table = node.as_table();
        if (table == nullptr)
            return add_stranger(place, name, node, "it is to be a table by number");
        for (const auto &[key, inner] : *table) {
            item.key = whole_number(key.str());
            if (!item.key || is_outside(keys, *item.key))
                add_stranger(place, name, inner,
                             fmt::format("'{}' is not {} to {}", key.str(), keys.least, keys.most));
            else
                take_item(item, place, name, inner);
        }
    }

    void take_item(Item item, const std::string &place, const std::string &name, const toml::node &node) {
        Value value;
        std::string why = take_value(node, kind_of(*item.setting), value);
        const Argument &argument =
            item.setting->set->arguments.fields.at(item.setting->set->arguments.count - 1);
        if (why.empty())
            why = check_text(argument, value.text).message;
        if (!why.empty())
            return add_stranger(place, name, node, why);
        item.value = std::move(value);
        file_.items.push_back(std::move(item));
    }

    const Gateway &gateway_;
    SettingsFile &file_;
};

} // namespace

std::string written(const Value &value) {
    if (value.kind != Kind::text)
        return fmt::format("{}", value.number);
    return is_utf8(value.text) ? toml_string(value.text)
                               : fmt::format("{{ hex = \"{}\" }}", hexadecimal(value.text));
}

std::string written_name(const std::string &name) {
    const bool bare = !name.empty() && name.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRST"
                                                              "UVWXYZ0123456789_-") == name.npos;
    return bare ? name : is_utf8(name) ? toml_string(name) : toml_string(hexadecimal(name));
}

Error read_settings_file(const std::string &path, const Gateway &gateway, SettingsFile &ret_file) {
    std::string content;
    if (Error error = read_file(path, longest_file, content))
        return error;
    try {
        Reader(gateway, ret_file).take(toml::parse(content));
    } catch (const toml::parse_error &wrong) {
        return {Trouble::usage, fmt::format("{}, line {}: {}", path, wrong.source().begin.line,
                                            without_values(wrong.description()))};
    }
    if (ret_file.items.empty() && ret_file.strangers.empty())
        return {Trouble::usage, fmt::format("{} holds no settings", path)};
    return {};
}
