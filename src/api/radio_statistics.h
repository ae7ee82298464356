#pragma once

#include "backend/status.h"
#include "rrm/radio_statistics.h"

#include <cstdint>

// What the driver counts for each radio. Each says nothing but one error line when it fails, with -1 and
// nothing written.

Status wlan_getChannelStatistics(int index, unsigned *ret_cst, unsigned *ret_activity, unsigned *ret_busy);
Status wlan_getChannelNoiseFloor(int index, int *ret_least, int *ret_most, int *ret_median, int *ret_average);
Status wlan_getRadioTxPackets(int index, std::uint64_t *ret_count);
Status wlan_getRadioRxPackets(int index, std::uint64_t *ret_count);
Status wlan_getRetransmissionMetric(int index, unsigned *ret_metric);
Status wlan_getRSSITable(int index, RssiTable *ret_table);

// Never fail.
Status wlan_setRadStatEnable(int index, int enable, int rit, int mit);
Status wlan_setNoiseFloorType(int type);
