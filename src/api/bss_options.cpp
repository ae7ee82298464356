#include "api/bss_options.h"

#include "api/wrapper.h"
#include "radio/bss_options.h"

Status wlan_getSsidAdvertisementEnabled(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetSsidAdvertisementEnabled, "ssid advertisement is %d\n", index, ret_enable);
}

Status wlan_setSsidAdvertisementEnabled(int index, unsigned enable) {
    return set(__func__, ZAV_SetSsidAdvertisementEnabled, "enable=%u\n", "ssid advertisement set to:%d\n",
               index, enable);
}

Status wlan_getWPAReAuthInterval(int index, unsigned *ret_interval) {
    return get(__func__, ZAV_GetWPAReAuthInterval, "wpa reauth interval is %d\n", index, ret_interval);
}

Status wlan_setWPAReAuthInterval(int index, unsigned interval) {
    return set(__func__, ZAV_SetWPAReAuthInterval, "reAuthInt=%u\n", "wpa reauth interval set to:%d\n", index,
               interval);
}

Status wlan_getStationIsolate(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetStationIsolate, "station isolate is %d\n", index, ret_enable);
}

Status wlan_setStationIsolate(int index, unsigned enable) {
    return set(__func__, ZAV_SetStationIsolate, "enable=%u\n", "station isolate set to:%d\n", index, enable);
}

Status wlan_getMaxStationNum(int index, unsigned *ret_number) {
    return get(__func__, ZAV_GetMaxStationNum, "max station number is %d\n", index, ret_number);
}

Status wlan_setMaxStationNum(int index, unsigned number) {
    return set(__func__, ZAV_SetMaxStationNum, "maxStaNum=%u\n", "max station number set to:%d\n", index,
               number);
}

Status wlan_getInterworkIeEnable(int index, unsigned *ret_enable) {
    return get_with_code(__func__, ZAV_GetInterworkIeEnable, "interworking is %d\n", index, ret_enable);
}

Status wlan_setInterworkIeEnable(int index, unsigned enable) {
    return set(__func__, ZAV_SetInterworkIeEnable, "enable=%u\n", "interworking set to:%d\n", index, enable);
}

Status wlan_getInterworkIeAccessNetType(int index, unsigned *ret_type) {
    return get_with_code(__func__, ZAV_GetInterworkIeAccessNetType, "access network type is %d\n", index,
                         ret_type);
}

Status wlan_setInterworkIeAccessNetType(int index, unsigned type) {
    return set(__func__, ZAV_SetInterworkIeAccessNetType, "type=%u\n", "access network type set to:%d\n",
               index, type);
}
