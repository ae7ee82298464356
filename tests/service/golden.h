#pragma once

#include "service/gateway.h"

#include <cstdint>
#include <ostream>

// The rows of tests/golden: what was expected of the daemon before it was written. See the README there.

using Lines = std::vector<std::string>;

struct GoldenCall {
    unsigned number = 0;
    std::string name;
    std::string arguments;             // XDR
    std::vector<std::string> words;    // the same arguments as a command line has them
    std::optional<std::string> reply;  // XDR; none where no reply comes
    std::chrono::milliseconds wait{0}; // for a worker's lines, at the most
    Lines out, later, err, settings, commands;
};

struct GoldenCase {
    std::string name;                                       // "AREA: NAME"
    std::vector<std::pair<std::string, std::string>> given; // files of the state directory, written before
    bool running = false; // the driver is initialised before the first call, and stopped after the last
    std::vector<GoldenCall> calls;
};

// How a test that fails names its case.
inline void PrintTo(const GoldenCase &golden, std::ostream *stream) { *stream << golden.name; }

std::vector<GoldenCase> read_golden();

// Settings files, faults and logs as a fresh gateway has them.
void make_afresh();

// A case while it is played: prepared, with its driver running where it says so, and BSSes counted.
class Played {
public:
    Played(Gateway &gateway, const GoldenCase &golden);
    ~Played();
    Played(const Played &) = delete;
    Played &operator=(const Played &) = delete;

private:
    Gateway &gateway_;
    bool needs_reset_;
};

// What the daemon printed and the platform logged from now on.
class News {
public:
    explicit News(const Gateway &gateway);
    // Waits for as many lines as the call is to bring, as long as it may take.
    void await(const GoldenCall &call);
    Lines out, err, log;

private:
    struct Tail {
        std::string path;
        std::uintmax_t seen;
        Lines &lines;
    };
    void look();
    std::vector<Tail> tails_;
};

Lines lines_of(const std::string &text);
