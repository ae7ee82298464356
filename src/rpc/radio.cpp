#include "api/radio.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_max_bitrate_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_max_bitrate>(__func__, wlan_getMaxBitRate, "[maxBitRate %s]\n", index,
                                                     result);
}

int wlan_set_max_bitrate_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setMaxBitRate, "[maxBitRate=%s]\n", index, value, result);
}

int wlan_get_radio_enabled_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getRadioEnabled, "[enabled = %d ]\n", index, result);
}

int wlan_set_radio_enabled_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setRadioEnabled, "[enabled=%d]\n", index, value, result);
}

int wlan_get_transmit_power_supported_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_transmit_power_supported>(__func__, wlan_getTransmitPowerSupported,
                                                                  "[power_supported %s]\n", index, result);
}

int wlan_get_transmit_power_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getTransmitPower, "[power = %d ]\n", index, result);
}

int wlan_set_transmit_power_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setTransmitPower, "[power=%d]\n", index, value, result);
}

int wlan_get_auto_rate_fallback_enable_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getAutoRateFallbackEnable, "[enable = %d ]\n", index, result);
}

int wlan_set_auto_rate_fallback_enable_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setAutoRateFallbackEnable, "[enable=%d]\n", index, value, result);
}

int wlan_get_wpa_group_reauth_interval_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWPAGroupReAuthInterval, "[out_uint = %d ]\n", index, result);
}

int wlan_set_wpa_group_reauth_interval_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWPAGroupReAuthInterval, "[reAuthInt=%d]\n", index, value, result);
}

int wlan_get_country_code_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text_by_name<text_size::wlan_get_country_code>(__func__, wlan_getCountryCode, "[name %s]\n",
                                                              index, result);
}

int wlan_set_country_code_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setCountryCode, "[country_code=%s]\n", index, value, result);
}

int wlan_get_bg_protection_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getBGProtection, "[protection = %d ]\n", index, result);
}

int wlan_set_bg_protection_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setBGProtection, "[protection=%d]\n", index, value, result);
}

int wlan_get_beacon_interval_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getBeaconInterval, "[out_uint = %d ]\n", index, result);
}

int wlan_set_beacon_interval_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setBeaconInterval, "[beaconInt=%d]\n", index, value, result);
}

int wlan_get_dtim_period_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getDtimPeriod, "[out_uint = %d ]\n", index, result);
}

int wlan_set_dtim_period_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setDtimPeriod, "[dtimInt=%d]\n", index, value, result);
}

int wlan_get_tx_preamble_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getTxPreamble, "[txPreamble = %d ]\n", index, result);
}

int wlan_set_tx_preamble_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setTxPreamble, "[txPreamble=%d]\n", index, value, result);
}

int wlan_get_rts_threshold_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getRTSThreshold, "[out_uint = %d ]\n", index, result);
}

int wlan_set_rts_threshold_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setRTSThreshold, "[rtsThreshold=%d]\n", index, value, result);
}

int wlan_get_frag_threshold_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getFragThreshold, "[out_uint = %d ]\n", index, result);
}

int wlan_set_frag_threshold_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setFragThreshold, "[fragThreshold=%d]\n", index, value, result);
}

int wlan_get_short_slot_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getShortSlot, "[shortSlot = %d ]\n", index, result);
}

int wlan_set_short_slot_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setShortSlot, "[shortSlot=%d]\n", index, value, result);
}

int wlan_get_tx_burst_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getTxBurst, "[txBurst = %d ]\n", index, result);
}

int wlan_set_tx_burst_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setTxBurst, "[txBurst=%d]\n", index, value, result);
}

int wlan_get_short_retry_limit_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getShortRetryLimit, "[out_uint = %d ]\n", index, result);
}

int wlan_set_short_retry_limit_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setShortRetryLimit, "[shortLimit=%d]\n", index, value, result);
}

int wlan_get_long_retry_limit_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getLongRetryLimit, "[out_uint = %d ]\n", index, result);
}

int wlan_set_long_retry_limit_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setLongRetryLimit, "[longLimit=%d]\n", index, value, result);
}

// (Its line says nProtection, and readers of the log know it so.)
int wlan_get_wpa_preauth_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWPAPreAuth, "[nProtection = %d ]\n", index, result);
}

int wlan_set_wpa_preauth_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWPAPreAuth, "[preAuth=%d]\n", index, value, result);
}

// (Its line says apsd, and readers of the log know it so.)
int wlan_get_bss_isolate_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getBssIsolate, "[apsd = %d ]\n", index, result);
}

int wlan_set_bss_isolate_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setBssIsolate, "[enable=%d]\n", index, value, result);
}

int wlan_get_igmp_snooping_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getIGMPSnooping, "[enable = %d ]\n", index, result);
}

int wlan_set_igmp_snooping_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setIGMPSnooping, "[enable=%d]\n", index, value, result);
}

int wlan_get_acct_interim_interval_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getAcctUpdateInterval, "[out_uint = %d ]\n", index, result);
}

// (Spelled so in the log.)
int wlan_set_acct_interim_interval_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setAcctUpdateInterval, "[AcctInerimInterval=%d]\n", index, value, result);
}

int wlan_set_fcc_14_30_enable_1_svc(bool value, wlan_config_return_code_e *result) {
    say(__func__, Line<int>("[fcc 4-30 enable =%d]\n"), shown(value));
    *result = code_of(wlan_SetFCC1430Enable(value ? 1 : 0));
    return 1;
}
