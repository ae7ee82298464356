#pragma once

#include "backend/status.h"

#include <span>

// Settings that all BSSes of a radio share. Getters answer 0, or -1 for an index without a BSS or an absent
// key; setters 0 written, 2 already stored, -1 failure, and create an absent key. Numbers are stored as they
// come and flags are 0 or 1. The driver sees them at the next restart of the interfaces.

// Any text; it is stored as it is. The getter cuts it at the buffer.
Status ZAV_GetCountryCode(int index, std::span<char> ret_code);
Status ZAV_SetCountryCode(int index, const char *code);

// On is stored as 0, off as 2.
Status ZAV_GetBGProtection(int index, unsigned *ret_enable);
Status ZAV_SetBGProtection(int index, unsigned enable);

// Beacons, in TU and in beacons; accounting updates, in seconds.
Status ZAV_GetBeaconInterval(int index, unsigned *ret_interval);
Status ZAV_SetBeaconInterval(int index, unsigned interval);
Status ZAV_GetDtimPeriod(int index, unsigned *ret_period);
Status ZAV_SetDtimPeriod(int index, unsigned period);
Status ZAV_GetAcctUpdateInterval(int index, unsigned *ret_interval);
Status ZAV_SetAcctUpdateInterval(int index, unsigned interval);

// Bytes.
Status ZAV_GetRTSThreshold(int index, unsigned *ret_threshold);
Status ZAV_SetRTSThreshold(int index, unsigned threshold);
Status ZAV_GetFragThreshold(int index, unsigned *ret_threshold);
Status ZAV_SetFragThreshold(int index, unsigned threshold);

Status ZAV_GetTxPreamble(int index, unsigned *ret_preamble);
Status ZAV_SetTxPreamble(int index, unsigned preamble);
Status ZAV_GetShortSlot(int index, unsigned *ret_enable);
Status ZAV_SetShortSlot(int index, unsigned enable);
Status ZAV_GetTxBurst(int index, unsigned *ret_enable);
Status ZAV_SetTxBurst(int index, unsigned enable);

Status ZAV_GetShortRetryLimit(int index, unsigned *ret_limit);
Status ZAV_SetShortRetryLimit(int index, unsigned limit);
Status ZAV_GetLongRetryLimit(int index, unsigned *ret_limit);
Status ZAV_SetLongRetryLimit(int index, unsigned limit);

Status ZAV_GetWPAPreAuth(int index, unsigned *ret_enable);
Status ZAV_SetWPAPreAuth(int index, unsigned enable);
// Isolation of the BSSes from each other.
Status ZAV_GetBssIsolate(int index, unsigned *ret_enable);
Status ZAV_SetBssIsolate(int index, unsigned enable);
Status ZAV_GetIGMPSnooping(int index, unsigned *ret_enable);
Status ZAV_SetIGMPSnooping(int index, unsigned enable);

// Always of the 5 GHz radio.
Status ZAV_SetFCC_14_30_Enable(unsigned enable);
