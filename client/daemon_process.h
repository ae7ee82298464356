#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <sys/types.h>

// The daemon as a process of this machine: what no procedure tells.
struct DaemonProcess {
    pid_t id = 0;
    std::string version{};    // empty where the program cannot be read (it is root's)
    std::int64_t started = 0; // seconds since 1970
};

// Nothing where no process has its name, or several have.
std::optional<DaemonProcess> find_daemon_process();
