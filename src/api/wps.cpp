#include "api/wps.h"

#include "api/wrapper.h"

Status wlan_setWpsModelName(int, const char *) {
    log_error("[ZAV-API] Error %s failed !!!\n", __func__);
    return failure;
}

Status wlan_getWpsConfigTimeout(int index, unsigned *ret_timeout) {
    return get_key(__func__, "WscConfigTimeout", 120000, "timeout is %d\n", index, ret_timeout);
}

Status wlan_setWpsConfigTimeout(int index, unsigned timeout) {
    return set_key(__func__, "WscConfigTimeout", "timeout=%u\n", "timeout set to:%d\n", index, timeout);
}
