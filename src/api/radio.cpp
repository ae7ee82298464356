#include "api/radio.h"

#include "api/wrapper.h"
#include "backend/driver_channel.h"
#include "backend/text.h"
#include "radio/radio.h"

#include <array>
#include <cstdio>

namespace {

// The settings file is what counts: a driver that refuses the command gets the value at its next start.
Status set_live_key(const char *who, const char *key, const Line<int> &command,
                    api::ValueLine<unsigned> entry, api::SuccessLine<unsigned> line, int index,
                    unsigned value) {
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

Status wlan_getWPAGroupReAuthInterval(int index, unsigned *ret_interval) {
    return get_key(__func__, "GroupRekeyInterval", 0, "interval is %d\n", index, ret_interval);
}

Status wlan_setWPAGroupReAuthInterval(int index, unsigned interval) {
    return set_key(__func__, "GroupRekeyInterval", "reAuthInt=%u\n", "interval set to:%d\n", index, interval);
}

Status wlan_getCountryCode(int index, std::span<char> ret_code) {
    return get(__func__, ZAV_GetCountryCode, "country code is %s\n", index, ret_code);
}

Status wlan_setCountryCode(int index, const char *code) {
    return set(__func__, ZAV_SetCountryCode, "countryCode=%s\n", "country code set to:%s\n", index, code);
}

Status wlan_getBGProtection(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetBGProtection, "bg protection is %d\n", index, ret_enable);
}

Status wlan_setBGProtection(int index, unsigned enable) {
    return set(__func__, ZAV_SetBGProtection, "protection=%u\n", "bg protection set to:%d\n", index, enable);
}

Status wlan_getBeaconInterval(int index, unsigned *ret_interval) {
    return get(__func__, ZAV_GetBeaconInterval, "beacon interval is %d\n", index, ret_interval);
}

Status wlan_setBeaconInterval(int index, unsigned interval) {
    return set(__func__, ZAV_SetBeaconInterval, "beaconInt=%u\n", "beacon interval set to:%d\n", index,
               interval);
}

Status wlan_getDtimPeriod(int index, unsigned *ret_period) {
    return get(__func__, ZAV_GetDtimPeriod, "dtim period is %d\n", index, ret_period);
}

Status wlan_setDtimPeriod(int index, unsigned period) {
    return set(__func__, ZAV_SetDtimPeriod, "dtimInt=%u\n", "dtim period set to:%d\n", index, period);
}

Status wlan_getTxPreamble(int index, unsigned *ret_preamble) {
    return get(__func__, ZAV_GetTxPreamble, "tx preamble is %d\n", index, ret_preamble);
}

Status wlan_setTxPreamble(int index, unsigned preamble) {
    return set(__func__, ZAV_SetTxPreamble, "txPreamble=%u\n", "tx preamble set to:%d\n", index, preamble);
}

Status wlan_getRTSThreshold(int index, unsigned *ret_threshold) {
    return get(__func__, ZAV_GetRTSThreshold, "rts threshold is %d\n", index, ret_threshold);
}

Status wlan_setRTSThreshold(int index, unsigned threshold) {
    return set(__func__, ZAV_SetRTSThreshold, "rtsThreshold=%u\n", "rts threshold set to:%d\n", index,
               threshold);
}

Status wlan_getFragThreshold(int index, unsigned *ret_threshold) {
    return get(__func__, ZAV_GetFragThreshold, "frag threshold is %d\n", index, ret_threshold);
}

Status wlan_setFragThreshold(int index, unsigned threshold) {
    return set(__func__, ZAV_SetFragThreshold, "fragThreshold=%u\n", "frag threshold set to:%d\n", index,
               threshold);
}

Status wlan_getShortSlot(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetShortSlot, "short slot is %d\n", index, ret_enable);
}

Status wlan_setShortSlot(int index, unsigned enable) {
    return set(__func__, ZAV_SetShortSlot, "shortSlot=%u\n", "short slot set to:%d\n", index, enable);
}

Status wlan_getTxBurst(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetTxBurst, "tx burst is %d\n", index, ret_enable);
}

Status wlan_setTxBurst(int index, unsigned enable) {
    return set(__func__, ZAV_SetTxBurst, "enable=%u\n", "tx burst set to:%d\n", index, enable);
}

Status wlan_getShortRetryLimit(int index, unsigned *ret_limit) {
    return get(__func__, ZAV_GetShortRetryLimit, "short retry limit is %d\n", index, ret_limit);
}

Status wlan_setShortRetryLimit(int index, unsigned limit) {
    return set(__func__, ZAV_SetShortRetryLimit, "shortLimit=%u\n", "short retry limit set to:%d\n", index,
               limit);
}

Status wlan_getLongRetryLimit(int index, unsigned *ret_limit) {
    return get(__func__, ZAV_GetLongRetryLimit, "long retry limit is %d\n", index, ret_limit);
}

Status wlan_setLongRetryLimit(int index, unsigned limit) {
    return set(__func__, ZAV_SetLongRetryLimit, "longLimit=%u\n", "long retry limit set to:%d\n", index,
               limit);
}

Status wlan_getWPAPreAuth(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetWPAPreAuth, "wpa preauth is %d\n", index, ret_enable);
}

Status wlan_setWPAPreAuth(int index, unsigned enable) {
    return set(__func__, ZAV_SetWPAPreAuth, "preAuth=%u\n", "wpa preauth set to:%d\n", index, enable);
}

Status wlan_getBssIsolate(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetBssIsolate, "bss isolate is %d\n", index, ret_enable);
}

Status wlan_setBssIsolate(int index, unsigned enable) {
    return set(__func__, ZAV_SetBssIsolate, "enable=%u\n", "bss isolate set to:%d\n", index, enable);
}

Status wlan_getIGMPSnooping(int index, unsigned *ret_enable) {
    return get_with_code(__func__, ZAV_GetIGMPSnooping, "igmp snooping is %d\n", index, ret_enable);
}

Status wlan_setIGMPSnooping(int index, unsigned enable) {
    return set(__func__, ZAV_SetIGMPSnooping, "enable=%u\n", "igmp snooping set to:%d\n", index, enable);
}

Status wlan_getAcctUpdateInterval(int index, unsigned *ret_interval) {
    return get(__func__, ZAV_GetAcctUpdateInterval, "acct update interval is %d\n", index, ret_interval);
}

Status wlan_setAcctUpdateInterval(int index, unsigned interval) {
    return set(__func__, ZAV_SetAcctUpdateInterval, "interval=%u\n", "acct update interval set to:%d\n",
               index, interval);
}

Status wlan_SetFCC1430Enable(unsigned enable) {
    const Status result = ZAV_SetFCC_14_30_Enable(enable);
    if (result == failure)
        log_error("[ZAV-API] Error %s int wlan_SetFCC1430Enable failed !!!\n", __func__);
    else
        log_debug("[ZAV-API] %s FCC 14/30 set to:%u\n", __func__, enable);
    return getter_code(result);
}

Status wlan_getRadioStats(int index) {
    log_debug("[ZAV-API] %s %s: index=%d\n", __func__, __func__, index);
    return success;
}
