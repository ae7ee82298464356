#pragma once

#include "backend/status.h"

// Restarts take seconds, so they are only asked for here and carried out by one thread; requests that come
// meanwhile are merged. Always 0.
Status wlan_restart(int index); // the radio of the index; indexes above 16 and 0 restart nothing
Status wlan_restart_all();

// Creates the restart thread. -1 when the system refuses, with an error line; the next request tries again.
Status wlan_restart_thread_start();
