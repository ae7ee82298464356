#pragma once

#include "backend/status.h"

#include <array>
#include <cstdint>

// What the driver counts for each radio. The getters answer -1 before the driver is initialised, for a null
// pointer, for an index without a BSS and when the driver does not answer; nothing is written then.

using RssiTable = std::array<std::int64_t, 37>;

Status ZAV_GetChannelStatistics(int index, unsigned *ret_cst, unsigned *ret_activity, unsigned *ret_busy);
Status ZAV_GetChannelNoiseFloor(int index, int *ret_least, int *ret_most, int *ret_median, int *ret_average);
Status ZAV_GetRadioTxPackets(int index, std::uint64_t *ret_count);
Status ZAV_GetRadioRxPackets(int index, std::uint64_t *ret_count);
Status ZAV_GetRetransmissionMetric(int index, unsigned *ret_metric);
Status ZAV_GetRSSITable(int index, RssiTable *ret_table);

// Never fail. Only the index 1, 3 or 9 switches the collection on or off; the method of measuring noise is
// always told to the interface of index 1.
Status ZAV_SetRadStatEnable(int index, int enable, int rit, int mit);
Status ZAV_SetNoiseFloorType(int type);
