#include "api/interfaces.h"

#include "api/wrapper.h"
#include "backend/interfaces.h"
#include "backend/text.h"

namespace {

Status read_name(int index, std::span<char> ret_name) {
    InterfaceName ifname;
    const Status result = GET_IFNAME_FROM_INDEX(&ifname, index, nullptr);
    if (result == success)
        copy_text(ret_name, ifname.data());
    return result;
}

} // namespace

Status wlan_getNumberOfEntries(unsigned *ret_count) {
    log_debug("[ZAV-API] %s entry.\n", __func__);
    return report(__func__, ZAV_GetNumberOfEntries(ret_count), "%d wlan entries available.\n", ret_count);
}

Status wlan_getName(int index, std::span<char> ret_name) {
    return get(__func__, read_name, "wlan name is %s.\n", index, ret_name, Entry::plain);
}

Status wlan_addEntry() {
    log_debug("[ZAV-API] %s wlan_addEntry\n", __func__);
    return success;
}

Status wlan_delEntry(int index) {
    log_entry(__func__, index);
    return success;
}
