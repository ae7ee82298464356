#include "client/causes.h"

#include "client/checks.h"
#include "client/machine.h"
#include "client/terminal.h"
#include "client/values.h"

#include <algorithm>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <optional>

namespace {

// A question of our own may take a second; it fails as anything else, and then shows nothing.
std::optional<Answer> quick_answer(Connection connection, const char *name, const Values &arguments) {
    connection.timeout = 1;
    const Procedure *procedure = find_procedure(name);
    Answer answer;
    if (procedure == nullptr || call(connection, *procedure, arguments, answer) || answer.code < 0)
        return std::nullopt;
    return answer;
}

Finding check_index(const Connection &connection, const Procedure &procedure, const Values &arguments) {
    for (std::size_t i = 0; i < procedure.arguments.count; ++i) {
        if (!is_interface_index(procedure.arguments.fields.at(i)))
            continue;
        const auto counted = quick_answer(connection, "wlan_get_number_of_entries", {});
        if (!counted)
            return {};
        const std::int64_t last = counted->numbers.at(0), index = arguments.list.at(i).number;
        if (last == 0) // no index would do: the cause lies elsewhere
            return {};
        return {index < 1 || index > last, fmt::format("{} is not 1 to {}", index, last)};
    }
    return {};
}

// The status of the first BSS is an empty text until the driver is initialised.
Finding check_initialised(const Connection &connection) {
    const auto status = quick_answer(connection, "wlan_get_status", {{{.number = 1}}});
    return status ? Finding{status->text.empty()} : Finding{};
}

// Whether it is loaded, nothing tells; but it is when it is initialised.
Finding check_started(const Connection &connection) {
    const Finding initialised = check_initialised(connection);
    return initialised.applies == false ? initialised : Finding{};
}

// What the daemon refuses by its range. Where a rule says more, it may still refuse what is in it.
Finding check_argument(const Procedure &procedure, const Values &arguments) {
    bool all_known = true;
    const auto meanings = knowledge_of(procedure).arguments;
    for (std::size_t i = 0; i < procedure.arguments.count; ++i) {
        const Value &value = arguments.list.at(i);
        const ValueMeaning &meaning = meanings[i];
        const Limits &bytes = meaning.takes.known ? meaning.takes : meaning.length;
        if (!is_taken(meaning, value))
            return {true, fmt::format("argument '{}'", procedure.arguments.fields.at(i).name)};
        if (!is_interface_index(procedure.arguments.fields.at(i)))
            all_known &= *meaning.rule == '\0' && (value.kind == Kind::text ? bytes : meaning.range).known;
    }
    return all_known ? Finding{false} : Finding{};
}

Finding ask_about(Ask what, const Connection &connection, const Procedure &procedure,
                  const Values &arguments) {
    switch (what) {
    case Ask::index:
        return check_index(connection, procedure, arguments);
    case Ask::initialised:
        return check_initialised(connection);
    case Ask::started:
        return check_started(connection);
    case Ask::lock:
        return is_this_machine(connection) ? find_lock() : Finding{};
    case Ask::folder:
        return is_this_machine(connection) ? check_folder() : Finding{};
    case Ask::argument:
        return check_argument(procedure, arguments);
    case Ask::nothing:
        break;
    }
    return {};
}

std::string failure_message(const Procedure &procedure, int code) {
    return fmt::format("{}: the daemon answered failure ({})", procedure.name, code);
}

std::string line_of(const Reason &reason) {
    return fmt::format("{}{}{}{}; {}", reason.cause->text, reason.found.empty() ? "" : " (", reason.found,
                       reason.found.empty() ? "" : ")", reason.cause->remedy);
}

} // namespace

std::vector<Reason> find_reasons(const Connection &connection, const Procedure &procedure,
                                 const Values &arguments) {
    std::vector<Reason> sure, possible;
    for (const unsigned char number : knowledge_of(procedure).fails) {
        Finding finding = ask_about(cause(number).ask, connection, procedure, arguments);
        if (!finding.applies.value_or(true))
            continue;
        auto &kept = finding.applies ? sure : possible;
        kept.push_back({&cause(number), finding.applies.has_value(), finding.applies ? finding.found : ""});
    }
    return sure.empty() ? possible : sure;
}

Json failure_json(const Procedure &procedure, int code, const std::vector<Reason> &reasons) {
    Json causes = Json::array();
    for (const Reason &reason : reasons)
        causes.push_back({{"cause", reason.cause->text},
                          {"found", reason.found},
                          {"remedy", reason.cause->remedy},
                          {"sure", reason.sure}});
    return error_json({Trouble::failed, failure_message(procedure, code)}, &procedure, &code, causes);
}

int print_failure(const Context &context, const Procedure &procedure, const Values &arguments,
                  const Answer &answer) {
    const std::vector<Reason> reasons = find_reasons(context.connection, procedure, arguments);
    if (context.output.json) {
        print_json({{"error", failure_json(procedure, answer.code, reasons)}});
        return static_cast<int>(Trouble::failed);
    }
    fmt::print(stderr, "wlanctl: {}\n", failure_message(procedure, answer.code));
    for (const Reason &reason : reasons)
        fmt::print(stderr, "  {}{}\n", reason.sure ? "" : "perhaps ", shown_on(stderr, line_of(reason)));
    return static_cast<int>(Trouble::failed);
}
