#include "client/commands.h"

#include "client/chart.h"
#include "client/exchange.h"
#include "client/lookup.h"
#include "client/picture.h"
#include "client/waiting.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

namespace {

constexpr std::int64_t scan_running = 1, scan_finished = 3;
// How long the platform's scripts may take before the daemon answers, and how long it may be silent while an
// action is watched.
constexpr Seconds short_patience{usual_patience}, long_patience{600};

struct Radios {
    const char *name;
    int flags; // as wlan_load takes them
    const char *bands;
};
constexpr std::array radios{Radios{"dual", 245, "2.4 GHz and 5 GHz"}, Radios{"24", 24, "2.4 GHz"},
                            Radios{"5", 5, "5 GHz"}};

Error ask_visibly(Connection connection, const Procedure &procedure, const Values &arguments,
                  const char *doing, Seconds patience, Answer &ret_answer) {
    connection.patience = patience.count();
    Waiting waiting(std::move(connection), doing);
    return ask(waiting.connection, procedure, arguments, ret_answer);
}

// Asks until the daemon answers something else than that the action goes on. A lost reply does not end that.
Error poll(const Connection &connection, const Procedure &procedure, const Values &arguments,
           const char *doing, bool (*goes_on)(const Answer &), Answer &ret_answer) {
    Waiting waiting(connection, doing);
    Clock::time_point heard = Clock::now();
    do {
        Error error = ask(waiting.connection, procedure, arguments, ret_answer);
        if (!error && !goes_on(ret_answer))
            return {};
        if (!error)
            heard = Clock::now();
        else if (error.trouble != Trouble::timeout || Clock::now() - heard >= long_patience)
            return error;
    } while (waiting.goes_on_after_a_while());
    return {Trouble::interrupted, {}};
}

bool initialises(const Answer &answer) { return answer.code == code_in_progress; }
bool scans(const Answer &answer) { return answer.code >= 0 && answer.numbers.at(0) == scan_running; }

// Of an action: after Ctrl-C, that it goes on, on standard error in any case.
int print_end(const Output &output, Error error, const char *action, const Procedure &procedure) {
    if (error.trouble == Trouble::interrupted) {
        error.message = fmt::format("no longer waiting; the {}", action);
        if (output.json)
            fmt::print(stderr, "wlanctl: {}\n", error.message);
    }
    return print_error(output, error, &procedure);
}

// Whether the driver is to be brought up for other radios than those that it runs.
Error check_running(Context &context, const Radios &wanted) {
    Answer status; // empty where nothing runs
    const Values first{{{Kind::integer, 1}}};
    if (Error error = ask_visibly(context.connection, *find_procedure("wlan_get_status"), first, "asking",
                                  long_patience, status))
        return error;
    if (Error error = find_names(context.connection, context.gateway))
        return error;
    std::vector<std::string> bands;
    for (const Radio &radio : radios_of(context.gateway))
        bands.push_back(radio.band);
    const std::string running = fmt::format("{}", fmt::join(bands, " and "));
    if (status.text.empty() || running == wanted.bands)
        return {};
    return {Trouble::failed,
            fmt::format("{} {} up; wlanctl down first", running, bands.size() == 1 ? "is" : "are")};
}

// The procedures of a scan, and its interface.
struct Scan {
    const Procedure *begin = find_procedure("wlan_ap_scan"),
                    *status = find_procedure("wlan_get_ap_scan_status"),
                    *result = find_procedure("wlan_get_ap_scan_result");
    Values index{};
};

int print_refusal(Context &context, Scan &scan, const Answer &refusal) {
    Answer status;
    const bool busy = !ask(context.connection, *scan.status, scan.index, status) && scans(status);
    if (busy)
        return print_error(context.output, {Trouble::failed, "this radio is being scanned already"});
    return print_outcome(context, *scan.begin, scan.index, refusal);
}

int print_chart(Context &context, const Scan &scan, const Answer &result) {
    Band band{{}, value_of(*scan.result, result)["entries"]};
    Answer channel;
    if (Error error =
            ask(context.connection, *find_procedure("wlan_get_current_channel"), scan.index, channel))
        return print_error(context.output, error);
    if (Error error = find_names(context.connection, context.gateway))
        return print_error(context.output, error);
    if (channel.code >= 0)
        band.own = channel.numbers.at(0);
    band.name = band_of(name_of(context.gateway, scan.index.list.front().number));
    fmt::print("{}", chart_of(band, width_of_terminal()));
    return 0;
}

} // namespace

int up(Context &context, const Words &words) {
    const std::string name = words.empty() ? "dual" : words.front();
    const auto *chosen =
        std::find_if(radios.begin(), radios.end(), [&](const Radios &each) { return name == each.name; });
    if (chosen == radios.end())
        return print_error(context.output, {Trouble::usage, fmt::format("'{}' is not dual, 24 or 5", name)});
    Connection &connection = context.connection;
    const Output &output = context.output;
    const Procedure &load = *find_procedure("wlan_load"), &init = *find_procedure("wlan_init");
    const Values none, flags{{{.number = chosen->flags}}};
    Answer answer;
    if (Error error = find_daemon(connection))
        return print_error(output, error);
    const CtrlC ctrl_c(connection);
    if (Error error = check_running(context, *chosen))
        return print_end(output, error, "driver was not touched", load);
    if (context.options.dry_run) {
        print_call(output, load, flags);
        print_call(output, init, none);
        return 0;
    }
    context.gateway = {}; // a load gives the interfaces other numbers, also one that fails
    if (Error error = ask_visibly(connection, load, flags, "loading", long_patience, answer))
        return print_end(output, error, "load goes on, and no initialisation follows it", load);
    if (answer.code < 0)
        return print_outcome(context, load, flags, answer);
    if (Error error = poll(connection, init, none, "initialising", initialises, answer))
        return print_end(output, error, "initialisation goes on", init);
    return print_outcome(context, init, none, answer);
}

int down(Context &context, const Words &) {
    const Procedure &reset = *find_procedure("wlan_reset");
    Answer answer;
    if (context.options.dry_run) {
        print_call(context.output, reset, {});
        return 0;
    }
    if (Error error = find_daemon(context.connection))
        return print_error(context.output, error);
    context.gateway = {};
    if (Error error = ask_visibly(context.connection, reset, {}, "stopping", long_patience, answer))
        return print_end(context.output, error, "stop goes on", reset);
    return print_outcome(context, reset, {}, answer);
}

int scan(Context &context, const Words &words) {
    Connection &connection = context.connection;
    const Output &output = context.output;
    Scan scan;
    Answer status, result;
    const bool draws = context.options.chart && !output.json;
    if (Error error = draws ? Error{} : check_columns(output, *scan.result))
        return print_error(output, error);
    if (Error error = take_arguments(context, *scan.begin, words, scan.index))
        return print_error(output, error, scan.begin);
    if (context.options.dry_run) {
        print_call(output, *scan.begin, scan.index);
        return 0;
    }
    if (Error error = find_daemon(connection))
        return print_error(output, error);
    const CtrlC ctrl_c(connection);
    if (Error error = ask_visibly(connection, *scan.begin, scan.index, "scanning", short_patience, result))
        return print_end(output, error, "scan goes on", *scan.begin);
    if (result.code < 0)
        return print_refusal(context, scan, result);
    do { // again, if somebody else has begun a scan before the result was fetched
        if (Error error = poll(connection, *scan.status, scan.index, "scanning", scans, status))
            return print_end(output, error, "scan goes on", *scan.begin);
        if (status.code < 0 || status.numbers.at(0) != scan_finished)
            return print_error(output, {Trouble::failed, "the scan failed"});
        if (Error error = ask(connection, *scan.result, scan.index, result))
            return print_error(output, error);
        if (Error error = ask(connection, *scan.status, scan.index, status))
            return print_error(output, error);
    } while (scans(status));
    if (draws && result.code >= 0)
        return print_chart(context, scan, result);
    return print_outcome(context, *scan.result, scan.index, result);
}

int stations(Context &context, const Words &words) {
    const Procedure &table = *find_procedure("wlan_get_assoc_devices_table");
    Values index;
    Answer answer;
    if (Error error = take_arguments(context, table, words, index))
        return print_error(context.output, error, &table);
    if (Error error = ask(context.connection, table, index, answer))
        return print_error(context.output, error, &table);
    if (answer.code < 0)
        return print_outcome(context, table, index, answer);
    if (Error error = find_names(context.connection, context.gateway))
        return print_error(context.output, error);
    const std::int64_t radio = index.list[0].number;
    const Json devices = with_interfaces(context.gateway, radio, value_of(table, answer)["devices"]);
    if (context.output.json) {
        Json object = answer_json(context.output, table, answer, subject_of(context, table, index, answer));
        object["value"]["devices"] = devices;
        print_json(object);
        return 0;
    }
    return print_table(context.output, table_of(devices, {{"INTERFACE", "interface"},
                                                          {"MAC", "mac"},
                                                          {"IP", "ip"},
                                                          {"RSSI (dBm)", "rssi"},
                                                          {"NAME", "name"},
                                                          {"CLASS CODE", "class_code"},
                                                          {"CAPABILITY BITS", "capability_bits"},
                                                          {"VENDOR PREFIXES", "vendor_prefixes"}}));
}

int stats(Context &context, const Words &words) {
    const Procedure &basic = *find_procedure("wlan_get_basic_stats"),
                    &more = *find_procedure("wlan_get_stats");
    Values index;
    if (Error error = take_arguments(context, basic, words, index))
        return print_error(context.output, error, &basic);
    Values traffic = index;
    traffic.list.push_back({}); // 0: the traffic counters
    std::vector<std::pair<const Procedure *, Answer>> answers;
    for (const auto &[procedure, arguments] : {std::pair{&basic, index}, std::pair{&more, traffic}}) {
        Answer answer;
        if (Error error = ask(context.connection, *procedure, arguments, answer))
            return print_error(context.output, error, procedure);
        if (answer.code < 0)
            return print_outcome(context, *procedure, arguments, answer);
        answers.emplace_back(procedure, std::move(answer));
    }
    return print_records(context.output, subject_of(context, basic, index, {}), answers);
}
