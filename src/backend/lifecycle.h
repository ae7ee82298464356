#pragma once

#include "backend/status.h"

#include <atomic>

// Loading, initialising, restarting and stopping the driver, all by the platform's host script. Safe from the
// worker threads; each call lasts as long as the script.

// Before init, driver set commands are dropped and only the settings files change.
inline std::atomic<bool> driver_loaded{false};
inline std::atomic<bool> driver_initialised{false};

// While clear, the next VLAN association first resets the VLAN file.
inline std::atomic<bool> vlan_file_is_reset{true};

// Loads the driver for the radios of the selector: 24, 5, or 245 for both. 0 also when it is loaded already
// or driver interfaces exist; -1 for another selector or a failed script.
Status ZAV_Start(int band);

// Initialises the loaded driver: the init script, WPS mode off where it is disabled, then VLANs and 802.1X.
// -1 when the driver is not loaded, is initialised already, was stopped meanwhile, or when a step fails.
Status ZAV_Init();

// Stops the driver; a failed step leaves all flags as they were.
Status ZAV_Stop();

// Restarts the band of the index, with all its BSSes. 0 before init.
Status ZAV_Restart(int index);
Status ZAV_RestartAll();
