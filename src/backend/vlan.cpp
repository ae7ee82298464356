#include "backend/bss_identity.h"
#include "backend/config_store.h"
#include "backend/interfaces.h"
#include "backend/log.h"
#include "backend/shell.h"

#include <array>
#include <span>
#include <string>

namespace {

constexpr int collecting_vlan = 4095; // its slot gathers interfaces, and its ports have no VLAN id

std::string slot_key(unsigned slot, const char *rest = "") { return "VlanId" + std::to_string(slot) + rest; }

int stored_vlan(unsigned slot) {
    int vlan = 0; // also of a slot that is not there
    (void)nvram_get_int(settings_vlan, slot_key(slot), &vlan);
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
std::string members_with(const std::string &stored, const std::string &ifname) {
    std::string members = "\"\"eth0";
    if (!stored.empty())
        members = '"' + stored.substr(0, stored.find('"', 1));
    return members + ' ' + ifname + "\"\"";
}

Status store_vlan(const char *who, int vlan, unsigned slot, bool is_free, const std::string &ifname) {
    KeyValue id{slot_key(slot), std::to_string(vlan)}, members{slot_key(slot, "Members"), "\"eth0\""},
        port_vlan{"Vlan" + ifname + "Pvid", id.value};
    if (vlan == collecting_vlan) {
        std::string stored;
        (void)nvram_get_whole(settings_vlan, members.key, &stored);
        members.value = members_with(stored, ifname);
        port_vlan.value.clear();
    }
    const std::array settings{id, members, port_vlan};
    const auto written = std::span(settings).subspan(is_free ? 0 : 1);
    // All or nothing: the lines must fit before the first is written.
    if (!nvram_can_take(who, settings_vlan, written))
        return failure;
    return nvram_set_together(settings_vlan, [&] {
        for (const auto &[key, value] : written)
            if (nvram_set_str(settings_vlan, key, value.c_str()) == failure)
                return failure;
        return success;
    });
}

} // namespace

Status ZAV_AssocitaleVlan(const char *bssid, std::uint16_t vlan) {
    if (!vlan_file_is_reset()) {
        if (run_command(__func__, "$zav_install_dir/restore_defaults.sh ZAV750 vlan") != success)
            return failure;
        set_vlan_file_is_reset(true);
    }
    unsigned port = 0, index = 0, slot = 0;
    Bss bss;
    if (ZAV_GetBSSIDPort(bssid, &port, &index) != success ||
        find_bss(static_cast<int>(index), &bss) != success) {
        log_error("[ZAV-API] Error %s ZAV_GetBSSIDPort failed \n", __func__);
        return failure;
    }
    bool is_free = false;
    if (!find_slot(vlan, &slot, &is_free)) {
        log_error("[ZAV-API] Error %s search_vlan == entries \n", __func__);
        return failure;
    }
    return store_vlan(__func__, vlan, slot, is_free, bss.name.data());
}
