#include "api/air_time.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

#include <cstdlib>

namespace {

// Entry lines of these procedures show index and weight unsigned.
unsigned as_unsigned(int value) { return static_cast<unsigned>(value); }

} // namespace

int wlan_get_air_time_management_stats_1_svc(int index, int arg1, int arg2,
                                             wlan_config_result_data_t *result) {
    say(__func__, Line<int>("index %d\n"), index);
    FourWords stats{};
    const Status status = wlan_getAirTimeStats(index, arg1, arg2, &stats);
    static_assert(sizeof stats == sizeof(AirTimeStats));
    return reply_record(__func__, status, stats, result);
}

int wlan_get_frames_in_queue_data_1_svc(int index, int arg1, int arg2, wlan_config_result_data_t *result) {
    say(__func__, Line<int>("index %d\n"), index);
    FourWords frames{};
    static_assert(sizeof frames == sizeof(FramesInQueueData));
    log_debug("[ZAV-API] %s sizeof(framesData) = %u\n", __func__, unsigned{sizeof frames});
    const Status status = wlan_getFramesInQueueData(index, arg1, arg2, &frames);
    return reply_record(__func__, status, frames, result);
}

int wlan_get_rate_adapt_data_1_svc(int index, int sta_num, wlan_config_result_data_t *result) {
    say(__func__, Line<unsigned, unsigned>("index %u, staNum %u\n"), as_unsigned(index),
        as_unsigned(sta_num));
    RateData data{};
    log_debug("[ZAV-API] %s sizeof(rateData) = %u\n", __func__, unsigned{sizeof data});
    const Status status = wlan_getGetStationRateAdaptationData(index, sta_num, &data);
    return reply_record(__func__, status, data, result);
}

int wlan_set_air_time_bssid_weight_1_svc(int index, int weight, wlan_config_return_code_e *result) {
    say(__func__, Line<int, unsigned>("index %d, weight: %u\n"), index, as_unsigned(weight));
    *result = code_of(wlan_setAirTimeBssWeight(index, weight));
    return 1;
}

int wlan_get_air_time_bssid_weight_1_svc(int index, wlan_config_result_data_t *result) {
    say(__func__, Line<unsigned>("index %u\n"), as_unsigned(index));
    unsigned weight = 0;
    const Status status = wlan_getBssWeight(index, &weight);
    return reply_number(__func__, "[weight = %d ]\n", status, weight, result);
}

int wlan_set_air_time_sta_weight_1_svc(int index, const char *mac, int weight,
                                       wlan_config_return_code_e *result) {
    say(__func__, Line<int, const char *, unsigned>("index %d, mac: %s, weight: %u\n"), index, mac,
        as_unsigned(weight));
    *result = code_of(wlan_setAirTimeStaWeight(index, mac, weight));
    return 1;
}

int wlan_del_air_time_sta_weight_1_svc(int index, const char *mac, wlan_config_return_code_e *result) {
    say(__func__, Line<int, const char *>("index %d, mac: %s\n"), index, mac);
    *result = code_of(wlan_delAirTimeStaByMac(index, mac));
    return 1;
}

int wlan_get_air_time_sta_weight_1_svc(int index, const char *mac, wlan_config_result_data_t *result) {
    say(__func__, Line<unsigned, const char *>("index %u, mac %s\n"), as_unsigned(index), mac);
    unsigned weight = 0;
    const Status status = wlan_getStaWeight(index, mac, &weight);
    return reply_number(__func__, "[weight = %d ]\n", status, weight, result);
}

// A failure is not answered at all: the client sees its time run out.
int wlan_get_bss_air_time_management_info_1_svc(int index, wlan_config_result_data_t *result) {
    say(__func__, Line<unsigned>("index %u\n"), as_unsigned(index));
    BSSAirTimeManagementInfo info{};
    const Status status = wlan_getBSSAirTimeManagementInfo(index, &info);
    if (status == failure)
        return 0;
    return reply_record(__func__, status, info, result);
}
