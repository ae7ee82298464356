#pragma once

#include "rpc/records.h"

// The server procedures, in the order of their numbers.

int wlan_load_1_svc(int flags, wlan_config_return_code_e *result);
int wlan_init_1_svc(wlan_config_return_code_e *result);
int wlan_reset_1_svc(wlan_config_return_code_e *result);
int wlan_get_number_of_entries_1_svc(wlan_config_result_data_t *result);
int wlan_add_entry_1_svc(wlan_config_result_data_t *result);
int wlan_del_entry_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_bssid_port_1_svc(const char *bssid, wlan_config_result_data_t *result);
int wlan_associate_vlan_1_svc(const char *bssid, unsigned short vlan, wlan_config_return_code_e *result);
int wlan_get_status_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_name_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_bssid_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_max_bitrate_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_max_bitrate_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_ssid_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_ssid_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_basic_data_transmit_rates_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_basic_data_transmit_rates_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_operational_data_transmit_rates_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_operational_data_transmit_rates_1_svc(int index, const char *value,
                                                   wlan_config_return_code_e *result);
int wlan_get_possible_data_transmit_rates_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_radio_enabled_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_radio_enabled_1_svc(int index, bool value, wlan_config_return_code_e *result);
int wlan_get_transmit_power_supported_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_transmit_power_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_transmit_power_1_svc(int index, unsigned value, wlan_config_return_code_e *result);
int wlan_get_auto_rate_fallback_enable_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_auto_rate_fallback_enable_1_svc(int index, bool value, wlan_config_return_code_e *result);
int wlan_get_wmm_supported_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wmm_uaspd_supported_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wmm_uaspd_enable_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wpa_group_reauth_interval_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_wpa_group_reauth_interval_1_svc(int index, unsigned value, wlan_config_return_code_e *result);
int wlan_get_wmm_apsd_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_wps_model_name_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_wps_config_timeout_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_wps_config_timeout_1_svc(int index, unsigned value, wlan_config_return_code_e *result);
int wlan_restart_all_1_svc(wlan_config_return_code_e *result);
int wlan_restart_1_svc(int index, wlan_config_return_code_e *result);
int wlan_get_ap_scan_num_of_entries_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_ap_scan_result_1_svc(int index, wlan_config_result_data_t *result);
int wlan_ap_scan_1_svc(int index, wlan_config_result_data_t *result);
int wlan_ap_auto_channel_select_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_ap_scan_status_1_svc(int index, wlan_config_result_data_t *result);
