#pragma once

#include "backend/status.h"

// What is remembered of the driver. Safe from any thread.

// Each state includes the one before. Before it is initialised, commands to the driver are dropped and only
// the settings files change.
enum class DriverState : unsigned char { stopped, loaded, initialised };

void set_driver_state(DriverState state);
// False, and nothing changed, when the driver is not in the state `from`.
bool advance_driver_state(DriverState from, DriverState to);
bool driver_is(DriverState least);
// For operations that need a state: -1 with a debug line that names `who` below it.
Status check_driver(const char *who, DriverState least);

// While false, the next VLAN association first resets the VLAN file.
bool vlan_file_is_reset();
void set_vlan_file_is_reset(bool is_reset);
