#pragma once

#include "backend/status.h"

// Restarts take seconds, so they are only asked for here and carried out by one thread; requests that come
// meanwhile are merged. Always 0.
//
// The mask of requests has 16 bits, eight a radio, and an index counts modulo 32: 0 and 17 to 32 restart
// nothing, 33 is 1 again.
Status wlan_restart(int index);
Status wlan_restart_all();

// Creates the restart thread. -1 when the system refuses, with an error line; the next request tries again.
Status wlan_restart_thread_start();
