#include "backend/bss_identity.h"
#include "backend/config_store.h"
#include "backend/interfaces.h"
#include "backend/lifecycle.h"
#include "backend/log.h"
#include "backend/shell.h"
#include "backend/text.h"

#include <array>
#include <cstdio>
#include <string>

namespace {

constexpr char vlan_store[] = "vlan"; // the store's name for the VLAN file
constexpr int collecting_vlan = 4095; // its slot gathers interfaces, and its ports have no VLAN id

using Key = std::array<char, 40>;

Key slot_key(const char *pattern_begin, unsigned slot, const char *pattern_end) {
    Key key;
    std::snprintf(key.data(), key.size(), "%s%u%s", pattern_begin, slot, pattern_end);
    return key;
}

int stored_vlan(unsigned slot) {
    std::array<char, 16> text;
    int vlan = 0;
    if (nvram_get_str(vlan_store, slot_key("VlanId", slot, "").data(), text) == success)
        (void)scan_number(text.data(), &vlan);
    return vlan;
}

// The first slot that holds the VLAN or is free.
bool find_slot(int vlan, unsigned *ret_slot, bool *ret_free) {
    const unsigned total = refresh_counts().total();
    for (unsigned slot = 0; slot < total; ++slot) {
        const int stored = stored_vlan(slot);
        if (stored != vlan && stored != 0)
            continue;
        *ret_slot = slot;
        *ret_free = stored == 0;
        return true;
    }
    return false;
}

// The bridge scripts take the text with its quotes, so they stand as they are.
std::string members_with(const std::string &stored, const char *ifname) {
    std::string members = "\"\"eth0";
    if (!stored.empty())
        members = '"' + stored.substr(0, stored.find('"', 1));
    return members + ' ' + ifname + "\"\"";
}

Status store_vlan(const char *who, int vlan, unsigned slot, bool is_free, const char *ifname) {
    const Key members_key = slot_key("VlanId", slot, "Members");
    std::string members = "\"eth0\"", port_vlan = std::to_string(vlan);
    if (vlan == collecting_vlan) {
        std::string stored(longest_setting, '\0');
        (void)nvram_get_str(vlan_store, members_key.data(), stored);
        members = members_with(stored.c_str(), ifname);
        port_vlan.clear();
    }
    Key port_key;
    std::snprintf(port_key.data(), port_key.size(), "Vlan%sPvid", ifname);
    // All or nothing: the three lines must fit before the first is written.
    if (!nvram_has_room(vlan_store, members.size() + 3 * sizeof(Key))) {
        log_error("[ZAV-API] Error %s no room for the members of the VLAN\n", who);
        return failure;
    }
    if (is_free && nvram_set_int(vlan_store, slot_key("VlanId", slot, "").data(), vlan) == failure)
        return failure;
    if (nvram_set_str(vlan_store, members_key.data(), members.c_str()) == failure)
        return failure;
    return nvram_set_str(vlan_store, port_key.data(), port_vlan.c_str()) == failure ? failure : success;
}

} // namespace

Status ZAV_AssocitaleVlan(const char *bssid, std::uint16_t vlan) {
    if (!vlan_file_is_reset) {
        if (run_command(__func__, "$zav_install_dir/restore_defaults.sh ZAV750 vlan") != success)
            return failure;
        vlan_file_is_reset = true;
    }
    unsigned port = 0, index = 0, slot = 0;
    InterfaceName ifname;
    if (ZAV_GetBSSIDPort(bssid, &port, &index) != success ||
        GET_IFNAME_FROM_INDEX(&ifname, static_cast<int>(index), nullptr) != success) {
        log_error("[ZAV-API] Error %s ZAV_GetBSSIDPort failed \n", __func__);
        return failure;
    }
    bool is_free = false;
    if (!find_slot(vlan, &slot, &is_free)) {
        log_error("[ZAV-API] Error %s search_vlan == entries \n", __func__);
        return failure;
    }
    return store_vlan(__func__, vlan, slot, is_free, ifname.data());
}
