#include "api/bss_identity.h"

#include "api/wrapper.h"
#include "backend/bss_identity.h"

Status wlan_getSSID(int index, std::span<char> ret_ssid) {
    return get(__func__, ZAV_GetSSID, "wlan SSID is %s.\n", index, ret_ssid, Entry::plain);
}

Status wlan_setSSID(int index, const char *ssid) {
    return set(__func__, ZAV_SetSSID, "ssid=%s\n", "wlan SSID is set to %s.\n", index, ssid);
}

Status wlan_getStatus(int index, std::span<char> ret_status) {
    return get(__func__, ZAV_GetStatus, "wlan status is %s.\n", index, ret_status, Entry::plain);
}

Status wlan_getBSSID(int index, std::span<char> ret_bssid) {
    return get(__func__, ZAV_GetBSSID, "wlan BSSID is %s.\n", index, ret_bssid, Entry::plain);
}

Status wlan_getBssIdPort(const char *bssid, unsigned *ret_port, unsigned *ret_index) {
    log_debug("[ZAV-API] %s wlan_getBssIdPort bssid=%s\n", __func__, bssid);
    return report(__func__, ZAV_GetBSSIDPort(bssid, ret_port, ret_index), "wlan index is %d.\n", ret_index);
}

Status wlan_associateVlan(const char *bssid, std::uint16_t vlan) {
    log_debug("[ZAV-API] %s wlan_associateVlan bssid=%s vlan=%d\n", __func__, bssid, vlan);
    return report(__func__, ZAV_AssocitaleVlan(bssid, vlan), "wlan is associated with VLAN %d.\n",
                  unsigned{vlan});
}
