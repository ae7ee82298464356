#include "client/describe.h"

#include "client/knowledge.h"
#include "client/table.h"
#include "client/values.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

namespace {

constexpr std::size_t label_width = 12; // "belongs to" and two blanks

// What a procedure answers.
std::string result_name(const Procedure &procedure) {
    constexpr const char *names[] = {"code", "none", "int", "unsigned", "text", "numbers", "record"};
    const std::string name = names[static_cast<std::size_t>(procedure.result)];
    return procedure.is_secret ? "secret " + name : name;
}

std::string arguments_line(const Procedure &procedure) {
    Row arguments;
    for (const Argument &argument : procedure.arguments)
        arguments.push_back(fmt::format("{}:{}", argument.name, kind_name(argument.kind)));
    return fmt::format("{}", fmt::join(arguments, " "));
}

// Adds what is known, and nothing for what is not.
void add_text(Json &object, const char *key, const char *text) {
    if (*text != '\0')
        object[key] = text;
}

void add_limits(Json &object, const char *key, const Limits &limits) {
    if (limits.known)
        object[key] = {limits.least, limits.most};
}

void add_texts(Json &object, const char *key, std::span<const char *const> texts) {
    if (!texts.empty())
        object[key] = Json(std::vector<std::string>(texts.begin(), texts.end()));
}

void add_meaning(Json &object, const ValueMeaning &value) {
    add_text(object, "meaning", value.meaning);
    add_text(object, "unit", value.unit);
    add_limits(object, "range", value.range);
    add_limits(object, "sensible", value.sensible);
    add_limits(object, "length", value.length);
    add_limits(object, "takes", value.takes);
    add_text(object, "rule", value.rule);
    add_text(object, "pattern", value.pattern);
    for (const NamedValue &named : value.names)
        object["names"][named.value] = named.meaning;
}

Json arguments_json(const Procedure &procedure) {
    const auto meanings = knowledge_of(procedure).arguments;
    Json arguments = Json::array();
    for (std::size_t i = 0; i < procedure.arguments.count; ++i) {
        const Argument &argument = procedure.arguments.fields.at(i);
        Json &added =
            arguments.emplace_back(Json{{"name", argument.name}, {"type", kind_name(argument.kind)}});
        if (argument.is_secret)
            added["secret"] = true;
        add_meaning(added, meanings[i]);
    }
    return arguments;
}

Json fields_json(std::span<const Field> fields) {
    Json list = Json::array();
    for (const Field &field : fields) {
        Json &added = list.emplace_back(Json{{"name", field.name}});
        add_text(added, "as", field.speaking);
        add_text(added, "unit", field.unit);
        add_text(added, "meaning", field.meaning);
        if (!field.fields.empty())
            added["fields"] = fields_json(field.fields);
    }
    return list;
}

Json procedure_json(const Procedure &procedure) {
    const Knowledge &known = knowledge_of(procedure);
    Json object{{"number", procedure.number},       {"name", procedure.name},
                {"summary", known.summary},         {"arguments", arguments_json(procedure)},
                {"result", result_name(procedure)}, {"scope", known.scope},
                {"effect", known.effect},           {"repeat", procedure.runs_again ? "runs again" : "safe"},
                {"seconds", known.seconds}};
    if (Json answer = Json::object(); add_meaning(answer, known.result), !answer.empty())
        object["answer"] = answer;
    if (!known.fields.empty())
        object["fields"] = fields_json(known.fields);
    add_texts(object, "keys", known.keys);
    add_texts(object, "driver", known.driver);
    add_texts(object, "scripts", known.scripts);
    object["fails"] = Json::array();
    for (const unsigned char number : known.fails)
        object["fails"].push_back({{"cause", cause(number).text}, {"remedy", cause(number).remedy}});
    add_texts(object, "oddities", known.oddities);
    add_texts(object, "after", known.after);
    add_text(object, "resets", known.resets);
    if (*known.look != '\0')
        object["look"] = fmt::format("wlanctl {}", known.look);
    add_text(object, "tr181", known.tr181);
    add_text(object, "since", known.since);
    if (*known.call != '\0')
        object["example"] = {{"call", fmt::format("wlanctl {}", known.call)}, {"prints", known.prints}};
    return object;
}

void print_labelled(std::string_view label, std::string_view text) {
    if (!text.empty())
        fmt::print("{:<{}}{}\n", label, label_width, wrapped(text, label_width));
}

// The label before the first, nothing before the others.
void print_items(std::string_view label, std::span<const std::string> items) {
    for (const std::string &item : items) {
        print_labelled(label, "- " + item);
        label = "";
    }
}

void print_texts(std::string_view label, std::span<const char *const> texts) {
    print_items(label, std::vector<std::string>(texts.begin(), texts.end()));
}

void print_names(const ValueMeaning &value) {
    for (const NamedValue &named : value.names)
        print_labelled("", fmt::format("  {}: {}", named.value, named.meaning));
}

void print_arguments(const Procedure &procedure) {
    for (std::size_t i = 0; i < procedure.arguments.count; ++i) {
        const Argument &argument = procedure.arguments.fields.at(i);
        const ValueMeaning &value = knowledge_of(procedure).arguments[i];
        std::string text = fmt::format("{} ({}{})", argument.name, argument.is_secret ? "secret " : "",
                                       kind_name(argument.kind));
        if (*value.meaning != '\0')
            text += fmt::format(": {}", value.meaning);
        const std::string values = values_line(value);
        text += fmt::format("; {}", is_interface_index(argument) ? "or its interface name"
                                    : values.empty()             ? accepted_values(argument.kind)
                                                                 : values);
        print_labelled(i == 0 ? "takes" : "", text);
        print_names(value);
    }
}

// The codes that a procedure which answers a code alone can answer.
std::string codes_of(const Procedure &procedure) {
    const Knowledge &known = knowledge_of(procedure);
    Row codes{"done"};
    if (procedure.name.starts_with("wlan_set_") && !known.keys.empty())
        codes.push_back("unchanged");
    if (procedure.name == "wlan_init")
        codes.push_back("in progress");
    if (!known.fails.empty())
        codes.push_back("failure");
    const std::string last = codes.back();
    codes.pop_back();
    return codes.empty() ? last : fmt::format("{} or {}", fmt::join(codes, ", "), last);
}

// A record's fields stand behind what holds it, further in.
void print_fields(std::span<const Field> fields, std::size_t indent) {
    for (const Field &field : fields) {
        if (field.shown == Shown::only_in_json)
            continue;
        const std::string line =
            fmt::format("{}{}{}: {}{}{}{}", field.name, *field.speaking ? ", " : "", field.speaking,
                        field.meaning, *field.unit ? " [" : "", field.unit, *field.unit ? "]" : "");
        fmt::print("{:{}}{}\n", "", indent, wrapped(line, indent));
        print_fields(field.fields, indent + 2);
    }
}

void print_result(const Procedure &procedure) {
    const Knowledge &known = knowledge_of(procedure);
    if (procedure.result == Result::code || procedure.result == Result::none)
        return print_labelled("answers", codes_of(procedure));
    std::string text = result_name(procedure);
    const std::string values = values_line(known.result);
    for (const std::string_view part : {std::string_view(known.result.meaning), std::string_view(values)})
        text += fmt::format("{}{}", part.empty() ? "" : ": ", part);
    print_labelled("answers", text);
    print_names(known.result);
    print_fields(known.fields, label_width + 2);
}

// Each line but the first behind two blanks.
std::string indented(std::string_view lines) {
    std::string text;
    for (const char letter : lines)
        text += letter == '\n' ? "\n  " : std::string(1, letter);
    return text;
}

std::string when_it_acts(const Knowledge &known) {
    const std::string_view effect = known.effect;
    if (effect == at_restart)
        return "at the next restart of the radio: wlanctl restart INDEX";
    if (effect == at_load)
        return "when the driver is loaded the next time: wlanctl down, wlanctl up";
    return effect == "none" ? "" : std::string{effect};
}

} // namespace

std::string look_of(const Procedure &procedure, const Values &arguments) {
    constexpr std::string_view placeholder = "INDEX";
    std::string words = knowledge_of(procedure).look;
    if (words.empty())
        return "no command shows whether it was done";
    const auto place = words.find(placeholder);
    const auto *const index =
        std::find_if(procedure.arguments.begin(), procedure.arguments.end(), is_interface_index);
    const auto at = static_cast<std::size_t>(index - procedure.arguments.begin());
    if (place != words.npos && at < arguments.list.size())
        words.replace(place, placeholder.size(), fmt::format("{}", arguments.list[at].number));
    return fmt::format("look with: wlanctl {}", words);
}

std::string values_line(const ValueMeaning &value) {
    Row parts;
    const auto add = [&parts](const Limits &limits, const char *form) {
        if (limits.known)
            parts.push_back(
                fmt::format(fmt::runtime(form), limits.least == limits.most
                                                    ? fmt::format("{}", limits.least)
                                                    : fmt::format("{} to {}", limits.least, limits.most)));
    };
    if (value.names.empty() || !value.sensible.known)
        add(value.sensible.known ? value.sensible : value.range, "{}");
    if (*value.unit != '\0')
        parts.push_back(value.unit);
    if (value.sensible.known)
        add(value.range, "(the daemon takes {})");
    add(value.length, "{} bytes");
    add(value.takes, "(the daemon takes {} bytes)");
    std::string line = fmt::format("{}", fmt::join(parts, " "));
    return *value.rule == '\0' ? line : fmt::format("{}{}{}", line, line.empty() ? "" : "; ", value.rule);
}

int print_procedures(const Output &output, const std::vector<const Procedure *> &procedures) {
    Json list = Json::array();
    std::vector<Row> rows;
    for (const Procedure *procedure : procedures) {
        const char *summary = knowledge_of(*procedure).summary;
        if (output.json)
            list.push_back({{"number", procedure->number},
                            {"name", procedure->name},
                            {"arguments", arguments_json(*procedure)},
                            {"result", result_name(*procedure)},
                            {"summary", summary}});
        rows.push_back({fmt::format("{}", procedure->number), std::string{procedure->name},
                        arguments_line(*procedure), result_name(*procedure), summary});
    }
    if (output.json)
        print_json({{"procedures", list}});
    else
        return print_table(output, {{"NUMBER", "NAME", "ARGUMENTS", "RESULT", "SUMMARY"}, rows});
    return 0;
}

void print_procedure(const Output &output, const Procedure &procedure) {
    if (output.json)
        return print_json(procedure_json(procedure));
    const Knowledge &known = knowledge_of(procedure);
    fmt::print("{} (procedure {})\n{}\n\n", emphasis(procedure.name), procedure.number,
               wrapped(known.summary, 0));
    print_arguments(procedure);
    print_result(procedure);
    print_labelled("belongs to", fmt::format("the {}", known.scope));
    print_labelled("acts", when_it_acts(known));
    print_labelled("sent twice", procedure.runs_again
                                     ? fmt::format("runs again; after a lost reply, {}", look_of(procedure))
                                     : "does no harm");
    if (known.seconds > 1)
        print_labelled("may take", fmt::format("{} s", known.seconds));
    print_labelled("settings", fmt::format("{}", fmt::join(known.keys, ", ")));
    print_texts("driver", known.driver);
    print_texts("scripts", known.scripts);
    Row causes;
    for (const unsigned char number : known.fails)
        causes.push_back(fmt::format("{} ({})", cause(number).text, cause(number).remedy));
    print_items("fails when", causes);
    print_texts("mind", known.oddities);
    print_texts("after", known.after);
    print_labelled("resets", known.resets);
    print_labelled("TR-181", known.tr181);
    if (*known.call != '\0')
        fmt::print("\n  $ wlanctl {}\n  {}\n", known.call, indented(known.prints));
}
