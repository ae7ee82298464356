#pragma once

#include "backend/driver_state.h"

#include <mutex>
#include <string>
#include <string_view>

// Loading, initialising, restarting and stopping the driver, all by the platform's host script. Safe from the
// worker threads; each call lasts as long as the script.

// The driver from one successful stop to the next, as a number. An init belongs to the run that it was asked
// for, and one that a stop has overtaken changes nothing in the next.
unsigned driver_run();

// Waits for the end of a running stop. While the lock is held, the run stays and no stop begins.
std::unique_lock<std::mutex> hold_stops_off();

// For a daemon that starts while the driver runs: goes on with what the one before it knew. Nothing is known
// without a record, nor, after an error line, by one that is odd or whose interfaces are not there.
InitOutcome resume_driver();

// Loads the driver for the radios of the selector: 24, 5, or 245 for both. 0 also when it is loaded already
// or driver interfaces exist; -1 for another selector or a failed script.
Status ZAV_Start(int radios);

// Initialises the loaded driver: the init script, WPS mode off where it is disabled, then VLANs and 802.1X.
// -1 when the driver is not loaded, is initialised already, when a step fails or, without a word, when the
// run has ended. A stop that begins meanwhile is waited for; a failed one does it no harm.
Status ZAV_Init(unsigned run = driver_run());

// Stops the driver; a failed step leaves all flags as they were. One stop at a time.
Status ZAV_Stop();

// Restarts the radio of the index, with all its BSSes. 0 before init.
Status ZAV_Restart(int index);
Status ZAV_RestartAll();

// A command of the host script.
std::string host_command(std::string_view verb, std::string_view argument);
