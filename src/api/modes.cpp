#include "api/modes.h"

#include "api/wrapper.h"
#include "security/modes.h"

Status wlan_getStandard(int index, std::span<char> ret_letters) {
    return get(__func__, ZAV_GetStandard, "standard: %s\n", index, ret_letters);
}

Status wlan_setStandard(int index, const char *letters) {
    return set(__func__, ZAV_SetStandard, "standard=%s\n", "standard set to:%s\n", index, letters);
}

Status wlan_getBeaconType(int index, std::span<char> ret_type) {
    return get(__func__, ZAV_GetBeaconType, "beacon type: %s\n", index, ret_type);
}

Status wlan_setBeaconType(int index, const char *type) {
    return set(__func__, ZAV_SetBeaconType, "beaconType=%s\n", "beacon type set to:%s\n", index, type);
}

Status wlan_getBasicAuthenticationModes(int index, std::span<char> ret_mode) {
    return get(__func__, ZAV_GetBasicAuthenticationModes, "authentication mode: %s\n", index, ret_mode);
}

Status wlan_setBasicAuthenticationModes(int index, const char *mode) {
    return set(__func__, ZAV_SetBasicAuthenticationModes, "authMode=%s\n", "authentication mode set to:%s\n",
               index, mode);
}

Status wlan_getBasicEncryptionModes(int index, std::span<char> ret_mode) {
    return get(__func__, ZAV_GetBasicEncryptionModes, "encryption mode: %s\n", index, ret_mode);
}

Status wlan_setBasicEncryptionModes(int index, const char *mode) {
    return set(__func__, ZAV_SetBasicEncryptionModes, "encModes=%s\n", "encryption mode set to:%s\n", index,
               mode);
}

Status wlan_getWpaAuthenticationModes(int index, std::span<char> ret_mode) {
    return get(__func__, ZAV_GetWpaAuthenticationModes, "WPA authentication mode: %s\n", index, ret_mode);
}

Status wlan_setWpaBasicAuthenticationModes(int index, const char *mode) {
    return set(__func__, ZAV_SetWpaBasicAuthenticationModes, "authMode=%s\n",
               "WPA authentication mode set to:%s\n", index, mode);
}

Status wlan_getWpaEncryptionModes(int index, std::span<char> ret_mode) {
    return get(__func__, ZAV_GetWpaEncryptionModes, "WPA encryption mode: %s\n", index, ret_mode);
}

Status wlan_setWpaEncryptionModes(int index, const char *mode) {
    return set(__func__, ZAV_SetWpaEncryptionModes, "encModes=%s\n", "WPA encryption mode set to:%s\n", index,
               mode);
}
