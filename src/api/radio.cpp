#include "api/radio.h"

#include "api/wrapper.h"
#include "backend/driver_channel.h"
#include "backend/text.h"

#include <array>
#include <cstdio>

namespace {

// The settings file is what counts: a driver that refuses the command gets the value at its next start.
Status set_live_key(const char *who, const char *key, const Line<int> &command, ValueLine<unsigned> entry,
                    SuccessLine<unsigned> line, int index, unsigned value) {
    log_entry_with(who, index, entry, value);
    std::array<char, 32> text;
    std::snprintf(text.data(), text.size(), command.text, static_cast<int>(value));
    (void)ZAV_Set(index, text.data());
    return report(who, ZAV_nvram_set_uint32_helper(index, key, static_cast<int>(value)), line, value);
}

} // namespace

Status wlan_getMaxBitRate(int index, std::span<char> ret_rate) {
    log_entry(__func__, index);
    const unsigned rate = ZAV_nvram_get_uint32_helper(index, "MaxBitRate", 11);
    std::snprintf(ret_rate.data(), ret_rate.size(), "%i", static_cast<int>(rate));
    log_debug("[ZAV-API] %s MaxBitRate is:%s.\n", __func__, ret_rate.data());
    return success;
}

Status wlan_setMaxBitRate(int index, const char *rate) {
    log_entry_with(__func__, index, Line<const char *>("maxBitRate=%s\n"), rate);
    return report(__func__, ZAV_nvram_set_str_helper(index, "MaxBitRate", rate), "MaxBitRate set to:%s.\n",
                  rate);
}

Status wlan_getRadioEnabled(int index, unsigned *ret_enable) {
    *ret_enable = ZAV_nvram_get_uint32_helper(index, "ZvTxEn", 1);
    return success;
}

Status wlan_setRadioEnabled(int index, unsigned enable) {
    return set_live_key(__func__, "ZvTxEn", "ZvTxEn=%d", "enable=%u\n", "enable set to:%d\n", index, enable);
}

Status wlan_getTransmitPower(int index, unsigned *ret_power) {
    return get_key(__func__, "TxPower", 100, "power is %d\n", index, ret_power);
}

Status wlan_setTransmitPower(int index, unsigned power) {
    return set_live_key(__func__, "TxPower", "TxPower=%d", "power=%u\n", "power set to:%d\n", index, power);
}

Status wlan_getTransmitPowerSupported(int index, std::span<char> ret_list) {
    log_entry(__func__, index);
    copy_text(ret_list, "0,12,25,37,50,62,75,87,100");
    return success;
}

Status wlan_getAutoRateFallbackEnable(int index, unsigned *ret_enable) {
    return get_key(__func__, "AutoRateFallback", 1, "enable is %i.\n", index, ret_enable);
}

Status wlan_setAutoRateFallbackEnable(int index, unsigned enable) {
    return set_key(__func__, "AutoRateFallback", "enable=%u\n", "enable set to:%d\n", index, enable);
}

Status wlan_getWmmSupported(int index, unsigned *ret_supported) {
    return get_key(__func__, "WmmCapable", 0, "supported is %i.\n", index, ret_supported);
}

Status wlan_getWmmUaspdSupported(int index, unsigned *ret_supported) {
    return get_key(__func__, "APSDCapable", 0, "supported is %i.\n", index, ret_supported);
}

Status wlan_getWmmUaspdEnable(int index, unsigned *ret_enable) {
    return get_key(__func__, "APSDCapable", 0, "enable is %i.\n", index, ret_enable);
}

Status wlan_getWMMAPSD(int index, unsigned *ret_enable) {
    return get(__func__, wlan_getWmmUaspdEnable, "apsd is: %d\n", index, ret_enable);
}

Status wlan_getWPAGroupReAuthInterval(int index, unsigned *ret_interval) {
    return get_key(__func__, "GroupRekeyInterval", 0, "interval is %d\n", index, ret_interval);
}

Status wlan_setWPAGroupReAuthInterval(int index, unsigned interval) {
    return set_key(__func__, "GroupRekeyInterval", "reAuthInt=%u\n", "interval set to:%d\n", index, interval);
}

Status wlan_getRadioStats(int index) {
    log_debug("[ZAV-API] %s %s: index=%d\n", __func__, __func__, index);
    return success;
}
