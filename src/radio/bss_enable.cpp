#include "radio/bss_enable.h"

#include "backend/config_store.h"
#include "backend/driver_channel.h"
#include "backend/interfaces.h"
#include "backend/lifecycle.h"
#include "backend/log.h"
#include "backend/shell.h"
#include "backend/text.h"
#include "backend/value_lists.h"

#include <algorithm>
#include <array>
#include <string>

namespace {

constexpr char enabled_key[] = "BssEnabled";

// A BSS with its index and those of its radio.
struct RadioBss : Bss {
    int index;
    unsigned first, last;
};

Status find_on_radio(const char *who, int index, RadioBss *ret_bss) {
    ret_bss->index = index;
    if (find_bss(who, index, ret_bss) != success)
        return failure;
    return ZAV_GetNumberOfEntriesPerInf(&ret_bss->first, &ret_bss->last, index);
}

Status read_transmitter(const char *who, const Bss &bss, bool *ret_is_on) {
    std::array<char, 16> text;
    int number = 0;
    if (nvram_get_str(bss, "ZvTxEn", text) != success)
        return failure;
    (void)scan_number(text.data(), &number);
    log_debug("[ZAV-API] %s ZvTxEn=%d\n", who, number);
    *ret_is_on = number != 0;
    return success;
}

// Up first: the radio is never without an interface.
Status swap_interfaces(int up, int down) {
    return ZAV_InterfaceUp(up) != success ? failure : ZAV_InterfaceDown(down);
}

Status switch_on(const RadioBss &bss, int enabled_on_band, bool transmitter_is_on) {
    const int first = static_cast<int>(bss.first);
    Status result = success;
    if (enabled_on_band != 1)
        result = ZAV_InterfaceUp(bss.index);
    else if (bss.index != first)
        result = swap_interfaces(bss.index, first);
    if (result != success || !transmitter_is_on)
        return result;
    return ZAV_Set(bss.index, "ZvTxEn=1");
}

Status switch_off(const RadioBss &bss, int enabled_on_band) {
    const int first = static_cast<int>(bss.first);
    if (enabled_on_band > 0)
        return ZAV_InterfaceDown(bss.index);
    if (ZAV_Set(bss.index, "ZvTxEn=0") != success)
        return failure;
    return bss.index == first ? success : swap_interfaces(first, bss.index);
}

std::string custom_ssid_key(const Bss &bss) { return "SSID_Prefix" + std::to_string(bss.number); }

} // namespace

Status ZAV_GetEnable(int index, unsigned *ret_enable) {
    Bss bss;
    int enable = 0;
    if (find_bss(__func__, index, &bss) != success ||
        read_list_number(bss, enabled_key, bss.number, &enable) != success)
        return failure;
    *ret_enable = static_cast<unsigned>(enable);
    return success;
}

Status ZAV_SetEnable(int index, unsigned enable) {
    RadioBss bss;
    if (find_on_radio(__func__, index, &bss) != success)
        return failure;
    if (const Status stored = change_list_number(bss, enabled_key, bss.number, static_cast<int>(enable));
        stored != success)
        return stored;
    const int enabled_on_band = getBssEnabledOnBand(index);
    if (!driver_is(DriverState::loaded))
        return success;
    bool transmitter_is_on = false;
    if (read_transmitter(__func__, bss, &transmitter_is_on) != success)
        return failure;
    const Status switched =
        enable != 0 ? switch_on(bss, enabled_on_band, transmitter_is_on) : switch_off(bss, enabled_on_band);
    return switched != success ? failure : restartRadiusDaemon();
}

int getBssEnabledOnBand(int index) {
    RadioBss bss;
    NumberList list;
    if (find_on_radio(__func__, index, &bss) != success || read_numbers(bss, enabled_key, list) != success)
        return -1;
    const unsigned bss_on_band = bss.last - bss.first + 1;
    log_debug("[ZAV-API] %s bss_on_band=%d\n", __func__, static_cast<int>(bss_on_band));
    const auto end = list.begin() + std::min(bss_on_band, list_fields);
    const int enabled = static_cast<int>(std::count(list.begin(), end, 1));
    log_debug("[ZAV-API] %s num_of_enabled_bss=%d\n", __func__, enabled);
    return enabled;
}

Status restartRadiusDaemon() {
    if (!driver_is(DriverState::loaded))
        return failure;
    return run_command(__func__, host_command("rtdot1xd", script_word(interfaces_up())).c_str());
}

Status ZAV_SetRestoreDefaults(int index) {
    log_debug("[ZAV-API] %s entry.\n", __func__);
    Bss bss;
    if (find_bss(__func__, index, &bss) != success)
        return failure;
    return run_command(__func__, bss.radio == Radio::band_24g
                                     ? "$zav_install_dir/restore_defaults.sh ZAV750 24"
                                     : "$zav_install_dir/restore_defaults.sh ZAV750 5");
}

Status ZAV_GetCustomSSIDStr(int index, std::span<char> ret_ssid) {
    log_debug("[ZAV-API] %s entry (%d).\n", __func__, index);
    Bss bss;
    if (find_bss(index, &bss) != success || nvram_get_str(bss, custom_ssid_key(bss), ret_ssid) != success)
        return failure;
    log_debug("[ZAV-API] %s (%s).\n", __func__, ret_ssid.data());
    return success;
}

Status ZAV_SetCustomSSIDStr(int index, const char *ssid) {
    log_debug("[ZAV-API] %s entry (%d,%s).\n", __func__, index, ssid);
    Bss bss;
    return find_bss(index, &bss) == success ? nvram_set_str(bss, custom_ssid_key(bss), ssid) : failure;
}
