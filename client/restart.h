#pragma once

#include "client/commands.h"

#include <string>
#include <vector>

// How what is stored comes into force: a radio, or all of them, restarted.

struct Restart {
    const Procedure *procedure;
    Values arguments;
    std::string command;       // of a user who wants it
    std::vector<Radio> radios; // that it restarts, as far as the names are known
};

// That of the interface's radio. Of all radios for index 0, and where the daemon would restart another one.
Restart restart_of(const Gateway &gateway, std::int64_t index);

// Makes a stored change act: restarts, and waits until the radios are as they were before and, on the gateway
// itself, no script goes on. Where the driver is not up, the change waits for that instead.
Acts make_act(Context &context, const Restart &restart);

// The call that would do that, if the driver is up. The exit status.
int print_restart(Context &context, const Restart &restart);
