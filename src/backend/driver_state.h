#pragma once

#include "backend/status.h"

#include <functional>

// What is known of the driver. Safe from any thread: read without a lock, changed in one place, which keeps
// the driver's record in step.

// Each state includes the one before. Before it is initialised, commands to the driver are dropped and only
// the settings files change.
enum class DriverState : unsigned char { stopped, loaded, initialised };

// Which radios the driver is loaded for or has interfaces of; the numbers are those that clients name them
// by.
enum class Radios : int { unknown = -1, none = 0, only_5g = 5, only_24g = 24, both = 245 };

// Counts of BSSes; 0 is not known yet and looked up again at every use.
constexpr unsigned most_bss_in_a_band = 64;
struct BssCounts {
    unsigned on_24g = 0, on_5g = 0;
    unsigned total() const { return on_24g + on_5g; }
    bool operator==(const BssCounts &) const = default;
};

// How the init of this run ended, and whether that has been answered.
enum class InitEnd : unsigned char { none, unreported, reported };
struct InitOutcome {
    InitEnd end = InitEnd::none;
    Status result = success;
    bool operator==(const InitOutcome &) const = default;
};

struct KnownDriver {
    DriverState state = DriverState::stopped;
    Radios loaded_for = Radios::both; // of the other radio nothing is looked up
    BssCounts counts;                 // kept until the driver is stopped or loaded for the other radio alone
    bool vlan_file_is_reset = true;   // while false, the next VLAN association first resets the VLAN file
    InitOutcome init;
    bool operator==(const KnownDriver &) const = default;
};

// Every change. While `change` runs no other one does, so that what it looks up is not outdated when it is
// stored; it must not change the driver by another call.
void change_driver(const std::function<void(KnownDriver *)> &change);

void set_driver_state(DriverState state);
// False, and nothing changed, when the driver is not in the state `from`.
bool advance_driver_state(DriverState from, DriverState to);
bool driver_is(DriverState least);
// For operations that need a state: -1 with a debug line that names `who` below it.
Status check_driver(const char *who, DriverState least);

// The driver is loaded for these radios; forgets the count of the other one.
void set_interfaces_up(Radios radios);
Radios interfaces_up();

BssCounts known_counts();

bool vlan_file_is_reset();
void set_vlan_file_is_reset(bool is_reset);

// For the daemon that comes after this one.
void set_init_outcome(InitOutcome outcome);

// All that is known but for which radios it was loaded; what is not given is what a stop leaves.
void set_known_driver(DriverState state = DriverState::stopped, BssCounts counts = {});
