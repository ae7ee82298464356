#include "api/radio_statistics.h"

#include "api/wrapper.h"

Status wlan_getChannelStatistics(int index, unsigned *ret_cst, unsigned *ret_activity, unsigned *ret_busy) {
    return report_failure(__func__, ZAV_GetChannelStatistics(index, ret_cst, ret_activity, ret_busy));
}

Status wlan_getChannelNoiseFloor(int index, int *ret_least, int *ret_most, int *ret_median,
                                 int *ret_average) {
    return report_failure(__func__,
                          ZAV_GetChannelNoiseFloor(index, ret_least, ret_most, ret_median, ret_average));
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
