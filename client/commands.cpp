#include "client/commands.h"

#include "client/causes.h"
#include "client/describe.h"
#include "client/knowledge.h"
#include "client/lookup.h"
#include "client/restart.h"
#include "client/terminal.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>
#include <unistd.h>

namespace {

// In any case of letters.
bool contains(std::string_view text, std::string_view word) {
    const auto alike = [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); };
    return std::search(text.begin(), text.end(), word.begin(), word.end(), alike) != text.end();
}

// What resets settings is not done by a slip of the hand.
Error check_consent(const Context &context, const Procedure &procedure) {
    const std::string_view resets = knowledge_of(procedure).resets;
    if (resets.empty() || context.options.yes || context.options.dry_run || isatty(STDIN_FILENO) == 0)
        return {};
    return {Trouble::usage, fmt::format("{} resets {}; --yes does it", procedure.name, resets)};
}

// A call that is ready to be made.
struct Prepared {
    const Procedure *procedure = nullptr;
    Values arguments{};
};

Error prepare(Context &context, const std::string &prefix, const Words &words, Prepared &ret_call) {
    if (Error error = find_or_suggest(prefix, words.front(), ret_call.procedure))
        return error;
    if (Error error = take_arguments(context, *ret_call.procedure, {words.begin() + 1, words.end()},
                                     ret_call.arguments))
        return error;
    return check_consent(context, *ret_call.procedure);
}

// A setter that does nothing is none.
bool only_reads(const Procedure &procedure) { return procedure.name.starts_with("wlan_get_"); }

bool acts_at_restart(const Procedure &procedure) {
    return procedure.name.starts_with("wlan_set_") && procedure.result == Result::code &&
           knowledge_of(procedure).effect == at_restart;
}

int show_call(Context &context, const Procedure &procedure, const Values &arguments) {
    print_call(context.output, procedure, arguments);
    if (!context.options.restart || !acts_at_restart(procedure))
        return 0;
    if (Error error = find_names(context.connection, context.gateway))
        return print_error(context.output, error);
    const std::int64_t index = subject_of(context, procedure, arguments, {}).index;
    return print_restart(context, restart_of(context.gateway, index));
}

int call_named(Context &context, const std::string &prefix, const Words &words) {
    Prepared prepared;
    if (Error error = prepare(context, prefix, words, prepared))
        return print_error(context.output, error, prepared.procedure);
    const auto &[procedure, arguments] = prepared;
    if (context.options.dry_run && !only_reads(*procedure))
        return show_call(context, *procedure, arguments);
    if (procedure->name == "wlan_load" || procedure->name == "wlan_reset")
        context.gateway = {}; // they give the interfaces other numbers
    Answer answer;
    if (Error error = ask(context.connection, *procedure, arguments, answer))
        return print_error(context.output, error, procedure);
    return print_outcome(context, *procedure, arguments, answer);
}

// Of a setter that acts at once: while the driver is down, what also stands in a file is only stored.
Acts acts_now(Context &context, const Knowledge &setter) {
    bool is_up = true;
    if (!setter.driver.empty() && !setter.keys.empty())
        if (Error error = find_driver(context.connection, is_up))
            return {"", "", error};
    return is_up ? Acts{setter.effect} : Acts{with_driver, "wlanctl up"};
}

// The command that makes a stored change act.
Acts when_it_acts(Context &context, const Procedure &procedure, const Answer &answer,
                  const Subject &subject) {
    const Knowledge &known = knowledge_of(procedure);
    const std::string when = known.effect;
    const bool to_restart = context.options.restart && when == at_restart;
    // What is stored already may wait for a restart, too.
    const bool stored = answer.code == code_done || (answer.code == code_unchanged && to_restart);
    if (!procedure.name.starts_with("wlan_set_") || procedure.result != Result::code || !stored)
        return {};
    if (when == at_load)
        return {when, "wlanctl down, wlanctl up"};
    if (when != at_restart)
        return when == "none" ? Acts{} : acts_now(context, known);
    const Restart restart = restart_of(context.gateway, subject.index);
    return to_restart ? make_act(context, restart) : Acts{when, restart.command};
}

} // namespace

int list(Context &context, const Words &words) {
    const std::string word = words.empty() ? "" : words.front();
    std::vector<const Procedure *> found;
    for (const Procedure &each : protocol)
        if (contains(each.name, word) || contains(knowledge_of(each).summary, word))
            found.push_back(&each);
    if (found.empty())
        return print_error(
            context.output,
            {Trouble::failed, fmt::format("no procedure has '{}' in its name or summary", word)});
    return print_procedures(context.output, found);
}

int describe(Context &context, const Words &words) {
    const std::string &name = words.front();
    std::vector<const Procedure *> named, told;
    for (const char *prefix : {"", "wlan_", "wlan_get_", "wlan_set_"})
        if (const Procedure *procedure = find_procedure(prefix + name); procedure != nullptr)
            named.push_back(procedure);
    for (const Procedure &each : protocol)
        if (contains(knowledge_of(each).summary, name))
            told.push_back(&each);
    for (std::size_t i = 0; i < named.size(); ++i) {
        if (i > 0 && !context.output.json)
            fmt::print("\n");
        print_procedure(context.output, *named[i]);
    }
    if (named.empty() && told.empty())
        return print_error(context.output, unknown("wlan_", name));
    return named.empty() ? print_procedures(context.output, told) : 0;
}

int call(Context &context, const Words &words) { return call_named(context, "wlan_", words); }

int get(Context &context, const Words &words) { return call_named(context, "wlan_get_", words); }

int set(Context &context, const Words &words) { return call_named(context, "wlan_set_", words); }

int restore_defaults(Context &context, const Words &words) {
    return call_named(context, "wlan_set_", {"restore_defaults", words.front()});
}

int wps_oob(Context &context, const Words &words) {
    return call_named(context, "wlan_set_", {"wps_oob", words.front()});
}

int print_outcome(Context &context, const Procedure &procedure, const Values &arguments,
                  const Answer &answer) {
    if (answer.code < 0)
        return print_failure(context, procedure, arguments, answer);
    const Subject subject = subject_of(context, procedure, arguments, answer);
    const Acts acts = when_it_acts(context, procedure, answer, subject);
    const int status = print_answer(context.output, procedure, answer, subject, acts);
    if (acts.failed && !context.output.json)
        fmt::print(stderr, "wlanctl: {}\n", shown_on(stderr, acts.failed.message));
    return acts.failed ? static_cast<int>(acts.failed.trouble) : status;
}
