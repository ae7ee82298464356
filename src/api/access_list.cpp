#include "api/access_list.h"

#include "api/wrapper.h"
#include "backend/mac.h"
#include "security/access_list.h"

Status wlan_getMacAddressControlEnabled(int index, unsigned *ret_policy) {
    return get(__func__, ZAV_GetMacAddressControlEnabled, "access policy is %d\n", index, ret_policy);
}

Status wlan_setMacAddressControlEnabled(int index, unsigned policy) {
    return set(__func__, ZAV_SetMacAddressControlEnabled, "accessType=%u\n", "access policy set to:%d\n",
               index, policy);
}

Status wlan_setMacAddressControlClear(int index) {
    return run_action(__func__, ZAV_SetMacAddressControlClear, "access list cleared.\n", index);
}

Status wlan_setMacAddressControlAdd(int index, const char *mac, const char *name) {
    log_entry_with(__func__, index, Line<const char *, const char *>("mac=%s name=%s\n"), mac, name);
    MacText stored{};
    const Status result = ZAV_SetMacAddressControlAdd(index, mac, name, stored);
    return report<const char *>(__func__, result, "mac added:%s\n", stored.data());
}

Status wlan_setMacAddressControlDelete(int index, const char *mac) {
    return set_as_stored(__func__, ZAV_SetMacAddressControlDelete, "mac=%s\n", "mac deleted:%s\n", index,
                         mac);
}

Status wlan_getMacAddressControlList(int index, std::span<char> ret_list) {
    return get(__func__, ZAV_GetMacAddressControlList, "access list is %s\n", index, ret_list);
}

Status wlan_getMacAddressControlCount(int index, unsigned *ret_count) {
    return get(__func__, ZAV_GetMacAddressControlCount, "access list entries: %d\n", index, ret_count);
}
