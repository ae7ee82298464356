#pragma once

#include "backend/status.h"

// Settings of one BSS; radio/bss_options.h says what each is.

Status wlan_getStationIsolate(int index, unsigned *ret_enable);
Status wlan_setStationIsolate(int index, unsigned enable);

Status wlan_getSsidAdvertisementEnabled(int index, unsigned *ret_enable);
Status wlan_setSsidAdvertisementEnabled(int index, unsigned enable);

Status wlan_getMaxStationNum(int index, unsigned *ret_number);
Status wlan_setMaxStationNum(int index, unsigned number);

Status wlan_getWPAReAuthInterval(int index, unsigned *ret_interval);
Status wlan_setWPAReAuthInterval(int index, unsigned interval);

Status wlan_getInterworkIeEnable(int index, unsigned *ret_enable);
Status wlan_setInterworkIeEnable(int index, unsigned enable);
Status wlan_getInterworkIeAccessNetType(int index, unsigned *ret_type);
Status wlan_setInterworkIeAccessNetType(int index, unsigned type);
