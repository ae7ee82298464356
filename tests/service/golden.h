#pragma once

#include "service/gateway.h"

// The rows of procedures.golden: what was expected of the daemon before it was written. See that file's head.

struct GoldenCall {
    unsigned number = 0;
    std::string name;
    std::string arguments;            // XDR
    std::vector<std::string> words;   // the same arguments as a command line has them
    std::optional<std::string> reply; // XDR; none where no reply comes
    std::vector<std::string> out, err, settings, commands;
};

struct GoldenCase {
    std::string name;
    std::vector<std::pair<std::string, std::string>> given; // files of the state directory, written before
    std::vector<GoldenCall> calls;
};

std::vector<GoldenCase> read_golden(const std::string &path);

// Settings files, faults and logs as a fresh gateway has them, then what the case gives.
void prepare(const GoldenCase &golden);
