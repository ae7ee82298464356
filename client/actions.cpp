#include "commands.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fmt/format.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr int in_progress = 3;
constexpr std::int64_t scan_running = 1, scan_finished = 3;
constexpr int interrupted_status = 130; // as a shell tells it
constexpr std::chrono::milliseconds poll_interval{250};

volatile std::sig_atomic_t interrupted = 0;

extern "C" void interrupt(int) { interrupted = 1; }

struct Radios {
    const char *name;
    int flags;
};
constexpr std::array radios{Radios{"dual", 245}, Radios{"24", 24}, Radios{"5", 5}};

// A line on a terminal that says how long it has taken so far; it is wiped when the waiting ends.
class LiveLine {
public:
    explicit LiveLine(const char *what) : what_(what), shown_(isatty(STDERR_FILENO) == 1) {}
    LiveLine(const LiveLine &) = delete;
    LiveLine &operator=(const LiveLine &) = delete;
    ~LiveLine() {
        if (shown_)
            std::fputs("\r\x1b[K", stderr);
    }
    void show() const {
        const auto elapsed = std::chrono::steady_clock::now() - begun_;
        if (shown_)
            std::fprintf(
                stderr, "\r%s ... %lld s", what_,
                static_cast<long long>(std::chrono::duration_cast<std::chrono::seconds>(elapsed).count()));
    }

private:
    const char *what_;
    bool shown_;
    std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
};

// Asks until the daemon answers something else than that the action goes on or the user has had enough.
Error poll(Connection &connection, const Procedure &procedure, Values &arguments, const char *what,
           bool (*goes_on)(const Answer &), Answer &ret_answer) {
    const LiveLine line(what);
    for (;;) {
        if (Error error = ask(connection, procedure, arguments, ret_answer))
            return error;
        if (!goes_on(ret_answer) || interrupted != 0)
            return {};
        line.show();
        std::this_thread::sleep_for(poll_interval);
    }
}

bool initialises(const Answer &answer) { return answer.code == in_progress; }
bool scans(const Answer &answer) { return answer.code >= 0 && answer.numbers.at(0) == scan_running; }

int no_longer_waiting(const char *what) {
    std::fprintf(stderr, "wlanctl: no longer waiting; the %s goes on\n", what);
    return interrupted_status;
}

// The procedures of a scan, and its interface.
struct Scan {
    const Procedure *begin = nullptr, *status = nullptr, *result = nullptr;
    Values index{};
};

Error find_scan(Connection &connection, const std::string &index, Scan &ret_scan) {
    if (Error error = find_or_suggest("wlan_", "ap_scan", ret_scan.begin))
        return error;
    if (Error error = find_or_suggest("wlan_", "get_ap_scan_status", ret_scan.status))
        return error;
    if (Error error = find_or_suggest("wlan_", "get_ap_scan_result", ret_scan.result))
        return error;
    return take_arguments(connection, *ret_scan.begin, {index}, ret_scan.index);
}

int print_refusal(Context &context, Scan &scan, const Answer &refusal) {
    Answer status;
    const bool busy = !ask(context.connection, *scan.status, scan.index, status) && scans(status);
    if (busy)
        return print_error(context.output, {Trouble::failed, "this radio is being scanned already"});
    return print_answer(context.output, *scan.begin, refusal);
}

} // namespace

int up(Context &context, const std::string &name) {
    const auto *chosen =
        std::find_if(radios.begin(), radios.end(), [&](const Radios &each) { return name == each.name; });
    if (chosen == radios.end())
        return print_error(context.output, {Trouble::usage, fmt::format("'{}' is not dual, 24 or 5", name)});
    const Procedure &load = *find_procedure("wlan_load"), &init = *find_procedure("wlan_init");
    Values flags{{{.number = chosen->flags}}};
    Answer answer;
    if (Error error = ask(context.connection, load, flags, answer))
        return print_error(context.output, error);
    if (answer.code < 0)
        return print_answer(context.output, load, answer);
    std::signal(SIGINT, interrupt);
    Values none;
    if (Error error = poll(context.connection, init, none, "initialising", initialises, answer))
        return print_error(context.output, error);
    const int status = print_answer(context.output, init, answer);
    return initialises(answer) ? no_longer_waiting("initialisation") : status;
}

int restart(Context &context, const std::string &index) {
    if (index == "all")
        return call(context, "wlan_", "restart_all", {});
    return call(context, "wlan_", "restart", {index});
}

int down(Context &context) { return call(context, "wlan_", "reset", {}); }

int scan(Context &context, const std::string &index) {
    auto &[connection, output] = context;
    Scan scan;
    Answer status, result;
    if (Error error = find_scan(connection, index, scan))
        return print_error(output, error);
    if (Error error = ask(connection, *scan.begin, scan.index, result))
        return print_error(output, error);
    if (result.code < 0)
        return print_refusal(context, scan, result);
    std::signal(SIGINT, interrupt);
    do { // again, if somebody else has begun a scan before the result was fetched
        if (Error error = poll(connection, *scan.status, scan.index, "scanning", scans, status))
            return print_error(output, error);
        if (scans(status)) {
            if (output.json)
                (void)print_answer(output, *scan.status, status);
            return no_longer_waiting("scan");
        }
        if (status.code < 0 || status.numbers.at(0) != scan_finished)
            return print_error(output, {Trouble::failed, "the scan failed"});
        if (Error error = ask(connection, *scan.result, scan.index, result))
            return print_error(output, error);
        if (Error error = ask(connection, *scan.status, scan.index, status))
            return print_error(output, error);
    } while (scans(status));
    return print_answer(output, *scan.result, result);
}

int stations(Context &context, const std::string &index) {
    return call(context, "wlan_", "get_assoc_devices_table", {index});
}

int stats(Context &context, const std::string &index) {
    std::vector<std::pair<const Procedure *, Answer>> answers;
    const std::pair<const char *, std::vector<std::string>> calls[] = {
        {"get_basic_stats", {index}}, {"get_stats", {index, "0"}}}; // 0: the traffic counters
    for (const auto &[name, given] : calls) {
        auto &[procedure, answer] = answers.emplace_back();
        Values arguments;
        if (Error error = find_or_suggest("wlan_", name, procedure))
            return print_error(context.output, error);
        if (Error error = take_arguments(context.connection, *procedure, given, arguments))
            return print_error(context.output, error);
        if (Error error = ask(context.connection, *procedure, arguments, answer))
            return print_error(context.output, error);
        if (answer.code < 0)
            return print_answer(context.output, *procedure, answer);
    }
    return print_records(context.output, answers);
}
