#pragma once

#include "client/connection.h"

#include <csignal>

// While it lives, Ctrl-C ends calls by the connection instead of the program; one that comes between two
// calls ends the second. (A signal that whoever started the program ignores stays ignored.)
class CtrlC {
public:
    explicit CtrlC(Connection &connection);
    CtrlC(const CtrlC &) = delete;
    CtrlC &operator=(const CtrlC &) = delete;
    ~CtrlC();

private:
    Connection &connection_;
    struct sigaction before_ {};
};

// While it lives, calls by its connection show on a terminal what is done and for how long already (unless
// that is empty), and Ctrl-C ends them.
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
    CtrlC ctrl_c_{connection};
    const char *doing_;
    bool shown_;
};
