#include "api/radius.h"

#include "api/wrapper.h"
#include "security/radius.h"

Status wlan_getRadiusServerAddress(int index, std::span<char> ret_address) {
    return get(__func__, ZAV_GetRadiusServerAddress, "ip address is %s\n", index, ret_address);
}

Status wlan_setRadiusServerAddress(int index, const char *address) {
    return set_as_stored(__func__, ZAV_SetRadiusServerAddress, "ip_address=%s\n", "ip address set to:%s\n",
                         index, address);
}

Status wlan_getRadiusServerPort(int index, unsigned *ret_port) {
    return get(__func__, ZAV_GetRadiusServerPort, "port is %d\n", index, ret_port);
}

Status wlan_setRadiusServerPort(int index, unsigned port) {
    return set(__func__, ZAV_SetRadiusServerPort, "port=%u\n", "port set to:%d\n", index, port);
}

Status wlan_getRadiusServerKey(int index, std::span<char> ret_key) {
    return get(__func__, ZAV_GetRadiusServerKey, "key is %s\n", index, ret_key);
}

Status wlan_setRadiusServerKey(int index, const char *key) {
    return set(__func__, ZAV_SetRadiusServerKey, "key=%s\n", "key set to:%s\n", index, key);
}

Status wlan_getRadiusReAuthInterval(int index, unsigned *ret_interval) {
    return get(__func__, ZAV_GetRadiusReAuthInterval, "interval is %d\n", index, ret_interval);
}

Status wlan_setRadiusReAuthInterval(int index, unsigned interval) {
    return set(__func__, ZAV_SetRadiusReAuthInterval, "interval=%u\n", "interval set to:%d\n", index,
               interval);
}

Status wlan_getAcctServerAddress(int index, std::span<char> ret_address) {
    return get_with_code(__func__, ZAV_GetAcctServerAddress, "ip address is %s\n", index, ret_address);
}

Status wlan_setAcctServerAddress(int index, const char *address) {
    return set_as_stored(__func__, ZAV_SetAcctServerAddress, "ip_address=%s\n", "ip address set to:%s\n",
                         index, address);
}

Status wlan_getAcctServerPort(int index, unsigned *ret_port) {
    return get_with_code(__func__, ZAV_GetAcctServerPort, "port is %d\n", index, ret_port);
}

Status wlan_setAcctServerPort(int index, unsigned port) {
    return set(__func__, ZAV_SetAcctServerPort, "port=%u\n", "port set to:%d\n", index, port);
}

Status wlan_getAcctServerKey(int index, std::span<char> ret_key) {
    return get_with_code(__func__, ZAV_GetAcctServerKey, "key is %s\n", index, ret_key);
}

Status wlan_setAcctServerKey(int index, const char *key) {
    return set(__func__, ZAV_SetAcctServerKey, "key=%s\n", "key set to:%s\n", index, key);
}
