#pragma once

#include "backend/status.h"

#include <span>

// Switching one BSS on and off, factory settings, and the custom SSID of a BSS. -1 for an index without a BSS
// and an absent setting.

// Whether the BSS is enabled by the settings.
Status ZAV_GetEnable(int index, unsigned *ret_enable);

// 0 done, 2 already stored and nothing done, -1 failure. While the driver is loaded the interfaces follow at
// once and the 802.1X daemon is restarted; a step that fails ends it, with the setting stored. The radio's
// first interface carries the radio: it stays up, with the transmitter off, when no BSS of the radio is
// enabled, and goes down when another BSS is the only one.
Status ZAV_SetEnable(int index, unsigned enable);

// The number of enabled BSSes of the radio of `index`, or -1.
int getBssEnabledOnBand(int index);

// 0 or -1; -1 before the driver is loaded.
Status restartRadiusDaemon();

// Puts the factory settings of the whole radio back, by the platform's script. 0 or -1. Nothing is restarted.
Status ZAV_SetRestoreDefaults(int index);

// Any text of one line. Setting answers 0 written, 2 already stored, -1 failure.
Status ZAV_GetCustomSSIDStr(int index, std::span<char> ret_ssid);
Status ZAV_SetCustomSSIDStr(int index, const char *ssid);
