#include "api/stations.h"

#include "api/wrapper.h"
#include "backend/mac.h"
#include "backend/text.h"

#include <algorithm>
#include <bit>
#include <bitset>
#include <cstdio>
#include <iterator>
#include <memory>
#include <span>
#include <utility>

namespace {

unsigned class_of(const StationRecord &station) {
    if (station.mode36 == 2)
        return station.value30 == 1 || station.value32 <= 1 ? 4 : 3;
    return station.value30 == 1 ? 2 : 3;
}

// "00-50-f2;00-10-18"; as many as there is room for, whatever the driver counts.
void list_vendor_prefixes(const StationRecord &station, std::span<char> ret_list) {
    const auto &prefixes = station.vendor_prefixes;
    const std::size_t count = std::min<std::size_t>(station.vendor_prefix_count, prefixes.size());
    copy_text(ret_list, "");
    for (std::size_t i = 0, length = 0; i < count && length < ret_list.size(); ++i) {
        const auto &prefix = prefixes.at(i);
        const int added = std::snprintf(&ret_list[length], ret_list.size() - length, "%s%02x-%02x-%02x",
                                        i == 0 ? "" : ";", prefix[0], prefix[1], prefix[2]);
        length += static_cast<std::size_t>(added);
    }
}

// What a single station and one of the table have in common.
void fill_device(const StationRecord &station, wlan_device_t *ret_device) {
    copy_text(ret_device->mac_address, text_of(station.mac).data());
    list_vendor_prefixes(station, ret_device->group_list);
    copy_text(ret_device->text_field, std::bitset<16>(station.bits28).to_string());
    ret_device->counter1 = class_of(station);
    ret_device->counter2 = station.value16;
    ret_device->counter3 = station.value56;
    ret_device->counter4 = station.value60;
    ret_device->counter5 = station.value72;
    ret_device->counter6 = station.value40;
    ret_device->counter7 = station.value24;
    ret_device->short_value = station.value34;
    ret_device->counter8 = station.value44;
    ret_device->counter9 = station.value48;
    ret_device->counter10 = station.value52;
}

void fill_table_entry(const StationRecord &station, wlan_device_t *ret_device) {
    fill_device(station, ret_device);
    copy_text(ret_device->ip_address, "");
    ret_device->rssi = int{station.rssi};
    ret_device->byte_value = station.bss;
    ret_device->int_value1 = int{station.signed14};
    std::copy(station.name.begin(), station.name.end(), ret_device->name_field);
}

Status get_basic_stats(int index, wlan_basicStats_t *ret_stats) {
    const std::pair<const char *, unsigned *> stats[] = {
        {"wlan_totalBytesSent", &ret_stats->bytes_sent},
        {"wlan_totalByteReceived", &ret_stats->bytes_received},
        {"wlan_totalPacketsSent", &ret_stats->packets_sent},
        {"wlan_totalPacketsReceived", &ret_stats->packets_received},
    };
    for (const auto &[key, value] : stats)
        if (ZAV_GetBasicStats(index, key, value) == failure)
            return failure;
    return ZAV_GetAssocDevicesNum(index, &ret_stats->associations);
}

constexpr Line<int, int, int, int, int> basic_stats_line{
    "wlan basic stats: BytesSent:%d ,ByteReceived:%d "
    ",PacketsSent:%d ,PacketsReceived:%d ,Associations:%d.\n"};

constexpr Line<int, int, int, int, int, int, int, int, int, int, int> stats_line{
    "wlan stats:\nUnicast Tx packets:%d\nUnicast Rx packets:%d\nTx error count:%d\nRx error count:%d\n"
    "Tx drop count:%d\nRx drop count:%d\nMulticast Tx packets:%d\nMulticast Rx packets:%d\n"
    "Broadcast Tx packets:%d\nBroadcast Rx packets:%d\nUnknown protocol packets:%d\n"};

} // namespace

Status wlan_getAssocDevicesNum(int index, unsigned *ret_count) {
    return get(__func__, ZAV_GetAssocDevicesNum, "%d associated devices.\n", index, ret_count);
}

Status wlan_getAssocDevicesTableNumOfEntries(int index, unsigned *ret_count) {
    log_debug("[ZAV-API] %s entry.\n", __func__);
    return report_failure(__func__, ZAV_GetAssocDevicesTableNumOfEntries(index, ret_count));
}

Status get_device(const char *who, int index, int station, wlan_device_t *ret_device) {
    log_entry(who, index, Entry::plain);
    StationRecord record{};
    if (report_failure(who, ZAV_GetAssocDevice(index, station, &record)) == failure)
        return failure;
    fill_device(record, ret_device);
    copy_text(ret_device->ip_address, " ");
    const auto &rssi = record.antenna_rssi;
    ZAV_EquivalentRssiCalc(rssi[0], rssi[1], rssi[2], &ret_device->rssi);
    return success;
}

Status wlan_getAssocDevice(int index, int station, wlan_device_t *ret_device) {
    return get_device(__func__, index, station, ret_device);
}

Status wlan_getAssocDevicesTable(int index, wlan_assoc_devices_table *ret_table) {
    const auto table = std::make_unique<StationTable>();
    const Status result = report_failure(__func__, ZAV_GetAssocDevicesTable(index, table.get()));
    if (result == failure)
        return failure;
    const std::size_t count = std::min<std::size_t>(table->count, std::size(ret_table->devices));
    ret_table->count = static_cast<std::uint32_t>(count);
    for (std::size_t i = 0; i < count; ++i)
        fill_table_entry(table->stations.at(i), &ret_table->devices[i]);
    return result;
}

Status wlan_getBasicStats(int index, wlan_basicStats_t *ret_stats) {
    log_entry(__func__, index, Entry::plain);
    const Status result = get_basic_stats(index, ret_stats);
    return report_line(__func__, result, basic_stats_line, api::shown(ret_stats->bytes_sent),
                       api::shown(ret_stats->bytes_received), api::shown(ret_stats->packets_sent),
                       api::shown(ret_stats->packets_received), api::shown(ret_stats->associations));
}

Status wlan_getStats(int index, wlan_stats_t *ret_stats) {
    log_entry(__func__, index);
    PacketCounters counters = std::bit_cast<PacketCounters>(*ret_stats);
    const Status result = getter_code(ZAV_GetStats(index, &counters));
    *ret_stats = std::bit_cast<wlan_stats_t>(counters);
    const auto &[tx_errors, rx_errors, tx, rx, tx_drops, rx_drops, tx_multicast, rx_multicast, tx_broadcast,
                 rx_broadcast, unknown] = counters;
    return report_line(__func__, result, stats_line, tx, rx, tx_errors, rx_errors, tx_drops, rx_drops,
                       tx_multicast, rx_multicast, tx_broadcast, rx_broadcast, 0);
}
