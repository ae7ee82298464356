#pragma once

#include "backend/status.h"

#include <span>

// Settings of a radio that are a key of the settings file. Getters always answer 0, with the default for an
// index without a BSS or an absent key; setters answer 0 written, 2 already stored, -1 failure.

// Mbit/s as decimal text, default "11".
Status wlan_getMaxBitRate(int index, std::span<char> ret_rate);
// Any text; it is stored as it is.
Status wlan_setMaxBitRate(int index, const char *rate);

// 0 or 1, default 1. Setting it also tells a running driver.
Status wlan_getRadioEnabled(int index, unsigned *ret_enable);
Status wlan_setRadioEnabled(int index, unsigned enable);

// Percent, default 100. Setting it also tells a running driver; any number is accepted.
Status wlan_getTransmitPower(int index, unsigned *ret_power);
Status wlan_setTransmitPower(int index, unsigned power);
// The percentages that the hardware knows, separated by commas.
Status wlan_getTransmitPowerSupported(int index, std::span<char> ret_list);

// 0 or 1, default 1.
Status wlan_getAutoRateFallbackEnable(int index, unsigned *ret_enable);
Status wlan_setAutoRateFallbackEnable(int index, unsigned enable);

// 0 or 1, default 0.
Status wlan_getWmmSupported(int index, unsigned *ret_supported);
Status wlan_getWmmUaspdSupported(int index, unsigned *ret_supported);
Status wlan_getWmmUaspdEnable(int index, unsigned *ret_enable);
Status wlan_getWMMAPSD(int index, unsigned *ret_enable);

// Seconds, default 0.
Status wlan_getWPAGroupReAuthInterval(int index, unsigned *ret_interval);
Status wlan_setWPAGroupReAuthInterval(int index, unsigned interval);

// Accepted and ignored, always 0.
Status wlan_getRadioStats(int index);
