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

// Asks until the daemon answers something else than "in progress" or the user has had enough.
Error poll(Connection &connection, const Procedure &procedure, const char *what, Answer &ret_answer) {
    const LiveLine line(what);
    Values none;
    for (;;) {
        if (Error error = ask(connection, procedure, none, ret_answer))
            return error;
        if (ret_answer.code != in_progress || interrupted != 0)
            return {};
        line.show();
        std::this_thread::sleep_for(poll_interval);
    }
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
    if (Error error = poll(context.connection, init, "initialising", answer))
        return print_error(context.output, error);
    if (answer.code != in_progress)
        return print_answer(context.output, init, answer);
    (void)print_answer(context.output, init, answer);
    std::fputs("wlanctl: no longer waiting; the initialisation goes on\n", stderr);
    return interrupted_status;
}

int restart(Context &context, const std::string &index) {
    if (index == "all")
        return call(context, "wlan_", "restart_all", {});
    return call(context, "wlan_", "restart", {index});
}

int down(Context &context) { return call(context, "wlan_", "reset", {}); }
