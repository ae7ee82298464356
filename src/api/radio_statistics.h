#pragma once

#include "backend/status.h"
#include "rrm/radio_statistics.h"

#include <cstdint>

// What the driver counts for each radio. Each says nothing but one error line when it fails, with -1 and
// nothing written.

Status wlan_getChannelStatistics(int index, unsigned *ret_1, unsigned *ret_2, unsigned *ret_3);
Status wlan_getChannelNoiseFloor(int index, int *ret_1, int *ret_2, int *ret_3, int *ret_4);
Status wlan_getRadioTxPackets(int index, std::uint64_t *ret_count);
Status wlan_getRadioRxPackets(int index, std::uint64_t *ret_count);
Status wlan_getRetransmissionMetric(int index, unsigned *ret_metric);
Status wlan_getRSSITable(int index, RssiTable *ret_table);

// Never fail.
Status wlan_setRadStatEnable(int index, int enable, int rit, int mit);
Status wlan_setNoiseFloorType(int type);
