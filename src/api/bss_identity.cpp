#include "api/bss_identity.h"

#include "api/wrapper.h"
#include "backend/bss_identity.h"

Status wlan_getSSID(int index, std::span<char> ret_ssid) {
    return get(__func__, ZAV_GetSSID, plain_entry, "[ZAV-API] %s wlan SSID is %s.\n", index, ret_ssid);
}

Status wlan_setSSID(int index, const char *ssid) {
    return set(__func__, ZAV_SetSSID, "[ZAV-API] %s wlan_setSSID int index=%d ssid=%s\n",
               "[ZAV-API] %s wlan SSID is set to %s.\n", index, ssid);
}
