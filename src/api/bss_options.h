#pragma once

#include "backend/status.h"

// Settings of one BSS, fields of lists. Getters answer 0, or -1 for an index without a BSS or an absent list;
// setters 0 written, 2 already stored, -1 failure: an absent list is not created, but for interworking, whose
// absent lists count as zeros. The driver sees them at the next restart of the interfaces.

// Isolation of the stations of the BSS from each other: 0 or 1; -1 for a stored field that is neither.
Status wlan_getStationIsolate(int index, unsigned *ret_enable);
Status wlan_setStationIsolate(int index, unsigned enable);

// 0 or 1, stored as whether the SSID is hidden.
Status wlan_getSsidAdvertisementEnabled(int index, unsigned *ret_enable);
Status wlan_setSsidAdvertisementEnabled(int index, unsigned enable);

// 0 to 255; -1 for any other.
Status wlan_getMaxStationNum(int index, unsigned *ret_number);
Status wlan_setMaxStationNum(int index, unsigned number);

// Seconds; 0 switches the renewal of keys off.
Status wlan_getWPAReAuthInterval(int index, unsigned *ret_interval);
Status wlan_setWPAReAuthInterval(int index, unsigned interval);

// 802.11u: 0 or 1, and the access network type, 0 to 15; -1 for any other.
Status wlan_getInterworkIeEnable(int index, unsigned *ret_enable);
Status wlan_setInterworkIeEnable(int index, unsigned enable);
Status wlan_getInterworkIeAccessNetType(int index, unsigned *ret_type);
Status wlan_setInterworkIeAccessNetType(int index, unsigned type);
