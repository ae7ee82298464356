#pragma once

#include "backend/status.h"

// The model name cannot be changed: -1 for every input, with an error line.
Status wlan_setWpsModelName(int index, const char *name);

// Milliseconds, default 120000. Getting always answers 0.
Status wlan_getWpsConfigTimeout(int index, unsigned *ret_timeout);
Status wlan_setWpsConfigTimeout(int index, unsigned timeout);
