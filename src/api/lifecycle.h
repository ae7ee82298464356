#pragma once

#include "backend/status.h"

// Once, before the first request: goes on where an earlier daemon was ended while the driver ran, if it has
// left a record. An init that it could not end has failed.
void wlan_resume();

// Loads the driver for the radios of the selector: 24, 5, or 245 for both. 0 or -1.
Status wlan_load(int flags);

// Starts the driver's initialisation and answers 3 until it has ended; then, at every call, its result, 0 or
// -1. -1 also where the thread could not be started.
Status wlan_init();

// Stops the driver; after success wlan_init starts anew.
Status wlan_reset();
