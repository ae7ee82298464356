#include "api/channels.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_channel_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getChannel, "[channel = %d ]\n", index, result);
}

int wlan_set_channel_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setChannel, "[channel=%d]\n", index, value, result);
}

int wlan_get_auto_channel_enable_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getAutoChannelEnable, "[enable = %d ]\n", index, result);
}

int wlan_set_auto_channel_enable_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setAutoChannelEnable, "[enable=%d]\n", index, value, result);
}

int wlan_get_possible_channels_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_possible_channels>(__func__, wlan_getPossibleChannels,
                                                           "[channels %s]\n", index, result);
}

int wlan_get_ieee80211h_enable_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getIeee80211hEnable, "[enable = %d ]\n", index, result);
}

int wlan_set_ieee80211h_enable_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setIeee80211hEnable, "[enable=%d]\n", index, value, result);
}

int wlan_get_current_channel_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getCurrentChannel, "[channel = %d ]\n", index, result);
}

int wlan_get_extension_channel_1_svc(int index, int subindex, wlan_config_result_data_t *result) {
    say(__func__, Line<int>("index %d\n"), index);
    unsigned side = 0;
    const Status status = wlan_getExtensionChannel(index, subindex, &side);
    return reply_number(__func__, "[out_int = %d ]\n", status, side, result);
}

int wlan_set_extension_channel_1_svc(int index, int subindex, int value, wlan_config_return_code_e *result) {
    return set_selected(__func__, wlan_setExtensionChannel, "[extCh=%d]\n", index, subindex, value, result);
}
