#pragma once

#include "backend/interfaces.h"
#include "backend/packed.h"
#include "backend/status.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

// The driver's air-time fairness: weights of BSSes and stations, and what its scheduler counts.

// The answers of the driver. Where a station is asked for, it counts by the driver's own number of it.
struct AirTimeBlock {
    static constexpr unsigned groups = 8, stations = 32, categories = 8, bss_count = 16;
    using Counters = std::array<std::array<std::array<Packed<std::uint32_t>, 2>, stations>, groups>;
    Counters set_a, set_b;
    std::array<std::array<Packed<std::uint64_t>, bss_count>, categories> air_time;
};
static_assert(sizeof(AirTimeBlock) == 5120 && offsetof(AirTimeBlock, set_b) == 2048 &&
              offsetof(AirTimeBlock, air_time) == 4096);

struct QueueBlock {
    static constexpr unsigned planes = 4, stations = 32, queues = 8;
    std::array<std::array<std::array<Packed<std::uint32_t>, queues>, stations>, planes> frames;
};
static_assert(sizeof(QueueBlock) == 4096);

constexpr std::size_t rate_block_size = 976;

// The weight of a BSS in percent, 0 to 100, told to the driver and stored. What the driver says to it does
// not matter; -1 when nothing was written, so also for the weight that is stored already.
Status ZAV_SetBssWeight(int index, int weight);
Status ZAV_SetBssWeightsToNvram(int index, int weight); // the second half, 2 when it was stored already
Status ZAV_GetBssWeight(int index, unsigned *ret_weight);

// What weights of BSSes and of stations have in common.
constexpr int highest_weight = 100;
Status refuse_weight(const char *who);
void send_weight(const char *who, char level, unsigned number, int weight, const InterfaceName &air_time);

// All stations of a BSS share equally, whichever is named. -1 and a weight of 0 without stations.
Status ZAV_GetStaWeight(int index, const char *mac, unsigned *ret_weight);
// Not on this platform: always -1.
Status ZAV_SetAirTimeStaWeight(int index, const char *mac, int weight);
Status ZAV_DelAirTimeStaByMac(int index, const char *mac);

// The driver's number, 0 to 31, of a station by its place among those of the BSS, from 0, or by its address.
// -1 when it is not there or the driver gave it another number.
Status ZAV_GetZavinoStaIndexByStaIndex(int index, int station, unsigned *ret_number);
Status ZAV_GetZavinoStaIndexByMac(int index, const char *mac, unsigned *ret_number);

// -1 before the driver is initialised, for an index without a BSS and when the driver does not answer;
// nothing is written then. The blocks take kilobytes.
Status ZAV_GetAirTimeStats(int index, AirTimeBlock *ret_block);
Status ZAV_GetFramesInQueueData(int index, QueueBlock *ret_block);
// Of a station from 0 to 15.
Status ZAV_GetRateData(int index, int station, std::span<std::byte, rate_block_size> ret_block);
