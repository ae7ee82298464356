#pragma once

#include "client/connection.h"

#include <csignal>

// While it lives, calls by its connection show on a terminal what is done and for how long already (unless
// that is empty), and Ctrl-C ends them instead of the program. (A signal that whoever started the program
// ignores stays ignored.)
class Waiting {
public:
    Waiting(Connection daemon, const char *doing);
    Waiting(const Waiting &) = delete;
    Waiting &operator=(const Waiting &) = delete;
    ~Waiting();

    // False after Ctrl-C.
    bool goes_on() const;
    // Between two calls; the signal cuts it short.
    bool goes_on_after_a_while() const;

    Connection connection;

private:
    const char *doing_;
    bool shown_;
    struct sigaction before_ {};
};
