#pragma once

#include "backend/status.h"

#include <span>

// The number of BSSes of both radios.
Status wlan_getNumberOfEntries(unsigned *ret_count);
// The driver's interface name of the index, such as "zvi00".
Status wlan_getName(int index, std::span<char> ret_name);

// BSSes cannot be added or removed here: accepted and ignored, always 0.
Status wlan_addEntry();
Status wlan_delEntry(int index);
