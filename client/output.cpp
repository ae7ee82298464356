#include "client/output.h"

#include "client/fields.h"
#include "client/knowledge.h"
#include "client/table.h"
#include "client/text.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace {

const char *status_name(int code) {
    switch (code) {
    case code_unchanged:
        return "unchanged";
    case code_in_progress:
        return "in progress";
    default:
        return "done";
    }
}

bool has_value(const Procedure &procedure) {
    return procedure.result != Result::code && procedure.result != Result::none;
}

// What people read of a field's name.
std::string title_of(const Field &field) {
    std::string title = *field.speaking == '\0' ? field.name : field.speaking;
    std::replace(title.begin(), title.end(), '_', ' ');
    return title;
}

Json place_json(const Field &field, std::string_view place) {
    if (field.form == Form::number)
        return number_in(place);
    if (field.form == Form::signed_number)
        return signed_number_in(place);
    return value_in(field, place);
}

// Adds the fields to the object. A text that is not UTF-8 stands there in hexadecimal, too.
void add_fields(Json &object, std::span<const Field> fields, std::string_view whole) {
    for (const Field &field : fields) {
        Json values = Json::array();
        for (std::size_t i = 0; i < places_in(fields, field, whole); ++i) {
            const std::string_view place = place_of(field, i, whole);
            values.push_back(field.fields.empty() ? place_json(field, place) : Json::object());
            if (!field.fields.empty())
                add_fields(values.back(), field.fields, place);
            else
                add_value(object, field.name, value_in(field, place)); // the text, and what it has beside it
        }
        object[field.name] = field.places == 1 ? values.at(0) : values;
        if (*field.speaking != '\0')
            object[field.speaking] = object[field.name];
    }
}

void add_answer(Json &object, const Output &output, const Procedure &procedure, const Answer &answer) {
    const bool masked = is_masked(output, procedure);
    add_value(object, "value", masked ? Json(nullptr) : value_of(procedure, answer));
    if (masked)
        object["masked"] = true;
}

void add_subject(Json &object, const Subject &subject) {
    if (subject.index != 0)
        object["index"] = subject.index;
    if (!subject.interface.empty())
        object["interface"] = subject.interface;
}

void print_records_json(const Subject &subject, const Json &value) {
    Json object{{"status", status_name(0)}, {"code", 0}};
    add_subject(object, subject);
    object["value"] = value;
    print_json(object);
}

// "ssid" of wlan_get_ssid.
std::string_view setting_name(std::string_view procedure) {
    for (const std::string_view prefix : {"wlan_get_", "wlan_"})
        if (procedure.starts_with(prefix))
            return procedure.substr(prefix.size());
    return procedure;
}

std::string upper_case(std::string_view text) {
    std::string upper{text};
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char c) { return std::toupper(c); });
    return upper;
}

Row heading_of(const Field &records) {
    Row heading;
    for (const Field &field : records.fields)
        if (field.shown == Shown::everywhere)
            heading.push_back(upper_case(title_of(field)) +
                              (*field.unit == '\0' ? "" : fmt::format(" ({})", field.unit)));
    return heading;
}

std::vector<Row> headings_of(std::span<const Field> fields) {
    std::vector<Row> headings;
    for (const Field &field : fields)
        if (!field.fields.empty() && field.shown != Shown::only_in_json)
            headings.push_back(heading_of(field));
    return headings;
}

Table table_of_records(std::span<const Field> fields, const Field &records, std::string_view whole) {
    Table table{heading_of(records), {}};
    table.rows.resize(places_in(fields, records, whole));
    for (std::size_t i = 0; i < table.rows.size(); ++i)
        for (const Field &field : records.fields)
            if (field.shown == Shown::everywhere)
                table.rows[i].push_back(
                    shown_on(stdout, value_in(field, place_of(field, 0, place_of(records, i, whole)))));
    return table;
}

void print_line(const Output &output, std::string_view name, const std::string &value) {
    const std::string line = output.raw ? value + '\n' : fmt::format("{}: {}\n", emphasis(name), value);
    std::fwrite(line.data(), 1, line.size(), stdout); // a failure shows when it is flushed
}

// What stands behind a value, for people: its unit, the name of an interface behind its index.
std::string behind(const Output &output, const Field &field, const Subject &subject) {
    if (output.raw)
        return {};
    if (field.name == std::string_view("index") && !subject.interface.empty())
        return fmt::format(" ({})", subject.interface);
    return *field.unit == '\0' ? "" : fmt::format(" {}", field.unit);
}

int print_fields(const Output &output, const Subject &subject, std::span<const Field> fields,
                 std::string_view whole) {
    const bool counted = fields.back().form == Form::table;
    if (Error error = check_columns(output, headings_of(fields)))
        return print_error(output, error);
    int status = 0;
    for (const Field &field : counted ? fields.subspan(1) : fields) {
        if (field.shown == Shown::only_in_json)
            continue;
        if (!field.fields.empty()) {
            status = std::max(status, print_table(output, table_of_records(fields, field, whole)));
            continue;
        }
        Row values;
        for (std::size_t i = 0; i < field.places; ++i)
            values.push_back(shown_on(stdout, value_in(field, place_of(field, i, whole))));
        print_line(output, field.name,
                   fmt::format("{}{}", fmt::join(values, " "), behind(output, field, subject)));
    }
    return status;
}

int print_value(const Output &output, const Procedure &procedure, const Answer &answer,
                const Subject &subject) {
    if (const auto fields = knowledge_of(procedure).fields; !fields.empty())
        return print_fields(output, subject, fields, image_of(answer));
    std::string value =
        procedure.result == Result::text ? answer.text : fmt::format("{}", answer.numbers.at(0));
    if (is_masked(output, procedure))
        value = "(hidden: --show-secrets shows it)";
    else if (!output.raw || is_terminal(stdout))
        value = shown_on(stdout, value);
    print_line(output, setting_name(procedure.name), value);
    return 0;
}

std::string code_line(const Answer &answer, const Acts &acts) {
    if (acts.when.empty())
        return status_name(answer.code);
    if (acts.when == restarted)
        return "stored, and the radio restarted";
    if (acts.when == restart_asked)
        return "stored, and the restart asked for; its end was not seen";
    return acts.by.empty() ? "in force" : fmt::format("stored; acts {} ({})", acts.when, acts.by);
}

void print_code(const Procedure &procedure, const Answer &answer, const Acts &acts) {
    const std::string_view resets = knowledge_of(procedure).resets;
    const bool was_reset = answer.code == code_done && !resets.empty();
    fmt::print("{}{}{}\n", code_line(answer, acts), was_reset ? "; reset: " : "", was_reset ? resets : "");
}

const char *name_of(Trouble trouble) {
    if (trouble == Trouble::interrupted)
        return "interrupted";
    constexpr const char *kinds[] = {"", "failed", "usage", "timeout", "unreachable", "protocol"};
    return kinds[static_cast<std::size_t>(trouble)];
}

} // namespace

bool is_masked(const Output &output, const Procedure &procedure) {
    const bool bare = output.raw && !output.json;
    return procedure.is_secret && !output.show_secrets && !bare;
}

Error check_columns(const Output &output, const Procedure &procedure) {
    return check_columns(output, headings_of(knowledge_of(procedure).fields));
}

Json value_of(const Procedure &procedure, const Answer &answer) {
    const auto fields = knowledge_of(procedure).fields;
    if (procedure.result == Result::text)
        return answer.text;
    if (fields.empty())
        return answer.numbers.at(0);
    Json object = Json::object();
    add_fields(object, fields, image_of(answer));
    return object;
}

Json answer_json(const Output &output, const Procedure &procedure, const Answer &answer,
                 const Subject &subject, const Acts &acts) {
    Json object{{"procedure", procedure.name},
                {"status", acts.failed ? "failed" : status_name(answer.code)},
                {"code", answer.code}};
    add_subject(object, subject);
    if (!acts.when.empty())
        object["acts"] = acts.when;
    if (!acts.by.empty())
        object["by"] = acts.by;
    if (has_value(procedure))
        add_answer(object, output, procedure, answer);
    if (acts.failed)
        object["error"] = error_json(acts.failed, nullptr, nullptr, Json::array());
    return object;
}

int print_answer(const Output &output, const Procedure &procedure, const Answer &answer,
                 const Subject &subject, const Acts &acts) {
    if (!output.json && has_value(procedure))
        return print_value(output, procedure, answer, subject);
    if (output.json)
        print_json(answer_json(output, procedure, answer, subject, acts));
    else
        print_code(procedure, answer, acts);
    return 0;
}

int print_records(const Output &output, const Subject &subject,
                  const std::vector<std::pair<const Procedure *, Answer>> &answers) {
    Json value = Json::object();
    int status = 0;
    for (const auto &[procedure, answer] : answers)
        if (output.json)
            add_fields(value, knowledge_of(*procedure).fields, image_of(answer));
        else
            status = std::max(status, print_value(output, *procedure, answer, {}));
    if (output.json)
        print_records_json(subject, value);
    return status;
}

void print_call(const Output &output, const Procedure &procedure, const Values &arguments) {
    Json given = Json::object();
    std::string line{procedure.name};
    for (std::size_t i = 0; i < arguments.list.size(); ++i) {
        const auto &[name, kind, is_secret] = procedure.arguments.fields.at(i);
        const Value &value = arguments.list[i];
        const bool masked = is_secret && !output.show_secrets;
        add_value(given, name,
                  masked               ? Json(nullptr)
                  : kind == Kind::text ? Json(value.text)
                                       : Json(value.number));
        line += fmt::format(" {}={}", name,
                            masked               ? "(hidden)"
                            : kind == Kind::text ? fmt::format("'{}'", shown_on(stdout, value.text))
                                                 : fmt::format("{}", value.number));
    }
    if (output.json)
        print_json({{"procedure", procedure.name}, {"status", "not sent"}, {"arguments", given}});
    else
        fmt::print("{}\n", line);
}

int print_error(const Output &output, const Error &error, const Procedure *procedure) {
    if (output.json)
        print_error_json(error.trouble, error.message, procedure, nullptr, Json::array());
    else
        fmt::print(stderr, "wlanctl: {}\n", shown_on(stderr, error.message));
    return static_cast<int>(error.trouble);
}

Json error_json(const Error &error, const Procedure *procedure, const int *code, const Json &causes) {
    Json object{{"kind", name_of(error.trouble)}, {"message", error.message}};
    object["procedure"] = procedure == nullptr ? Json(nullptr) : Json(procedure->name);
    object["code"] = code == nullptr ? Json(nullptr) : Json(*code);
    object["causes"] = causes;
    return object;
}

void print_error_json(Trouble trouble, const std::string &message, const Procedure *procedure,
                      const int *code, const Json &causes) {
    print_json({{"error", error_json({trouble, message}, procedure, code, causes)}});
}
