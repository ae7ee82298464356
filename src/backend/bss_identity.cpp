#include "backend/bss_identity.h"

#include "backend/config_store.h"
#include "backend/interfaces.h"
#include "backend/log.h"

#include <array>
#include <cstdio>
#include <cstring>

namespace {

constexpr std::size_t longest_ssid = 32;

// Where the SSID of a BSS is stored.
struct SsidKey {
    InterfaceName ifname;
    std::array<char, 16> key;
};

Status find_ssid_key(const char *who, int index, SsidKey *ret_place) {
    unsigned bss = 0;
    if (check_index(who, index) != success ||
        GET_IFNAME_FROM_INDEX(&ret_place->ifname, index, &bss) != success)
        return failure;
    std::snprintf(ret_place->key.data(), ret_place->key.size(), "SSID%u", bss);
    return success;
}

} // namespace

Status ZAV_GetSSID(int index, std::span<char> ret_ssid) {
    SsidKey place;
    if (find_ssid_key(__func__, index, &place) != success ||
        nvram_get_str(place.ifname.data(), place.key.data(), ret_ssid) != success)
        return failure;
    log_debug("[ZAV-API] %s (%s).\n", __func__, ret_ssid.data());
    return success;
}

Status ZAV_SetSSID(int index, const char *ssid) {
    SsidKey place;
    if (find_ssid_key(__func__, index, &place) != success)
        return failure;
    std::array<char, longest_ssid + 1> stored;
    if (nvram_get_str(place.ifname.data(), place.key.data(), stored) == success &&
        std::strncmp(stored.data(), ssid, longest_ssid) == 0)
        return unchanged;
    return nvram_set_str(place.ifname.data(), place.key.data(), ssid);
}
