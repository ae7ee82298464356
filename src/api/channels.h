#pragma once

#include "backend/status.h"

#include <span>

// The channel of a radio, as backend/channels.h has it. Changes show at the next restart of the interfaces.
// Getters answer 0 or -1, setters 0, 2 (nothing changed) or -1.

// 0: the driver selects one.
Status wlan_getChannel(int index, unsigned *ret_channel);
Status wlan_setChannel(int index, unsigned channel);
// The channel in use; -1 before the driver is initialised.
Status wlan_getCurrentChannel(int index, unsigned *ret_channel);

// 0 or 1. Setting it does nothing and always answers 0.
Status wlan_getAutoChannelEnable(int index, unsigned *ret_enable);
Status wlan_setAutoChannelEnable(int index, unsigned enable);

// "1,2,3,"; always 0, with the empty text when the driver does not answer.
Status wlan_getPossibleChannels(int index, std::span<char> ret_channels);

// The side on which a 2.4 GHz channel, 1 to 13, is extended: 0 below, 1 above.
Status wlan_getExtensionChannel(int index, int channel, unsigned *ret_side);
Status wlan_setExtensionChannel(int index, int channel, unsigned side);

// 0 or 1; cannot be set at 2.4 GHz.
Status wlan_getIeee80211hEnable(int index, unsigned *ret_enable);
Status wlan_setIeee80211hEnable(int index, unsigned enable);
