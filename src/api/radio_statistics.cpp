#include "api/radio_statistics.h"

#include "api/wrapper.h"

Status wlan_getChannelStatistics(int index, unsigned *ret_1, unsigned *ret_2, unsigned *ret_3) {
    return report_failure(__func__, ZAV_GetChannelStatistics(index, ret_1, ret_2, ret_3));
}

Status wlan_getChannelNoiseFloor(int index, int *ret_1, int *ret_2, int *ret_3, int *ret_4) {
    return report_failure(__func__, ZAV_GetChannelNoiseFloor(index, ret_1, ret_2, ret_3, ret_4));
}

Status wlan_getRadioTxPackets(int index, std::uint64_t *ret_count) {
    return report_failure(__func__, ZAV_GetRadioTxPackets(index, ret_count));
}

Status wlan_getRadioRxPackets(int index, std::uint64_t *ret_count) {
    return report_failure(__func__, ZAV_GetRadioRxPackets(index, ret_count));
}

Status wlan_getRetransmissionMetric(int index, unsigned *ret_metric) {
    return report_failure(__func__, ZAV_GetRetransmissionMetric(index, ret_metric));
}

Status wlan_getRSSITable(int index, RssiTable *ret_table) {
    return report_failure(__func__, ZAV_GetRSSITable(index, ret_table));
}

Status wlan_setRadStatEnable(int index, int enable, int rit, int mit) {
    return report_failure(__func__, ZAV_SetRadStatEnable(index, enable, rit, mit));
}

Status wlan_setNoiseFloorType(int type) { return report_failure(__func__, ZAV_SetNoiseFloorType(type)); }
