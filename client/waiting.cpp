#include "client/waiting.h"

#include "client/exchange.h"

#include <fmt/format.h>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr int poll_interval = 250; // milliseconds

const Clock::time_point begun = Clock::now();

volatile std::sig_atomic_t interrupted = 0;

extern "C" void interrupt(int) { interrupted = 1; }

} // namespace

CtrlC::CtrlC(Connection &connection) : connection_(connection) {
    struct sigaction action {};
    action.sa_handler = interrupt;
    sigaction(SIGINT, nullptr, &before_);
    if (before_.sa_handler != SIG_IGN)
        sigaction(SIGINT, &action, nullptr);
    connection_.goes_on = [] { return interrupted == 0; };
}

CtrlC::~CtrlC() {
    sigaction(SIGINT, &before_, nullptr);
    connection_.goes_on = nullptr;
}

Waiting::Waiting(Connection daemon, const char *doing)
    : connection(std::move(daemon)), doing_(doing), shown_(*doing != '\0' && isatty(STDERR_FILENO) == 1) {
    connection.goes_on = [this] { return goes_on(); };
}

Waiting::~Waiting() {
    if (shown_)
        std::fputs("\r\x1b[K", stderr);
}

bool Waiting::goes_on() const {
    const auto elapsed = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - begun);
    if (shown_)
        fmt::print(stderr, "\r{} ... {} s\x1b[K", doing_, elapsed.count());
    return interrupted == 0;
}

bool Waiting::goes_on_after_a_while() const {
    if (goes_on())
        ::poll(nullptr, 0, poll_interval);
    return interrupted == 0;
}
