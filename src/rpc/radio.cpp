#include "api/radio.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_max_bitrate_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<12>(__func__, wlan_getMaxBitRate, "[maxBitRate %s]\n", index, result);
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
    return get_text<64>(__func__, wlan_getTransmitPowerSupported, "[power_supported %s]\n", index, result);
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

int wlan_get_wmm_supported_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWmmSupported, "[supported = %d ]\n", index, result);
}

int wlan_get_wmm_uaspd_supported_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWmmUaspdSupported, "[supported = %d ]\n", index, result);
}

int wlan_get_wmm_uaspd_enable_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWmmUaspdEnable, "[enable = %d ]\n", index, result);
}

int wlan_get_wpa_group_reauth_interval_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWPAGroupReAuthInterval, "[out_uint = %d ]\n", index, result);
}

int wlan_set_wpa_group_reauth_interval_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWPAGroupReAuthInterval, "[reAuthInt=%d]\n", index, value, result);
}

int wlan_get_wmm_apsd_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWMMAPSD, "[apsd = %d ]\n", index, result);
}
