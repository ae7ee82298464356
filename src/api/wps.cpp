#include "api/wps.h"

#include "api/wrapper.h"
#include "security/wps.h"

Status wlan_getWpsEnable(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetWpsEnable, "enable is %i.\n", index, ret_enable);
}

Status wlan_setWpsEnable(int index, unsigned enable) {
    return set(__func__, ZAV_SetWpsEnable, "enable=%u\n", "enable set to:%d\n", index, enable);
}

Status wlan_getWpsMode(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetWpsEnable, "enable is %i.\n", index, ret_enable);
}

Status wlan_setWpsMode(int index, unsigned enable) {
    return set(__func__, ZAV_SetWpsEnable, "enable=%u\n", "enable set to:%d\n", index, enable);
}

Status wlan_setWpsCancel(int index) {
    return run_action(__func__, ZAV_SetWpsCancel, "wps cancelled.\n", index);
}

Status wlan_getWpsDeviceName(int index, std::span<char> ret_name) {
    return get(__func__, ZAV_GetWpsDeviceName, "device name: %s\n", index, ret_name);
}

Status wlan_getWpsModelName(int index, std::span<char> ret_name) {
    return wlan_getWpsDeviceName(index, ret_name);
}

Status wlan_setWpsModelName(int, const char *) { return report_failure(__func__, failure); }

Status wlan_getWpsDevicePassword(int index, std::span<char> ret_pin) {
    return get(__func__, ZAV_GetWpsDevicePassword, "device password: %s\n", index, ret_pin);
}

Status wlan_setWpsDevicePassword(int index, const char *pin) {
    return set_as_stored(__func__, ZAV_SetWpsDevicePassword, "password=%s\n", "device password set to:%s\n",
                         index, pin);
}

Status wlan_getWpsUuid(int index, std::span<char> ret_uuid) {
    return get(__func__, ZAV_GetWpsUuid, "uuid: %s\n", index, ret_uuid);
}

Status wlan_setWpsUuid(int index, const char *uuid) {
    return set(__func__, ZAV_SetWpsUuid, "uuid=%s\n", "uuid set to:%s\n", index, uuid);
}

Status wlan_getWpsVersion(int index, unsigned *ret_version) {
    return get(__func__, ZAV_GetWpsVersion, "version: %d\n", index, ret_version);
}

Status wlan_getWpsConfigMethodsSupported(int index, std::span<char> ret_methods) {
    return get(__func__, ZAV_GetWpsConfigMethodsSupported, "supported methods: %s\n", index, ret_methods);
}

Status wlan_getWpsConfigMethodsEnabled(int index, std::span<char> ret_methods) {
    return get(__func__, ZAV_GetWpsConfigMethodsEnabled, "enabled methods: %s\n", index, ret_methods);
}

Status wlan_setWpsConfigMethodsEnabled(int index, const char *methods) {
    return set(__func__, ZAV_SetWpsConfigMethodsEnabled, "methods=%s\n", "enabled methods set to:%s\n", index,
               methods);
}

Status wlan_getWpsSetupLockedState(int index, std::span<char> ret_state) {
    return get(__func__, ZAV_GetWpsSetupLockedState, "setup locked state: %s\n", index, ret_state);
}

Status wlan_getWpsSetupLock(int index, unsigned *ret_on) {
    return get(__func__, ZAV_GetWpsSetupLock, "setup lock: %d\n", index, ret_on);
}

Status wlan_setWpsSetupLock(int index, unsigned on) {
    return set(__func__, ZAV_SetWpsSetupLock, "lock=%u\n", "setup lock set to:%d\n", index, on);
}

Status wlan_getWpsConfigurationState(int index, std::span<char> ret_state) {
    return get(__func__, ZAV_GetWpsConfigurationState, "configuration state: %s\n", index, ret_state);
}

Status wlan_getWpsLastConfigurationError(int index, std::span<char> ret_error) {
    return get(__func__, ZAV_GetWpsLastConfigurationError, "last configuration error: %s\n", index,
               ret_error);
}

Status wlan_getWpsResultStatus(int index, std::span<char> ret_state) {
    return get(__func__, ZAV_GetWpsResultStatus, "result status: %s\n", index, ret_state);
}

Status wlan_getWpsStatus(int index, std::span<char> ret_status) {
    return get(__func__, ZAV_GetWpsStatus, "status: %s\n", index, ret_status);
}

Status wlan_getWpsRegistrarNumEntries(int index, unsigned *ret_count) {
    return get(__func__, ZAV_GetWpsRegistrarNumEntries, "number of registrars: %i\n", index, ret_count);
}

Status wlan_getWpsRegistrarEstablished(int index, unsigned *ret_count) {
    return get(__func__, ZAV_GetWpsRegistrarEstablished, "established: %i\n", index, ret_count);
}

Status wlan_getWpsRegistrarEnabled(int index, int registrar, unsigned *ret_enable) {
    return get_selected(__func__, ZAV_GetWpsRegistrarEnabled, "registrar=%d\n", "enable is %i.\n", index,
                        registrar, ret_enable);
}

Status wlan_setWpsRegistrarEnabled(int index, int registrar, unsigned enable) {
    return set_selected(__func__, ZAV_SetWpsRegistrarEnabled, "registrar=%d enable=%u\n",
                        "enable set to:%d\n", index, registrar, enable);
}

Status wlan_getWpsRegistrarUuid(int index, int registrar, std::span<char> ret_uuid) {
    return get_selected(__func__, ZAV_GetWpsRegistrarUuid, "registrar=%d\n", "uuid: %s\n", index, registrar,
                        ret_uuid);
}

Status wlan_getWpsRegistrarDeviceName(int index, int registrar, std::span<char> ret_name) {
    return get_selected(__func__, ZAV_GetWpsRegistrarDeviceName, "registrar=%d\n", "device name: %s\n", index,
                        registrar, ret_name);
}

Status wlan_setWpsPushButton(int index) {
    return run_action(__func__, ZAV_SetWpsPushButton, "push button session started.\n", index);
}

Status wlan_setWpsPinStart(int index, const char *pin) {
    return set(__func__, ZAV_SetWpsPinStart, "pin=%s\n", "PIN session started with:%s\n", index, pin);
}

Status wlan_setWpsOOB(int index) {
    return run_action(__func__, ZAV_SetWpsOOB, "wps is out of the box.\n", index);
}

Status wlan_getWpsConfigTimeout(int index, unsigned *ret_timeout) {
    return get_key(__func__, "WscConfigTimeout", 120000, "timeout is %d\n", index, ret_timeout);
}

Status wlan_setWpsConfigTimeout(int index, unsigned timeout) {
    return set_key(__func__, "WscConfigTimeout", "timeout=%u\n", "timeout set to:%d\n", index, timeout);
}
