#include "backend/bss_identity.h"

#include "backend/config_store.h"
#include "backend/driver_channel.h"
#include "backend/interfaces.h"
#include "backend/log.h"
#include "backend/text.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <net/if.h>
#include <string>
#include <strings.h>
#include <utility>

namespace {

constexpr std::size_t longest_ssid = 32;

// Scratch of ZAV_GetBSSIDPort: a slot for each possible index.
using BssidText = std::array<char, 20>;
std::array<BssidText, std::size_t{2} * most_bss_in_a_band> bss_table;

// The mask of the locally administered rule leaves the first octet as many bits as the BSSes need.
unsigned mask_for(int bss_count) {
    constexpr std::pair<int, unsigned> masks[] = {{2, 0xFE}, {4, 0xFC}, {8, 0xF8}, {16, 0xF0}};
    for (const auto &[most, mask] : masks)
        if (bss_count <= most)
            return mask;
    return 0;
}

// Six pairs of hexadecimal digits; what stands behind them does not matter.
bool scan_address(const char *text, std::array<unsigned, 6> *ret_octets) {
    for (unsigned &octet : *ret_octets) {
        if (&octet != ret_octets->begin() && *text++ != ':')
            return false;
        const auto [end, error] = std::from_chars(text, text + strnlen(text, 2), octet, 16);
        if (error != std::errc{})
            return false;
        text = end;
    }
    return true;
}

// Turns the base address in `bssid` into that of the BSS, from the second on.
Status derive_bssid(const char *who, int rule, int bss_count, unsigned bss, std::span<char> bssid) {
    std::array<unsigned, 6> octet{};
    const unsigned mask = mask_for(bss_count);
    if (rule != 0 && rule != 1) {
        log_error("[ZAV-API] Error %s invalid MbssidByLAM value\n", who);
        return failure;
    }
    if ((rule == 1 && mask == 0) || !scan_address(bssid.data(), &octet))
        return failure;
    if (rule == 1)
        octet[0] = ((octet[0] | 0x02) & (mask * 4 + 3)) + (bss - 2) * 4;
    else
        octet[5] += bss - 1;
    std::snprintf(bssid.data(), bssid.size(), "%02X:%02X:%02X:%02X:%02X:%02X", octet[0], octet[1], octet[2],
                  octet[3], octet[4], octet[5]);
    return success;
}

std::string ssid_key(const Bss &bss) { return "SSID" + std::to_string(bss.number); }

} // namespace

Status ZAV_GetStatus(int index, std::span<char> ret_status) {
    log_debug("[ZAV-API] %s entry (index=%d).\n", __func__, index);
    if (check_driver(__func__, DriverState::initialised) != success)
        return failure;
    Bss bss;
    unsigned flags = 0;
    if (find_bss(index, &bss) != success)
        return failure;
    switch (ask_flags(bss.name, &flags)) {
    case Asked::no_socket:
        log_error("[ZAV-API] Error %s socket failed", __func__);
        return failure;
    case Asked::refused:
        log_error("[ZAV-API] Error %s ioctl failed %s (%d).\n", __func__, strerror(errno), errno);
        copy_text(ret_status, "Error");
        return success;
    case Asked::answered:
        break;
    }
    log_debug("[ZAV-API] %s %s flags=%Xh.\n", __func__, bss.name.data(), flags);
    copy_text(ret_status, (flags & (IFF_UP | IFF_RUNNING)) != 0 ? "Up" : "Disabled");
    return success;
}

Status ZAV_GetSSID(int index, std::span<char> ret_ssid) {
    Bss bss;
    if (find_bss(__func__, index, &bss) != success || nvram_get_str(bss, ssid_key(bss), ret_ssid) != success)
        return failure;
    log_debug("[ZAV-API] %s (%s).\n", __func__, ret_ssid.data());
    return success;
}

Status ZAV_SetSSID(int index, const char *ssid) {
    Bss bss;
    if (find_bss(__func__, index, &bss) != success)
        return failure;
    std::array<char, longest_ssid + 1> stored;
    if (nvram_get_str(bss, ssid_key(bss), stored) == success &&
        std::strncmp(stored.data(), ssid, longest_ssid) == 0)
        return unchanged;
    return nvram_set_str(bss, ssid_key(bss), ssid);
}

Status ZAV_GetBSSID(int index, std::span<char> ret_bssid) {
    Bss bss;
    if (find_bss(index, &bss) != success)
        return failure;
    int rule = -1, bss_count = 0;
    copy_text(ret_bssid, "");
    (void)nvram_get_int(bss, "MbssidByLAM", &rule);
    (void)nvram_get_str(bss, "WL_MACADDR0", ret_bssid);
    (void)nvram_get_int(bss, "BssidNum", &bss_count);
    if (bss.number > 1 && derive_bssid(__func__, rule, bss_count, bss.number, ret_bssid) != success) {
        copy_text(ret_bssid, "");
        return failure;
    }
    log_debug("[ZAV-API] %s bssid for index %d is %s.\n", __func__, index, ret_bssid.data());
    return success;
}

Status ZAV_GetBSSIDPort(const char *bssid, unsigned *ret_port, unsigned *ret_index) {
    *ret_port = 0;
    const unsigned total = refresh_counts().total();
    for (unsigned index = 1; index <= total; ++index) {
        BssidText &slot = bss_table.at(index - 1);
        if (ZAV_GetBSSID(static_cast<int>(index), slot) != success || slot[0] == '\0' ||
            strcasecmp(slot.data(), bssid) != 0)
            continue;
        *ret_index = index;
        return success;
    }
    return failure;
}
