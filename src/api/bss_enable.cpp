#include "api/bss_enable.h"

#include "api/wrapper.h"
#include "radio/bss_enable.h"

Status wlan_getEnable(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetEnable, "enable is %i.\n", index, ret_enable);
}

Status wlan_setEnable(int index, unsigned enable) {
    return set(__func__, ZAV_SetEnable, "enable=%u\n", "enable set to:%d\n", index, enable);
}

Status wlan_setRestoreDefaults(int index) {
    return run_action(__func__, ZAV_SetRestoreDefaults, "defaults restored.\n", index);
}

Status wlan_getCustomSSIDStr(int index, std::span<char> ret_ssid) {
    return get(__func__, ZAV_GetCustomSSIDStr, "custom SSID is %s.\n", index, ret_ssid);
}

Status wlan_setCustomSSIDStr(int index, const char *ssid) {
    return set(__func__, ZAV_SetCustomSSIDStr, "ssidStr=%s\n", "custom SSID is set to %s.\n", index, ssid);
}
