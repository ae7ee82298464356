#pragma once

#include "backend/status.h"

#include <span>

// Settings of a radio. Setters answer 0 written, 2 already stored, -1 failure. The getters of the first
// always answer 0, with the default for an index without a BSS or an absent key.

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

// Seconds, default 0.
Status wlan_getWPAGroupReAuthInterval(int index, unsigned *ret_interval);
Status wlan_setWPAGroupReAuthInterval(int index, unsigned interval);

// The getters of the following answer -1 instead; radio/radio.h says what each is.

Status wlan_getCountryCode(int index, std::span<char> ret_code);
Status wlan_setCountryCode(int index, const char *code);

Status wlan_getBGProtection(int index, unsigned *ret_enable);
Status wlan_setBGProtection(int index, unsigned enable);

Status wlan_getBeaconInterval(int index, unsigned *ret_interval);
Status wlan_setBeaconInterval(int index, unsigned interval);
Status wlan_getDtimPeriod(int index, unsigned *ret_period);
Status wlan_setDtimPeriod(int index, unsigned period);
Status wlan_getAcctUpdateInterval(int index, unsigned *ret_interval);
Status wlan_setAcctUpdateInterval(int index, unsigned interval);

Status wlan_getRTSThreshold(int index, unsigned *ret_threshold);
Status wlan_setRTSThreshold(int index, unsigned threshold);
Status wlan_getFragThreshold(int index, unsigned *ret_threshold);
Status wlan_setFragThreshold(int index, unsigned threshold);

Status wlan_getTxPreamble(int index, unsigned *ret_preamble);
Status wlan_setTxPreamble(int index, unsigned preamble);
Status wlan_getShortSlot(int index, unsigned *ret_enable);
Status wlan_setShortSlot(int index, unsigned enable);
Status wlan_getTxBurst(int index, unsigned *ret_enable);
Status wlan_setTxBurst(int index, unsigned enable);

Status wlan_getShortRetryLimit(int index, unsigned *ret_limit);
Status wlan_setShortRetryLimit(int index, unsigned limit);
Status wlan_getLongRetryLimit(int index, unsigned *ret_limit);
Status wlan_setLongRetryLimit(int index, unsigned limit);

Status wlan_getWPAPreAuth(int index, unsigned *ret_enable);
Status wlan_setWPAPreAuth(int index, unsigned enable);
Status wlan_getBssIsolate(int index, unsigned *ret_enable);
Status wlan_setBssIsolate(int index, unsigned enable);
Status wlan_getIGMPSnooping(int index, unsigned *ret_enable);
Status wlan_setIGMPSnooping(int index, unsigned enable);

// Always of the 5 GHz radio. 0 or -1.
Status wlan_SetFCC1430Enable(unsigned enable);

// Accepted and ignored, always 0.
Status wlan_getRadioStats(int index);
