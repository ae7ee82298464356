#include "api/radio_statistics.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_channel_statistics_1_svc(int index, wlan_config_result_data_t *result) {
    unsigned cst = 0, activity = 0, busy = 0;
    result->return_code = code_of(wlan_getChannelStatistics(index, &cst, &activity, &busy));
    fill_numbers(result, std::array{cst, activity, busy});
    say(__func__, Line<int, int, int>("[Cst = %d ] [AP Activity = %d ] [BusyTime = %d] \n"), shown(cst),
        shown(activity), shown(busy));
    return 1;
}

int wlan_get_channel_noise_floor_1_svc(int index, wlan_config_result_data_t *result) {
    int least = 0, most = 0, median = 0, average = 0;
    result->return_code = code_of(wlan_getChannelNoiseFloor(index, &least, &most, &median, &average));
    fill_numbers(result, std::array{static_cast<unsigned>(least), static_cast<unsigned>(most),
                                    static_cast<unsigned>(median), static_cast<unsigned>(average)});
    say(__func__,
        Line<int, int, int, int>("[Min Noise = %d ] [Max Noise = %d ] [Med Noise = %d] [Avg Noise = %d] \n"),
        least, most, median, average);
    return 1;
}

int wlan_get_radio_tx_packets_1_svc(int index, wlan_config_result_data_t *result) {
    return get_count(__func__, wlan_getRadioTxPackets, "[Tx Count = %lld ] \n", index, result);
}

int wlan_get_radio_rx_packets_1_svc(int index, wlan_config_result_data_t *result) {
    return get_count(__func__, wlan_getRadioRxPackets, "[Rx Count = %lld ] \n", index, result);
}

int wlan_get_retransmission_metric_1_svc(int index, wlan_config_result_data_t *result) {
    unsigned metric = 0;
    const Status status = wlan_getRetransmissionMetric(index, &metric);
    return reply_number(__func__, "[Retries Metric = %d ] \n", status, metric, result);
}

int wlan_set_rad_stat_enable_1_svc(int index, int enable, int rit, int mit,
                                   wlan_config_return_code_e *result) {
    say(__func__, Line<int, int, int, int>("[Index=%d], [En=%d], [Rit=%d], [Mit=%d]\n"), index, enable, rit,
        mit);
    *result = code_of(wlan_setRadStatEnable(index, enable, rit, mit));
    return 1;
}

int wlan_get_rssi_table_1_svc(int index, wlan_config_result_data_t *result) {
    RssiTable table{};
    result->return_code = code_of(wlan_getRSSITable(index, &table));
    fill_wide_numbers(result, table);
    for (std::size_t i = 0; i < table.size(); ++i)
        say(__func__, Line<int, long long>("[i = %d] [RSSI = %lld ]  \n"), static_cast<int>(i), table.at(i));
    return 1;
}

int wlan_set_noise_floor_type_1_svc(int type, wlan_config_return_code_e *result) {
    say(__func__, Line<int>("[Type=%d]\n"), type);
    *result = code_of(wlan_setNoiseFloorType(type));
    return 1;
}
