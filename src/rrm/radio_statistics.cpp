#include "rrm/radio_statistics.h"

#include "backend/interfaces.h"
#include "backend/log.h"
#include "backend/packed.h"
#include "rrm/driver_data.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <span>

namespace {

// The driver's answer to "RadioStat.-o".
struct RadioStatistics {
    std::array<Packed<std::uint32_t>, 3> channel;
    std::array<Packed<std::int32_t>, 3> noise;
    Packed<std::uint64_t> packets_sent, packets_received;
    Packed<std::uint32_t> retransmission_metric;
    std::array<Packed<std::int64_t>, 37> rssi;
    Packed<std::int32_t> noise4;
};
static_assert(sizeof(RadioStatistics) == 344 && offsetof(RadioStatistics, noise) == 12 &&
              offsetof(RadioStatistics, packets_sent) == 24 &&
              offsetof(RadioStatistics, packets_received) == 32 &&
              offsetof(RadioStatistics, retransmission_metric) == 40 &&
              offsetof(RadioStatistics, rssi) == 44 && offsetof(RadioStatistics, noise4) == 340);

// `has_room`: all out-arguments are there; else `what` is said to be missing.
Status read_statistics(const char *who, int index, bool has_room, const char *what,
                       RadioStatistics *ret_statistics) {
    log_debug("[ZAV-API] %s entry (index=%d).\n", who, index);
    if (!has_room) {
        log_debug("[ZAV-API] %s %s is not initialized\n", who, what);
        return failure;
    }
    constexpr std::size_t announced_length = 500;
    return ask_block(who, GET_IFNAME_FROM_INDEX, index,
                     {.request = PrivateRequest::statistics,
                      .text = "RadioStat.-o",
                      .announced_length = announced_length,
                      .shown = false},
                     std::as_writable_bytes(std::span(ret_statistics, 1)));
}

constexpr char statistics_name[] = "Channel Statistics";

template <class Value, class Field>
Status read_one(const char *who, int index, Field RadioStatistics::*field, Value *ret_value) {
    RadioStatistics statistics;
    if (read_statistics(who, index, ret_value != nullptr, statistics_name, &statistics) != success)
        return failure;
    *ret_value = statistics.*field;
    return success;
}

void send(int index, const char *command) {
    Bss bss;
    if (find_bss(index, &bss) == success)
        (void)SetDriverDataOnTheFly(command, bss.name, 0); // these settings never fail
}

} // namespace

Status ZAV_GetChannelStatistics(int index, unsigned *ret_cst, unsigned *ret_activity, unsigned *ret_busy) {
    RadioStatistics statistics;
    const bool has_room = ret_cst != nullptr && ret_activity != nullptr && ret_busy != nullptr;
    if (read_statistics(__func__, index, has_room, statistics_name, &statistics) != success)
        return failure;
    *ret_cst = statistics.channel[0];
    *ret_activity = statistics.channel[1];
    *ret_busy = statistics.channel[2];
    return success;
}

Status ZAV_GetChannelNoiseFloor(int index, int *ret_least, int *ret_most, int *ret_median, int *ret_average) {
    RadioStatistics statistics;
    const bool has_room =
        ret_least != nullptr && ret_most != nullptr && ret_median != nullptr && ret_average != nullptr;
    if (read_statistics(__func__, index, has_room, statistics_name, &statistics) != success)
        return failure;
    *ret_least = statistics.noise[0];
    *ret_most = statistics.noise[1];
    *ret_median = statistics.noise[2];
    *ret_average = statistics.noise4;
    return success;
}

Status ZAV_GetRadioTxPackets(int index, std::uint64_t *ret_count) {
    return read_one(__func__, index, &RadioStatistics::packets_sent, ret_count);
}

Status ZAV_GetRadioRxPackets(int index, std::uint64_t *ret_count) {
    return read_one(__func__, index, &RadioStatistics::packets_received, ret_count);
}

Status ZAV_GetRetransmissionMetric(int index, unsigned *ret_metric) {
    return read_one(__func__, index, &RadioStatistics::retransmission_metric, ret_metric);
}

Status ZAV_GetRSSITable(int index, RssiTable *ret_table) {
    RadioStatistics statistics;
    if (read_statistics(__func__, index, ret_table != nullptr, "RSSI Table", &statistics) != success)
        return failure;
    std::copy(statistics.rssi.begin(), statistics.rssi.end(), ret_table->begin());
    return success;
}

Status ZAV_SetRadStatEnable(int index, int enable, int rit, int mit) {
    std::array<char, 64> command;
    std::snprintf(command.data(), command.size(), "RadioStat.-e.%d.%d.%d", enable, rit, mit);
    log_debug("[ZAV-API] %s cmd=%s\n", __func__, command.data());
    if (index == 1 || index == 3 || index == 9)
        send(index, command.data());
    return success;
}

Status ZAV_SetNoiseFloorType(int type) {
    std::array<char, 64> command;
    std::snprintf(command.data(), command.size(), "RadioStat.-a.%d", type);
    log_debug("[ZAV-API] %s cmd=%s\n", __func__, command.data());
    send(1, command.data());
    return success;
}
