#include "api/air_time.h"

#include "api/wrapper.h"
#include "rrm/air_time.h"

#include <memory>
#include <numeric>
#include <span>

namespace {

// Reads a block of counters, and the number under which the driver counts a station there.
template <class Block>
Status read_block(const char *who, int index, int station, Status (*read)(int, Block *), unsigned *ret_number,
                  Block *ret_block) {
    if (ZAV_GetZavinoStaIndexByStaIndex(index, station, ret_number) != success) {
        log_debug("[ZAV-API] %s wrong index!\n", who);
        return failure;
    }
    return read(index, ret_block);
}

// A negative number is out of range as well.
constexpr bool is_below(int number, unsigned limit) { return static_cast<unsigned>(number) < limit; }

void fill_info(const AirTimeBlock &block, BSSAirTimeManagementInfo *ret_info) {
    *ret_info = {};
    for (std::size_t category = 0; category < AirTimeBlock::categories; ++category)
        for (std::size_t bss = 0; bss < AirTimeBlock::bss_count; ++bss) {
            const std::uint64_t air_time = block.air_time.at(category).at(bss);
            std::span(ret_info->values)[category * AirTimeBlock::bss_count + bss] = air_time;
            std::span(ret_info->totals)[bss] += air_time;
        }
    const std::span totals = ret_info->totals;
    const std::uint64_t grand = std::accumulate(totals.begin(), totals.end(), std::uint64_t{0});
    for (std::size_t bss = 0; bss < AirTimeBlock::bss_count && grand != 0; ++bss)
        std::span(ret_info->shares)[bss] = totals[bss] * 100 / grand;
}

} // namespace

Status wlan_setAirTimeBssWeight(int index, int weight) {
    return report_failure(__func__, ZAV_SetBssWeight(index, weight));
}

Status wlan_getBssWeight(int index, unsigned *ret_weight) {
    return report_failure(__func__, ZAV_GetBssWeight(index, ret_weight));
}

Status wlan_getStaWeight(int index, const char *mac, unsigned *ret_weight) {
    return report_failure(__func__, ZAV_GetStaWeight(index, mac, ret_weight));
}

Status wlan_setAirTimeStaWeight(int index, const char *mac, int weight) {
    return report_failure(__func__, ZAV_SetAirTimeStaWeight(index, mac, weight));
}

Status wlan_delAirTimeStaByMac(int index, const char *mac) {
    return report_failure(__func__, ZAV_DelAirTimeStaByMac(index, mac));
}

Status wlan_getAirTimeStats(int index, int station, int group, FourWords *ret_counters) {
    const auto block = std::make_unique<AirTimeBlock>();
    unsigned number = 0;
    if (!is_below(group, AirTimeBlock::groups) ||
        read_block(__func__, index, station, ZAV_GetAirTimeStats, &number, block.get()) != success)
        return report_failure(__func__, failure);
    const auto place = static_cast<std::size_t>(group);
    const auto &a = block->set_a.at(place).at(number), &b = block->set_b.at(place).at(number);
    *ret_counters = {a[0], a[1], b[0], b[1]};
    return success;
}

Status wlan_getFramesInQueueData(int index, int station, int queue, FourWords *ret_counters) {
    const auto block = std::make_unique<QueueBlock>();
    unsigned number = 0;
    if (!is_below(queue, QueueBlock::queues) ||
        read_block(__func__, index, station, ZAV_GetFramesInQueueData, &number, block.get()) != success)
        return report_failure(__func__, failure);
    for (std::size_t plane = 0; plane < QueueBlock::planes; ++plane)
        ret_counters->at(plane) = block->frames.at(plane).at(number).at(static_cast<std::size_t>(queue));
    return success;
}

Status wlan_getGetStationRateAdaptationData(int index, int station, RateData *ret_data) {
    *ret_data = {};
    const auto block = std::as_writable_bytes(std::span<RateData, 1>(ret_data, 1));
    return report_failure(__func__, ZAV_GetRateData(index, station, block));
}

Status wlan_getBSSAirTimeManagementInfo(int index, BSSAirTimeManagementInfo *ret_info) {
    const auto block = std::make_unique<AirTimeBlock>();
    if (report_failure(__func__, ZAV_GetAirTimeStats(index, block.get())) == failure)
        return failure;
    fill_info(*block, ret_info);
    return success;
}
