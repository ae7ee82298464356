#include "api/stations.h"

#include "api/radio.h"
#include "rpc/procedures.h"
#include "rpc/shapes.h"

#include <algorithm>
#include <bit>
#include <memory>

namespace {

// The entry line that names nothing, with a blank before its end.
void say_nothing(const char *who) { say(who, Line<>("\n")); }

} // namespace

int wlan_get_basic_stats_1_svc(int index, wlan_config_result_data_t *result) {
    say(__func__, Line<int>("[index %d]\n"), index);
    wlan_basicStats_t stats{};
    result->return_code = code_of(wlan_getBasicStats(index, &stats));
    fill_numbers(result, std::bit_cast<std::array<unsigned, 5>>(stats));
    say_nothing(__func__);
    return 1;
}

// Of type 0 are the counters of a BSS, those of a radio (1) hold nothing. No other type is known.
int wlan_get_stats_1_svc(int index, unsigned stats_type, wlan_config_result_data_t *result) {
    say(__func__, Line<int, int>("[index %d][statsType %d]\n"), index, shown(stats_type));
    std::array<unsigned, 16> area{};
    Status status = failure;
    if (stats_type == 0) {
        wlan_stats_t stats{};
        status = wlan_getStats(index, &stats);
        const auto words = std::bit_cast<std::array<unsigned, 11>>(stats);
        std::copy(words.begin(), words.end(), area.begin());
    } else if (stats_type == 1) {
        status = wlan_getRadioStats(index);
    }
    result->return_code = code_of(status);
    fill_numbers(result, area);
    say_nothing(__func__);
    return 1;
}

int wlan_get_assoc_devices_num_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getAssocDevicesNum, "[assoc_devices_num = %d ]\n", index, result);
}

int wlan_get_assoc_device_1_svc(int index, int dev_index, wlan_config_result_data_t *result) {
    say(__func__, Line<int, int>("[index %d] [devIndex %d]\n"), index, dev_index);
    wlan_device_t device{};
    const Status status = wlan_getAssocDevice(index, dev_index, &device);
    say(__func__, Line<const char *, const char *>("device MAC=%s IP=%s \n"), device.mac_address,
        device.ip_address);
    return reply_record(__func__, status, device, result);
}

int wlan_get_assoc_devices_table_1_svc(int index, wlan_config_result_data_t *result) {
    say(__func__, Line<int>("[index %d]\n"), index);
    const auto table = std::make_unique<wlan_assoc_devices_table>();
    const Status status = wlan_getAssocDevicesTable(index, table.get());
    return reply_record(__func__, status, *table, result, "result->return_data.return_data_len = %d \n");
}

int wlan_get_assoc_devices_table_num_of_entries_1_svc(int index, wlan_config_result_data_t *result) {
    say(__func__, Line<int>("[index %d]\n"), index);
    unsigned entries = 0;
    const Status status = wlan_getAssocDevicesTableNumOfEntries(index, &entries);
    return reply_number(__func__, "[entries = %d ]\n", status, entries, result);
}
