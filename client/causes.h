#pragma once

#include "client/commands.h"
#include "client/knowledge.h"

#include <string>
#include <vector>

// The wire carries only -1. What made an operation fail is found out from here: the description knows what
// can, and some of it can be asked.

struct Reason {
    const Cause *cause;
    bool sure;           // asked and found so; else it could not be ruled out
    std::string found{}; // what was seen, where that says more than the cause
};

// The reasons that remain, most likely first: where some are sure, only those.
std::vector<Reason> find_reasons(const Connection &connection, const Procedure &procedure,
                                 const Values &arguments);

// That failure in JSON, in the form that every failure has.
Json failure_json(const Procedure &procedure, int code, const std::vector<Reason> &reasons);

// Says that the daemon answered failure, and why. The exit status.
int print_failure(const Context &context, const Procedure &procedure, const Values &arguments,
                  const Answer &answer);
