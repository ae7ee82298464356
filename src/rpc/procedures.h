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
int wlan_get_enable_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_enable_1_svc(int index, bool value, wlan_config_return_code_e *result);
int wlan_get_status_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_name_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_bssid_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_max_bitrate_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_max_bitrate_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_ssid_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_ssid_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_beacon_type_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_beacon_type_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_mac_address_control_enabled_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_mac_address_control_enabled_1_svc(int index, int value, wlan_config_return_code_e *result);
int wlan_get_standard_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wep_key_index_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_wep_key_index_1_svc(int index, unsigned value, wlan_config_return_code_e *result);
int wlan_get_wep_key_passphrase_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_wep_key_passphrase_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_encryption_level_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_basic_encryption_modes_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_basic_encryption_modes_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_basic_authentication_modes_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_basic_authentication_modes_1_svc(int index, const char *value,
                                              wlan_config_return_code_e *result);
int wlan_get_wpa_encryption_modes_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_wpa_encryption_modes_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_wpa_authentication_modes_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_wpa_authentication_modes_1_svc(int index, const char *value, wlan_config_return_code_e *result);
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
int wlan_get_basic_stats_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_stats_1_svc(int index, unsigned stats_type, wlan_config_result_data_t *result);
int wlan_get_assoc_devices_num_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_assoc_device_1_svc(int index, int dev_index, wlan_config_result_data_t *result);
int wlan_get_wep_key_1_svc(int index, int key_index, wlan_config_result_data_t *result);
int wlan_set_wep_key_1_svc(int index, int key_index, const char *value, wlan_config_return_code_e *result);
int wlan_get_pre_shared_key_1_svc(int index, int key_index, wlan_config_result_data_t *result);
int wlan_set_pre_shared_key_1_svc(int index, int key_index, const char *value,
                                  wlan_config_return_code_e *result);
int wlan_get_key_passphrase_1_svc(int index, int key_index, wlan_config_result_data_t *result);
int wlan_set_key_passphrase_1_svc(int index, int key_index, const char *value,
                                  wlan_config_return_code_e *result);
int wlan_get_wmm_supported_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wmm_uaspd_supported_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wmm_uaspd_enable_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wps_enable_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_wps_enable_1_svc(int index, bool value, wlan_config_return_code_e *result);
int wlan_get_wps_device_name_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wps_device_password_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_wps_device_password_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_wps_uuid_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wps_version_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wps_config_methods_supported_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wps_config_methods_enabled_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_wps_config_methods_enabled_1_svc(int index, const char *value,
                                              wlan_config_return_code_e *result);
int wlan_get_wps_setup_locked_state_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wps_setup_lock_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_wps_setup_lock_1_svc(int index, bool value, wlan_config_return_code_e *result);
int wlan_get_wps_configuration_state_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wps_last_configuration_error_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wps_registrar_entries_num_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wps_registrar_established_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wps_registrar_enabled_1_svc(int index, int registrar_index, wlan_config_result_data_t *result);
int wlan_set_wps_registrar_enabled_1_svc(int index, int registrar_index, bool value,
                                         wlan_config_return_code_e *result);
int wlan_get_wps_registrar_uuid_1_svc(int index, int registrar_index, wlan_config_result_data_t *result);
int wlan_get_wps_registrar_device_name_1_svc(int index, int registrar_index,
                                             wlan_config_result_data_t *result);
int wlan_set_mac_address_control_clear_1_svc(int index, wlan_config_return_code_e *result);
int wlan_set_mac_address_control_add_1_svc(int index, const char *mac, const char *name,
                                           wlan_config_return_code_e *result);
int wlan_set_mac_address_control_delete_1_svc(int index, const char *mac, wlan_config_return_code_e *result);
int wlan_get_mac_address_control_list_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_mac_address_control_count_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_standard_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_set_wep_encryption_level_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_set_wps_cancel_1_svc(int index, wlan_config_return_code_e *result);
int wlan_set_wps_uuid_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_wpa_group_reauth_interval_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_wpa_group_reauth_interval_1_svc(int index, unsigned value, wlan_config_return_code_e *result);
int wlan_get_wmm_apsd_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wps_mode_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_wps_mode_1_svc(int index, bool value, wlan_config_return_code_e *result);
int wlan_get_wps_model_name_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_wps_model_name_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_wps_result_status_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wps_status_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_wps_config_timeout_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_wps_config_timeout_1_svc(int index, unsigned value, wlan_config_return_code_e *result);
int wlan_set_wps_pushbutton_1_svc(int index, wlan_config_return_code_e *result);
int wlan_set_wps_pinstart_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_set_restore_defaults_1_svc(int index, wlan_config_return_code_e *result);
int wlan_get_custom_ssid_str_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_custom_ssid_str_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_set_wps_oob_1_svc(int index, wlan_config_return_code_e *result);
int wlan_get_radius_server_address_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_radius_server_address_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_radius_server_port_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_radius_server_port_1_svc(int index, int value, wlan_config_return_code_e *result);
int wlan_get_radius_server_key_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_radius_server_key_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_radius_reauth_interval_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_radius_reauth_interval_1_svc(int index, int value, wlan_config_return_code_e *result);
int wlan_restart_all_1_svc(wlan_config_return_code_e *result);
int wlan_restart_1_svc(int index, wlan_config_return_code_e *result);
int wlan_get_ap_scan_num_of_entries_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_ap_scan_result_1_svc(int index, wlan_config_result_data_t *result);
int wlan_ap_scan_1_svc(int index, wlan_config_result_data_t *result);
int wlan_ap_auto_channel_select_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_assoc_devices_table_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_assoc_devices_table_num_of_entries_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_ap_scan_status_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_air_time_management_stats_1_svc(int index, int arg1, int arg2,
                                             wlan_config_result_data_t *result);
int wlan_get_frames_in_queue_data_1_svc(int index, int arg1, int arg2, wlan_config_result_data_t *result);
int wlan_get_rate_adapt_data_1_svc(int index, int sta_num, wlan_config_result_data_t *result);
int wlan_set_air_time_bssid_weight_1_svc(int index, int weight, wlan_config_return_code_e *result);
int wlan_get_air_time_bssid_weight_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_air_time_sta_weight_1_svc(int index, const char *mac, int weight,
                                       wlan_config_return_code_e *result);
int wlan_del_air_time_sta_weight_1_svc(int index, const char *mac, wlan_config_return_code_e *result);
int wlan_get_air_time_sta_weight_1_svc(int index, const char *mac, wlan_config_result_data_t *result);
int wlan_get_bss_air_time_management_info_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_channel_statistics_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_channel_noise_floor_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_radio_tx_packets_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_radio_rx_packets_1_svc(int index, wlan_config_result_data_t *result);
int wlan_get_retransmission_metric_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_rad_stat_enable_1_svc(int index, int enable, int rit, int mit,
                                   wlan_config_return_code_e *result);
int wlan_get_rssi_table_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_noise_floor_type_1_svc(int type, wlan_config_return_code_e *result);
int wlan_get_acct_server_address_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_acct_server_address_1_svc(int index, const char *value, wlan_config_return_code_e *result);
int wlan_get_acct_server_port_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_acct_server_port_1_svc(int index, int value, wlan_config_return_code_e *result);
int wlan_get_acct_server_key_1_svc(int index, wlan_config_result_data_t *result);
int wlan_set_acct_server_key_1_svc(int index, const char *value, wlan_config_return_code_e *result);
