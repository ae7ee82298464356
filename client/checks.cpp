#include "client/checks.h"

#include "client/knowledge.h"

#include <algorithm>
#include <fmt/format.h>
#include <regex.h>

namespace {

constexpr std::size_t longest_shown = 64; // bytes of a value in a message

bool matches(const std::string &text, const char *pattern) {
    regex_t expression{};
    if (regcomp(&expression, fmt::format("^({})$", pattern).c_str(), REG_EXTENDED | REG_NOSUB) != 0)
        return true; // the daemon has the last word
    const bool found = regexec(&expression, text.c_str(), 0, nullptr, 0) == 0;
    regfree(&expression);
    return found;
}

bool is_sensible(const ValueMeaning &meaning, const std::string &text) {
    if (*meaning.pattern != '\0')
        return matches(text, meaning.pattern);
    return !is_outside(meaning.length, static_cast<std::int64_t>(text.size()));
}

bool is_sensible(const ValueMeaning &meaning, const Value &value) {
    const std::string text = value.kind == Kind::text ? value.text : fmt::format("{}", value.number);
    const bool named = std::any_of(meaning.names.begin(), meaning.names.end(),
                                   [&](const NamedValue &each) { return each.value == text; });
    if (named)
        return true;
    return value.kind == Kind::text
               ? is_sensible(meaning, text)
               : !is_outside(meaning.sensible.known ? meaning.sensible : meaning.range, value.number);
}

// What would make sense.
std::string sensible(const ValueMeaning &meaning, Kind kind) {
    const Limits &limits = kind == Kind::text       ? meaning.length
                           : meaning.sensible.known ? meaning.sensible
                                                    : meaning.range;
    if (kind == Kind::text && *meaning.pattern != '\0')
        return meaning.rule;
    const std::string_view unit = kind == Kind::text ? "bytes" : meaning.unit;
    return fmt::format("{} to {}{}{}", limits.least, limits.most, unit.empty() ? "" : " ", unit);
}

} // namespace

bool is_taken(const ValueMeaning &meaning, const Value &value) {
    const Limits &bytes = meaning.takes.known ? meaning.takes : meaning.length;
    return value.kind == Kind::text ? !is_outside(bytes, static_cast<std::int64_t>(value.text.size()))
                                    : !is_outside(meaning.range, value.number);
}

Error check_arguments(const Procedure &procedure, const Values &arguments) {
    for (std::size_t i = 0; i < arguments.list.size(); ++i) {
        const Argument &argument = procedure.arguments.fields.at(i);
        const ValueMeaning &meaning = knowledge_of(procedure).arguments[i];
        const Value &value = arguments.list[i];
        if (is_interface_index(argument) || is_sensible(meaning, value))
            continue;
        const std::string shown = argument.is_secret ? "the value"
                                  : value.text.size() > longest_shown
                                      ? fmt::format("a text of {} bytes", value.text.size())
                                  : value.kind == Kind::text ? fmt::format("'{}'", value.text)
                                                             : fmt::format("{}", value.number);
        return {Trouble::usage,
                fmt::format("argument '{}': {} makes no sense; {}: {}; --force sends it all the same",
                            argument.name, shown, meaning.meaning, sensible(meaning, value.kind))};
    }
    return {};
}
