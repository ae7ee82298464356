#pragma once

#include "client/connection.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

// What is to be seen of the gateway where wlanctl runs on it.

// Whether the host that was asked is this machine.
bool is_this_machine(const Connection &connection);

// A running daemon of this machine, and what its starter gave it.
struct Daemon {
    pid_t process;
    bool is_replaced;                                    // its program has been replaced since
    std::string directory;                               // its working directory
    std::optional<std::vector<std::string>> environment; // not told to everybody

    // Of its environment; nothing where that is not set or not known.
    std::optional<std::string> variable(std::string_view name) const;
};
std::vector<Daemon> find_daemons();
// Nothing where none runs, or several do.
std::optional<Daemon> find_only_daemon();
// What its program says of itself; empty where that cannot be read (it is root's).
std::string version_of(const Daemon &daemon);
// Seconds since 1970; 0 where it is not told.
std::int64_t start_of(const Daemon &daemon);

// Whether a script or a tool that it has begun goes on.
bool has_child(const Daemon &daemon);

// The IPv4 addresses, in network order, on which sockets listen at that UDP port.
std::vector<in_addr_t> addresses_of_port(std::uint16_t port);

// What looking has shown of a trouble: it is there, it is not, or nothing.
struct Finding {
    std::optional<bool> applies{};
    std::string found{};
};

inline constexpr char lock_file[] = "/tmp/nvram_set_lock", debug_flag[] = "/tmp/wlandbg";
inline constexpr const char *settings_names[] = {"ZAV75024g.dat", "ZAV750.dat"};

// Whether another program has the settings, and for how long.
Finding find_lock(long *ret_seconds = nullptr);

// The folder of the settings files: the running daemon's, else that of the own environment.
std::optional<std::string> settings_folder();
// Whether that is not set, or its files are not to be read and written.
Finding check_folder();
