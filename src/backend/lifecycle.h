#pragma once

#include "backend/status.h"

#include <atomic>
#include <mutex>

// Loading, initialising, restarting and stopping the driver, all by the platform's host script. Safe from the
// worker threads; each call lasts as long as the script.

// Before init, driver set commands are dropped and only the settings files change.
inline std::atomic<bool> driver_loaded{false};
inline std::atomic<bool> driver_initialised{false};

// For operations that need one of the flags set: -1 with a debug line that names `who` while it is clear.
Status check_driver(const char *who, const std::atomic<bool> &flag);

// While clear, the next VLAN association first resets the VLAN file.
inline std::atomic<bool> vlan_file_is_reset{true};

// The driver from one successful stop to the next, as a number. An init belongs to the run that it was asked
// for, and one that a stop has overtaken changes nothing in the next.
inline std::atomic<unsigned> driver_run{0};

// Waits for the end of a running stop. While the lock is held, driver_run stays and no stop begins.
std::unique_lock<std::mutex> hold_stops_off();

// Loads the driver for the radios of the selector: 24, 5, or 245 for both. 0 also when it is loaded already
// or driver interfaces exist; -1 for another selector or a failed script.
Status ZAV_Start(int band);

// Initialises the loaded driver: the init script, WPS mode off where it is disabled, then VLANs and 802.1X.
// -1 when the driver is not loaded, is initialised already, when a step fails or, without a word, when the
// run has ended. A stop that begins meanwhile is waited for; a failed one does it no harm.
Status ZAV_Init(unsigned run = driver_run);

// Stops the driver; a failed step leaves all flags as they were. One stop at a time.
Status ZAV_Stop();

// Restarts the band of the index, with all its BSSes. 0 before init.
Status ZAV_Restart(int index);
Status ZAV_RestartAll();
