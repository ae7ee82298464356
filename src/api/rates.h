#pragma once

#include "backend/status.h"

#include <span>

// The rates that the driver can use, in Mbit/s, separated by commas ("1,2,5.5,11"), cut at a whole rate where
// the buffer ends. -1 when the driver does not answer or names no rates. The three lists are the same.
Status wlan_getBasicDataTransmitRates(int index, std::span<char> ret_rates);
Status wlan_getOperationalDataTransmitRates(int index, std::span<char> ret_rates);
Status wlan_getPossibleDataTransmitRates(int index, std::span<char> ret_rates);

// Accepted and ignored, always 0.
Status wlan_setBasicDataTransmitRates(int index, const char *rates);
Status wlan_setOperationalDataTransmitRates(int index, const char *rates);

// Turns the driver's answer to "BasicRate" into that list; -1 when it lacks "MaxDesireRate" with a '|' behind
// it.
Status format_rates(const char *answer, std::span<char> ret_rates);
