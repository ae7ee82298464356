#pragma once

#include "api/records.h"
#include "backend/status.h"

#include <array>

// Air-time fairness. Each says nothing but one error line when it fails, with -1.

// A weight of a BSS in percent, 0 to 100; -1 also for the weight that is stored already.
Status wlan_setAirTimeBssWeight(int index, int weight);
Status wlan_getBssWeight(int index, unsigned *ret_weight);

// The weight in percent that each station has; the address does not matter. 0 with the failure that there is
// none.
Status wlan_getStaWeight(int index, const char *mac, unsigned *ret_weight);
// Not on this platform: always -1.
Status wlan_setAirTimeStaWeight(int index, const char *mac, int weight);
Status wlan_delAirTimeStaByMac(int index, const char *mac);

// Counters of a station, by its place among those of the BSS, from 0: in a group (0 to 7) the two of set A
// and the two of set B; in a queue (0 to 7) the frames of the four planes. Not written on failure.
using FourWords = std::array<unsigned, 4>;
Status wlan_getAirTimeStats(int index, int station, int group, FourWords *ret_counters);
Status wlan_getFramesInQueueData(int index, int station, int queue, FourWords *ret_counters);
// (Get twice: clients and logs know it so.) Of a station from 0 to 15; cleared on failure.
Status wlan_getGetStationRateAdaptationData(int index, int station, RateData *ret_data);

// The air time of each BSS and its share in percent, and what they were made of. Not written on failure.
Status wlan_getBSSAirTimeManagementInfo(int index, BSSAirTimeManagementInfo *ret_info);
