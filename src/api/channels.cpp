#include "api/channels.h"

#include "api/wrapper.h"
#include "backend/channels.h"

Status wlan_getChannel(int index, unsigned *ret_channel) {
    return get(__func__, ZAV_GetChannel, "channel is %d\n", index, ret_channel);
}

Status wlan_setChannel(int index, unsigned channel) {
    return set(__func__, ZAV_SetChannel, "channel=%u\n", "channel set to:%d\n", index, channel);
}

Status wlan_getAutoChannelEnable(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetAutoChannelEnable, "auto channel is %d\n", index, ret_enable);
}

Status wlan_setAutoChannelEnable(int index, unsigned enable) {
    return set(__func__, ZAV_SetAutoChannelEnable, "enable=%u\n", "auto channel set to:%d\n", index, enable);
}

Status wlan_getPossibleChannels(int index, std::span<char> ret_channels) {
    return get(__func__, ZAV_GetPossibleChannels, "channels is %s\n", index, ret_channels);
}

Status wlan_getIeee80211hEnable(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetIeee80211hEnable, "802.11h is %d\n", index, ret_enable);
}

Status wlan_setIeee80211hEnable(int index, unsigned enable) {
    return set(__func__, ZAV_SetIeee80211hEnable, "enable=%u\n", "802.11h set to:%d\n", index, enable);
}

Status wlan_getCurrentChannel(int index, unsigned *ret_channel) {
    return get(__func__, ZAV_GetCurrentChannel, "current channel is %d\n", index, ret_channel);
}

Status wlan_getExtensionChannel(int index, int channel, unsigned *ret_side) {
    return get_selected(__func__, ZAV_GetExtensionChannel, "channel=%d\n", "extension channel is %d\n", index,
                        channel, ret_side);
}

Status wlan_setExtensionChannel(int index, int channel, unsigned side) {
    return set_selected(__func__, ZAV_SetExtensionChannel, "channel=%d extCh=%u\n",
                        "extension channel set to:%d\n", index, channel, side);
}
