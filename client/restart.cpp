#include "client/restart.h"

#include "client/exchange.h"
#include "client/knowledge.h"
#include "client/lookup.h"
#include "client/machine.h"
#include "client/waiting.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <optional>

namespace {

constexpr Seconds longest_restart{120};
constexpr int polls_of_the_end = 8; // two seconds

bool has(const Radio &radio, std::int64_t index) {
    return std::find(radio.interfaces.begin(), radio.interfaces.end(), index) != radio.interfaces.end();
}

// The daemon takes each radio to have eight interfaces, and restarts that of the index 1 or 9; for some
// indexes none: 0.
std::int64_t index_restarted_for(std::int64_t index) {
    const std::int64_t bit = (index - 1) % 32;
    return bit < 0 || bit >= 16 ? 0 : bit < 8 ? 1 : 9;
}

Restart restart_of_one(const Gateway &gateway, std::int64_t index) {
    Restart restart{find_procedure("wlan_restart"),
                    {{{Kind::integer, index}}},
                    fmt::format("wlanctl restart {}", name_of(gateway, index)),
                    radios_of(gateway)};
    std::erase_if(restart.radios, [of = index_restarted_for(index)](auto &each) { return !has(each, of); });
    return restart;
}

bool restarts(const Restart &restart, std::int64_t index) {
    return std::any_of(restart.radios.begin(), restart.radios.end(),
                       [index](const Radio &each) { return has(each, index); });
}

std::string radios_of(const Restart &restart) {
    std::vector<std::string> bands;
    for (const Radio &radio : restart.radios)
        bands.push_back(radio.band);
    if (bands.empty())
        return "no radio";
    return fmt::format("the {} radio{}", fmt::join(bands, " and "), bands.size() == 1 ? "" : "s");
}

// What is to be seen of a restart.
struct View {
    std::vector<std::int64_t> watched{};                     // the first interface of each radio
    std::vector<std::optional<std::string>> before{}, now{}; // their statuses, but for lost replies
    std::vector<bool> have_changed{};
    std::optional<Daemon> daemon{}; // where wlanctl runs beside it
};

Error look(Connection &connection, View &view) {
    std::vector<Question> questions;
    for (const std::int64_t index : view.watched)
        questions.push_back({find_procedure("wlan_get_status"), {{{Kind::integer, index}}}});
    call(connection, questions);
    view.now.clear();
    for (const Question &each : questions) {
        if (each.error && each.error.trouble != Trouble::timeout)
            return each.error;
        view.now.push_back(each.error ? std::nullopt : std::optional(each.answer.text));
    }
    return {};
}

Error begin(Connection &connection, const Restart &restart, View &ret_view) {
    for (const Radio &radio : restart.radios)
        ret_view.watched.push_back(radio.interfaces.front());
    if (Error error = look(connection, ret_view))
        return error;
    ret_view.before = ret_view.now;
    ret_view.have_changed.resize(ret_view.watched.size());
    if (is_this_machine(connection))
        ret_view.daemon = find_only_daemon();
    return {};
}

// Whether it may be over, by what was seen last.
bool is_at_rest(View &view) {
    bool is_as_before = true;
    for (std::size_t i = 0; i < view.now.size(); ++i) {
        const auto &status = view.now[i];
        if (status && status != view.before[i])
            view.have_changed[i] = true;
        is_as_before &= status && (status == view.before[i] || status == "Up");
    }
    return is_as_before && !(view.daemon && has_child(*view.daemon));
}

// From elsewhere, a restart that nothing was seen of may have been over between two looks, or not begun.
bool was_seen(const View &view) {
    return view.daemon ||
           (!view.watched.empty() &&
            std::find(view.have_changed.begin(), view.have_changed.end(), false) == view.have_changed.end());
}

// That the daemon will restart the radio that is meant.
Error check_radio(Context &context, const Values &arguments) {
    if (Error error = find_names(context.connection, context.gateway))
        return error;
    const std::int64_t index = arguments.list.front().number;
    const Restart restart = restart_of_one(context.gateway, index);
    if (restarts(restart, index))
        return {};
    return {
        Trouble::usage,
        fmt::format("for {} (index {}) the daemon would restart {}; wlanctl restart all restarts its own, "
                    "too; --force sends it all the same",
                    name_of(context.gateway, index), index, radios_of(restart))};
}

// Says in `acts` how far it came.
Error restart_and_wait(Waiting &waiting, const Restart &restart, Acts &acts) {
    View view;
    Answer answer;
    if (Error error = begin(waiting.connection, restart, view))
        return error;
    if (Error error = ask(waiting.connection, *restart.procedure, restart.arguments, answer);
        error && error.trouble != Trouble::interrupted)
        return error;
    acts = {restart_asked};
    const auto end = Clock::now() + std::chrono::duration_cast<Clock::duration>(longest_restart);
    for (int steady = 0; steady < polls_of_the_end;) {
        if (Clock::now() >= end)
            return {Trouble::timeout,
                    fmt::format("no end of the restart was seen within {} s", longest_restart.count())};
        if (!waiting.goes_on_after_a_while())
            return {Trouble::interrupted};
        if (Error error = look(waiting.connection, view))
            return error;
        steady = is_at_rest(view) ? steady + 1 : 0;
    }
    acts = {was_seen(view) ? restarted : restart_asked};
    return {};
}

} // namespace

Restart restart_of(const Gateway &gateway, std::int64_t index) {
    Restart one = restart_of_one(gateway, index);
    if (index != 0 && restarts(one, index))
        return one;
    return {find_procedure("wlan_restart_all"), {}, "wlanctl restart all", radios_of(gateway)};
}

Acts make_act(Context &context, const Restart &restart) {
    Acts acts{std::string(at_restart), restart.command};
    bool is_up = false;
    {
        Waiting waiting(context.connection, "restarting");
        acts.failed = find_driver(waiting.connection, is_up);
        if (!acts.failed && !is_up)
            return {with_driver, "wlanctl up"};
        if (!acts.failed)
            acts.failed = restart_and_wait(waiting, restart, acts);
    }
    if (acts.failed.trouble == Trouble::interrupted) {
        acts.failed.message = acts.when == restart_asked ? "no longer waiting; the restart goes on"
                                                         : "interrupted before the restart";
        if (context.output.json)
            fmt::print(stderr, "wlanctl: {}\n", acts.failed.message);
    }
    return acts;
}

int print_restart(Context &context, const Restart &restart) {
    bool is_up = false;
    if (Error error = find_driver(context.connection, is_up))
        return print_error(context.output, error);
    if (is_up)
        print_call(context.output, *restart.procedure, restart.arguments);
    return 0;
}

int restart(Context &context, const Words &words) {
    const bool all = words.front() == "all";
    const Procedure &procedure = *find_procedure(all ? "wlan_restart_all" : "wlan_restart");
    Values arguments;
    Answer answer;
    if (Error error = take_arguments(context, procedure, all ? Words{} : words, arguments))
        return print_error(context.output, error, &procedure);
    if (Error error = all || context.options.force ? Error{} : check_radio(context, arguments))
        return print_error(context.output, error, &procedure);
    if (context.options.dry_run) {
        print_call(context.output, procedure, arguments);
        return 0;
    }
    if (Error error = ask(context.connection, procedure, arguments, answer))
        return print_error(context.output, error, &procedure);
    if (context.output.json || answer.code < 0)
        return print_outcome(context, procedure, arguments, answer);
    if (find_names(context.connection, context.gateway)) // it is asked for all the same
        fmt::print("restart asked for\n");
    else
        fmt::print("restart of {} asked for\n",
                   radios_of(all ? restart_of(context.gateway, 0)
                                 : restart_of_one(context.gateway, arguments.list.front().number)));
    return 0;
}
