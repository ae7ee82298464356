#include "radio/radio.h"

#include "radio/kinds.h"

constexpr RadioText country_code{"CountryCode"};
Status ZAV_GetCountryCode(int index, std::span<char> ret_code) {
    return read_setting(__func__, country_code, index, ret_code);
}
Status ZAV_SetCountryCode(int index, const char *code) {
    return write_setting(__func__, country_code, index, code);
}

constexpr RadioFlag bg_protection{.key = "BGProtection", .on = "0", .off = "2"};
Status ZAV_GetBGProtection(int index, unsigned *ret_enable) {
    return read_setting(__func__, bg_protection, index, ret_enable);
}
Status ZAV_SetBGProtection(int index, unsigned enable) {
    return write_setting(__func__, bg_protection, index, enable);
}

constexpr RadioNumber beacon_interval{"BeaconPeriod"};
Status ZAV_GetBeaconInterval(int index, unsigned *ret_interval) {
    return read_setting(__func__, beacon_interval, index, ret_interval);
}
Status ZAV_SetBeaconInterval(int index, unsigned interval) {
    return write_setting(__func__, beacon_interval, index, interval);
}

constexpr RadioNumber acct_update_interval{"Acct_Interim_Interval"};
Status ZAV_GetAcctUpdateInterval(int index, unsigned *ret_interval) {
    return read_setting(__func__, acct_update_interval, index, ret_interval);
}
Status ZAV_SetAcctUpdateInterval(int index, unsigned interval) {
    return write_setting(__func__, acct_update_interval, index, interval);
}

constexpr RadioNumber dtim_period{"DtimPeriod"};
Status ZAV_GetDtimPeriod(int index, unsigned *ret_period) {
    return read_setting(__func__, dtim_period, index, ret_period);
}
Status ZAV_SetDtimPeriod(int index, unsigned period) {
    return write_setting(__func__, dtim_period, index, period);
}

constexpr RadioFlag tx_preamble{"TxPreamble"};
Status ZAV_GetTxPreamble(int index, unsigned *ret_preamble) {
    return read_setting(__func__, tx_preamble, index, ret_preamble);
}
Status ZAV_SetTxPreamble(int index, unsigned preamble) {
    return write_setting(__func__, tx_preamble, index, preamble);
}

constexpr RadioNumber rts_threshold{"RTSThreshold"};
Status ZAV_GetRTSThreshold(int index, unsigned *ret_threshold) {
    return read_setting(__func__, rts_threshold, index, ret_threshold);
}
Status ZAV_SetRTSThreshold(int index, unsigned threshold) {
    return write_setting(__func__, rts_threshold, index, threshold);
}

constexpr RadioNumber frag_threshold{"FragThreshold"};
Status ZAV_GetFragThreshold(int index, unsigned *ret_threshold) {
    return read_setting(__func__, frag_threshold, index, ret_threshold);
}
Status ZAV_SetFragThreshold(int index, unsigned threshold) {
    return write_setting(__func__, frag_threshold, index, threshold);
}

constexpr RadioFlag short_slot{"ShortSlot"};
Status ZAV_GetShortSlot(int index, unsigned *ret_enable) {
    return read_setting(__func__, short_slot, index, ret_enable);
}
Status ZAV_SetShortSlot(int index, unsigned enable) {
    return write_setting(__func__, short_slot, index, enable);
}

constexpr RadioFlag tx_burst{"TxBurst"};
Status ZAV_GetTxBurst(int index, unsigned *ret_enable) {
    return read_setting(__func__, tx_burst, index, ret_enable);
}
Status ZAV_SetTxBurst(int index, unsigned enable) { return write_setting(__func__, tx_burst, index, enable); }

constexpr RadioNumber short_retry_limit{"ShortRetryLimit", Reported::by_isIndexValid};
Status ZAV_GetShortRetryLimit(int index, unsigned *ret_limit) {
    return read_setting(__func__, short_retry_limit, index, ret_limit);
}
Status ZAV_SetShortRetryLimit(int index, unsigned limit) {
    return write_setting(__func__, short_retry_limit, index, limit);
}

constexpr RadioNumber long_retry_limit{"LongRetryLimit", Reported::by_isIndexValid};
Status ZAV_GetLongRetryLimit(int index, unsigned *ret_limit) {
    return read_setting(__func__, long_retry_limit, index, ret_limit);
}
Status ZAV_SetLongRetryLimit(int index, unsigned limit) {
    return write_setting(__func__, long_retry_limit, index, limit);
}

constexpr RadioFlag wpa_preauth{"PreAuth"};
Status ZAV_GetWPAPreAuth(int index, unsigned *ret_enable) {
    return read_setting(__func__, wpa_preauth, index, ret_enable);
}
Status ZAV_SetWPAPreAuth(int index, unsigned enable) {
    return write_setting(__func__, wpa_preauth, index, enable);
}

constexpr RadioFlag bss_isolate{.key = "NoForwardingBTNBSSID", .is_exact = true};
Status ZAV_GetBssIsolate(int index, unsigned *ret_enable) {
    return read_setting(__func__, bss_isolate, index, ret_enable);
}
Status ZAV_SetBssIsolate(int index, unsigned enable) {
    return write_setting(__func__, bss_isolate, index, enable);
}

constexpr RadioFlag igmp_snooping{
    .key = "ZvClassEnable", .is_exact = true, .bad_index = Reported::by_the_operation};
Status ZAV_GetIGMPSnooping(int index, unsigned *ret_enable) {
    return read_setting(__func__, igmp_snooping, index, ret_enable);
}
Status ZAV_SetIGMPSnooping(int index, unsigned enable) {
    return write_setting(__func__, igmp_snooping, index, enable);
}

Status ZAV_SetFCC_14_30_Enable(unsigned enable) {
    return nvram_set_str(settings_5g, "FCC_14_30", enable != 0 ? "1" : "0");
}
