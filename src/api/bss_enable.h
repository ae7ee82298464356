#pragma once

#include "backend/status.h"

#include <span>

// Switching a BSS on and off, factory settings, custom SSID (see radio/bss_enable.h). Getters and restoring
// answer 0 or -1; setters 0 done, 2 already stored, -1 failure.

// Set to 0 or 1, read as it is stored. While the driver runs, the interfaces follow at once.
Status wlan_getEnable(int index, unsigned *ret_enable);
Status wlan_setEnable(int index, unsigned enable);

// The factory settings of the whole radio.
Status wlan_setRestoreDefaults(int index);

// Any text of one line.
Status wlan_getCustomSSIDStr(int index, std::span<char> ret_ssid);
Status wlan_setCustomSSIDStr(int index, const char *ssid);
