#pragma once

#include "backend/status.h"

#include <span>

// The channel of a radio. Changes reach the driver at the next restart of the interfaces. An index without a
// BSS answers -1 everywhere but where it is said.

// The configured channel; 0 means that the driver selects one.
Status ZAV_GetChannel(int index, unsigned *ret_channel);
// 0 written, 2 nothing changed, -1. Refuses 140 and 165 at 40 MHz: they have no partner there. At 2.4 GHz the
// extension side of channels 1 to 13 follows from the list of sides, without which every channel but 0 fails
// once it is written.
Status ZAV_SetChannel(int index, unsigned channel);

// The channel in use; -1 before the driver is initialised or when it does not answer.
Status ZAV_GetCurrentChannel(int index, unsigned *ret_channel);

// 1 when the driver selects the channel, else 0, also without a stored channel. Setting it does nothing and
// answers 0, whatever the index: channel 0 switches the selection on.
Status ZAV_GetAutoChannelEnable(int index, unsigned *ret_enable);
Status ZAV_SetAutoChannelEnable(int index, unsigned enable);

// On which side a 2.4 GHz channel (1 to 13) is extended to 40 MHz: 0 below, 1 above. Channels 1 to 4 only
// extend above, 10 to 13 only below. -1 for any other channel or side and at 5 GHz.
Status ZAV_GetExtensionChannel(int index, int channel, unsigned *ret_side);
Status ZAV_SetExtensionChannel(int index, int channel, unsigned side);

// 1 or 0, which is also the answer when nothing is stored; setting it, even to 0, answers -1 at 2.4 GHz.
Status ZAV_GetIeee80211hEnable(int index, unsigned *ret_enable);
Status ZAV_SetIeee80211hEnable(int index, unsigned enable);

// What the driver can use, "1,2,3,", cut behind a whole channel when longer than 149 characters. Always 0:
// the text is empty when the driver does not answer or the index has no BSS.
Status ZAV_GetPossibleChannels(int index, std::span<char> ret_channels);
