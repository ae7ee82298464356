#include "backend/stations.h"

#include "backend/driver_channel.h"
#include "backend/interfaces.h"
#include "backend/log.h"
#include "backend/mac.h"
#include "backend/result_file.h"
#include "backend/shell.h"
#include "backend/text.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <span>
#include <string_view>

namespace {

// Reads the table of the index's radio, and finds the index's BSS.
Status read_table(const char *who, int index, Bss *ret_bss, StationTable *ret_table) {
    if (check_driver(who, DriverState::initialised) != success)
        return failure;
    if (find_bss(index, ret_bss) != success ||
        ask_private(who, ret_bss->name, {PrivateRequest::stations, "get_mac_table"},
                    std::as_writable_bytes(std::span(ret_table, 1))) != success)
        return failure;
    if (ret_table->count > ret_table->stations.size()) {
        log_error("[ZAV-API] Error %s RT_802_11_MAC_TABLE size check error!!!\n", who);
        return failure;
    }
    return success;
}

// The next station of the BSS from `*position` on, which moves behind it; nullptr when there is none.
const StationRecord *next_station(const char *who, const StationTable &table, unsigned bss,
                                  unsigned *position) {
    while (*position < table.count) {
        const StationRecord &station = table.stations.at((*position)++);
        if (station.bss + 1U != bss)
            continue;
        log_debug("[ZAV-API] %s MAC:: %s, MCS: %d, BW: %s.\n", who, text_of(station.mac).data(),
                  station.rate & 0x7F, (station.rate & 0x80) != 0 ? "40M" : "20M");
        return &station;
    }
    return nullptr;
}

// What a client calls a counter ("ByteReceived" is no slip of the pen), what the driver's text calls it, and
// the file that takes it.
struct BasicStat {
    std::string_view key;
    const char *label, *file;
};
constexpr BasicStat basic_stats[] = {
    {"wlan_totalBytesSent", "Byte Sent", "ByteSent"},
    {"wlan_totalByteReceived", "Bytes Received", "BytesReceived"},
    {"wlan_totalPacketsSent", "Packets Sent", "PacketsSent"},
    {"wlan_totalPacketsReceived", "Packets Received", "PacketsReceived"},
};

// The words of the answer to "pkt_counters" in their order, and the place of each among the counters.
struct CounterWord {
    std::string_view name; // "": anything
    std::size_t place;
};
constexpr CounterWord counter_words[] = {
    {"Unicast_Tx_packets=", 2},
    {"Unicast_Rx_packets=", 3},
    {"", 0},
    {"", 0},
    {"Tx_error_count=", 0},
    {"Rx_error_count=", 1},
    {"Tx_drop_count=", 4},
    {"Rx_drop_count=", 5},
    {"Multicast_Tx_packets=", 6},
    {"Multicast_Rx_packets=", 7},
    {"Broadcast_Tx_packets=", 8},
    {"Broadcast_Rx_packets=", 9},
    {"Unknown_protocol_packets=", 10},
    {"", 0},
    {"", 0},
};

} // namespace

Status ZAV_GetAssocDevicesNum(int index, unsigned *ret_count) {
    const auto table = std::make_unique<StationTable>();
    Bss bss;
    unsigned position = 0, count = 0;
    if (read_table(__func__, index, &bss, table.get()) != success)
        return failure;
    while (next_station(__func__, *table, bss.number, &position) != nullptr)
        ++count;
    log_debug("[ZAV-API] %s end (table.Num=%d,devNum=%d).\n", __func__, static_cast<int>(table->count),
              static_cast<int>(count));
    *ret_count = count;
    return success;
}

Status ZAV_GetAssocDevice(int index, int device_number, StationRecord *ret_station) {
    const auto table = std::make_unique<StationTable>();
    Bss bss;
    unsigned position = 0;
    if (read_table(__func__, index, &bss, table.get()) != success)
        return failure;
    const StationRecord *station = nullptr;
    for (long long passed = -1; passed < device_number; ++passed) {
        station = next_station(__func__, *table, bss.number, &position);
        if (station == nullptr)
            break;
    }
    if (station == nullptr) {
        log_error("[ZAV-API] Error %s invalid devNum or no such device (%d)!!!\n", __func__, device_number);
        return failure;
    }
    *ret_station = *station;
    return success;
}

Status ZAV_GetAssocDevicesTable(int index, StationTable *ret_table) {
    Bss bss;
    return read_table(__func__, index, &bss, ret_table);
}

Status ZAV_GetAssocDevicesTableNumOfEntries(int index, unsigned *ret_count) {
    const auto table = std::make_unique<StationTable>();
    Bss bss;
    if (read_table(__func__, index, &bss, table.get()) != success)
        return failure;
    *ret_count = table->count;
    return success;
}

void ZAV_EquivalentRssiCalc(int rssi1, int rssi2, int rssi3, int *ret_rssi) {
    std::array<long long, 3> sorted{rssi1, rssi2, rssi3};
    std::sort(sorted.begin(), sorted.end());
    const auto [smallest, second, largest] = sorted;
    const long long below = second - largest;
    const int gain = below >= -1 ? 3 : below >= -4 ? 2 : below >= -8 ? 1 : 0;
    *ret_rssi = static_cast<int>(largest + gain);
}

Status ZAV_GetBasicStats(int index, const char *key, unsigned *ret_value) {
    Bss bss;
    if (find_bss(__func__, index, &bss) != success)
        return failure;
    const auto *stat = std::find_if(std::begin(basic_stats), std::end(basic_stats),
                                    [key](const BasicStat &each) { return each.key == key; });
    if (stat == std::end(basic_stats)) {
        log_error("[ZAV-API] Error %s unknown stat key (%s).\n", __func__, key);
        return failure;
    }
    std::array<char, 256> command;
    std::snprintf(command.data(), command.size(),
                  "iwpriv %s show stat | sed -n '/IF-ra%d -/,/ra%d end /p'| awk -F ' = ' -v KEY=\"%s\" "
                  "'($1 == KEY) {print($2);}' > /tmp/%s",
                  bss.name.data(), static_cast<int>(bss.number) - 1, static_cast<int>(bss.number) - 1,
                  stat->label, stat->file);
    log_debug("[ZAV-API] %s command=%s.\n", __func__, command.data());
    std::array<char, 32> path;
    std::snprintf(path.data(), path.size(), "/tmp/%s", stat->file);
    if (claim_result_file(__func__, path.data()) != success)
        return failure;
    constexpr int no_program = 127;
    if (const int status = run_unchecked(__func__, command.data(), tool_deadline);
        status == -1 || status == no_program)
        return failure;
    if (get_int_value(path.data(), ret_value) != success)
        return failure;
    log_debug("[ZAV-API] %s %s=%d.\n", __func__, key, static_cast<int>(*ret_value));
    return success;
}

Status parse_packet_counters(const char *who, const char *answer, PacketCounters *ret_counters) {
    std::array<std::string_view, std::size(counter_words)> words;
    std::string_view rest = answer;
    for (auto &word : words)
        word = take_word(&rest);
    if (words.back().empty()) {
        const auto found = std::find(words.begin(), words.end(), "") - words.begin();
        log_debug("[ZAV-API] %s pkt_counters, not enough params returned %i.\n", who,
                  static_cast<int>(found));
        return failure;
    }
    for (std::size_t i = 0; i < words.size(); ++i) {
        const auto &[name, place] = counter_words[i];
        const std::string_view word = words.at(i);
        if (name.empty())
            continue;
        // What follows the word in the answer is a blank, so a number ends with it.
        const bool has_value = word.starts_with(name) && word.size() > name.size();
        if (!has_value || !scan_number(word.data() + name.size(), &ret_counters->at(place), nullptr, 0))
            return failure;
    }
    return success;
}

Status ZAV_GetStats(int index, PacketCounters *ret_counters) {
    std::array<char, 1024> answer;
    if (ZAV_Show(index, "pkt_counters", answer) != success)
        return failure;
    return parse_packet_counters(__func__, answer.data(), ret_counters);
}
