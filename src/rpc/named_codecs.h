#pragma once

#include "rpc/codec.h"

// The protocol's codecs by name: each encodes, decodes or frees its record by the stream's mode; TRUE or
// FALSE.

// clang-format off: one line each, however long the name
inline bool_t xdr_wlan_config_return_code_e(XDR *x, wlan_config_return_code_e *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_config_result_data_t(XDR *x, wlan_config_result_data_t *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_basicStats_t(XDR *x, wlan_basicStats_t *record) { return item(x, *record); }
inline bool_t xdr_wlan_stats_t(XDR *x, wlan_stats_t *record) { return item(x, *record); }
inline bool_t xdr_wlan_device_t(XDR *x, wlan_device_t *record) { return item(x, *record); }
inline bool_t xdr_wlan_device_result_data_t(XDR *x, wlan_device_result_data_t *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_assoc_devices_table(XDR *x, wlan_assoc_devices_table *record) {
    return item(x, *record);
}
inline bool_t xdr_scan_entry(XDR *x, scan_entry *record) { return item(x, *record); }
inline bool_t xdr_scan_table(XDR *x, scan_table *record) { return item(x, *record); }
inline bool_t xdr_AirTimeStats(XDR *x, AirTimeStats *record) { return item(x, *record); }
inline bool_t xdr_SchSRateAdaptPERStats(XDR *x, SchSRateAdaptPERStats *record) { return item(x, *record); }
inline bool_t xdr_RateData(XDR *x, RateData *record) { return item(x, *record); }
inline bool_t xdr_FramesInQueueData(XDR *x, FramesInQueueData *record) { return item(x, *record); }
inline bool_t xdr_InfSMacAddr(XDR *x, InfSMacAddr *record) { return item(x, *record); }
inline bool_t xdr_SchMacAddrWeight(XDR *x, SchMacAddrWeight *record) { return item(x, *record); }
inline bool_t xdr_MacWeightData(XDR *x, MacWeightData *record) { return item(x, *record); }
inline bool_t xdr_BSSAirTimeManagementInfo(XDR *x, BSSAirTimeManagementInfo *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_wlan_stats_1_argument(XDR *x, wlan_get_wlan_stats_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_associate_vlan_1_argument(XDR *x, wlan_associate_vlan_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_enable_1_argument(XDR *x, wlan_set_enable_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_max_bitrate_1_argument(XDR *x, wlan_set_max_bitrate_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_channel_1_argument(XDR *x, wlan_set_channel_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_auto_channel_enable_1_argument(XDR *x,
                                                          wlan_set_auto_channel_enable_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_ssid_1_argument(XDR *x, wlan_set_ssid_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_beacon_type_1_argument(XDR *x, wlan_set_beacon_type_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_mac_address_control_enabled_1_argument(XDR *x,
                                                    wlan_set_mac_address_control_enabled_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wep_key_index_1_argument(XDR *x, wlan_set_wep_key_index_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wep_key_passphrase_1_argument(XDR *x,
                                                         wlan_set_wep_key_passphrase_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_basic_encryption_modes_1_argument(XDR *x, wlan_set_basic_encryption_modes_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_basic_authentication_modes_1_argument(XDR *x,
                                                   wlan_set_basic_authentication_modes_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wpa_encryption_modes_1_argument(XDR *x,
                                                           wlan_set_wpa_encryption_modes_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_wpa_authentication_modes_1_argument(XDR *x,
                                                 wlan_set_wpa_authentication_modes_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_basic_data_transmit_rates_1_argument(XDR *x,
                                                  wlan_set_basic_data_transmit_rates_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_operational_data_transmit_rates_1_argument(
    XDR *x, wlan_set_operational_data_transmit_rates_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_ssid_advertisement_enabled_1_argument(XDR *x,
                                                   wlan_set_ssid_advertisement_enabled_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_radio_enabled_1_argument(XDR *x, wlan_set_radio_enabled_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_transmit_power_1_argument(XDR *x, wlan_set_transmit_power_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_auto_rate_fallback_enable_1_argument(XDR *x,
                                                  wlan_set_auto_rate_fallback_enable_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_assoc_device_1_argument(XDR *x, wlan_get_assoc_device_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_wep_key_1_argument(XDR *x, wlan_get_wep_key_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wep_key_1_argument(XDR *x, wlan_set_wep_key_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_pre_shared_key_1_argument(XDR *x, wlan_get_pre_shared_key_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_pre_shared_key_1_argument(XDR *x, wlan_set_pre_shared_key_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_key_passphrase_1_argument(XDR *x, wlan_get_key_passphrase_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_key_passphrase_1_argument(XDR *x, wlan_set_key_passphrase_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wmm_enable_1_argument(XDR *x, wlan_set_wmm_enable_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wmm_uaspd_enable_1_argument(XDR *x, wlan_set_wmm_uaspd_enable_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_og_aifsn_1_argument(XDR *x, wlan_get_og_aifsn_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_og_aifsn_1_argument(XDR *x, wlan_set_og_aifsn_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_og_ecw_min_1_argument(XDR *x, wlan_get_og_ecw_min_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_og_ecw_min_1_argument(XDR *x, wlan_set_og_ecw_min_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_og_ecw_max_1_argument(XDR *x, wlan_get_og_ecw_max_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_og_ecw_max_1_argument(XDR *x, wlan_set_og_ecw_max_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_og_tx_op_1_argument(XDR *x, wlan_get_og_tx_op_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_og_tx_op_1_argument(XDR *x, wlan_set_og_tx_op_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_og_ack_policy_1_argument(XDR *x, wlan_get_og_ack_policy_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_og_ack_policy_1_argument(XDR *x, wlan_set_og_ack_policy_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_ic_aifsn_1_argument(XDR *x, wlan_get_ic_aifsn_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_ic_aifsn_1_argument(XDR *x, wlan_set_ic_aifsn_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_ic_ecw_min_1_argument(XDR *x, wlan_get_ic_ecw_min_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_ic_ecw_min_1_argument(XDR *x, wlan_set_ic_ecw_min_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_ic_ecw_max_1_argument(XDR *x, wlan_get_ic_ecw_max_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_ic_ecw_max_1_argument(XDR *x, wlan_set_ic_ecw_max_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wps_enable_1_argument(XDR *x, wlan_set_wps_enable_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wps_device_password_1_argument(XDR *x,
                                                          wlan_set_wps_device_password_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_wps_config_methods_enabled_1_argument(XDR *x,
                                                   wlan_set_wps_config_methods_enabled_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wps_setup_lock_1_argument(XDR *x, wlan_set_wps_setup_lock_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_get_wps_registrar_enabled_1_argument(XDR *x, wlan_get_wps_registrar_enabled_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_wps_registrar_enabled_1_argument(XDR *x, wlan_set_wps_registrar_enabled_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_wps_registrar_uuid_1_argument(XDR *x,
                                                         wlan_get_wps_registrar_uuid_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_get_wps_registrar_device_name_1_argument(XDR *x,
                                                  wlan_get_wps_registrar_device_name_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_mac_address_control_add_1_argument(XDR *x, wlan_set_mac_address_control_add_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_mac_address_control_delete_1_argument(XDR *x,
                                                   wlan_set_mac_address_control_delete_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_standard_1_argument(XDR *x, wlan_set_standard_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wep_encryption_level_1_argument(XDR *x,
                                                           wlan_set_wep_encryption_level_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_wmm_ic_tx_op_1_argument(XDR *x, wlan_get_wmm_ic_tx_op_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wmm_ic_tx_op_1_argument(XDR *x, wlan_set_wmm_ic_tx_op_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_wmm_ic_ack_policy_1_argument(XDR *x,
                                                        wlan_get_wmm_ic_ack_policy_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wmm_ic_ack_policy_1_argument(XDR *x,
                                                        wlan_set_wmm_ic_ack_policy_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wps_uuid_1_argument(XDR *x, wlan_set_wps_uuid_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_country_code_1_argument(XDR *x, wlan_set_country_code_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_bg_protection_1_argument(XDR *x, wlan_set_bg_protection_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_beacon_interval_1_argument(XDR *x, wlan_set_beacon_interval_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_acct_interim_interval_1_argument(XDR *x, wlan_set_acct_interim_interval_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_dtim_period_1_argument(XDR *x, wlan_set_dtim_period_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_tx_preamble_1_argument(XDR *x, wlan_set_tx_preamble_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_rts_threshold_1_argument(XDR *x, wlan_set_rts_threshold_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_frag_threshold_1_argument(XDR *x, wlan_set_frag_threshold_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_short_slot_1_argument(XDR *x, wlan_set_short_slot_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_tx_burst_1_argument(XDR *x, wlan_set_tx_burst_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_short_retry_limit_1_argument(XDR *x,
                                                        wlan_set_short_retry_limit_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_long_retry_limit_1_argument(XDR *x, wlan_set_long_retry_limit_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_ht_mcs_1_argument(XDR *x, wlan_set_ht_mcs_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_channel_bw_1_argument(XDR *x, wlan_set_channel_bw_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_ht_mode_1_argument(XDR *x, wlan_set_ht_mode_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_guard_interval_1_argument(XDR *x, wlan_set_guard_interval_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_ams_du_1_argument(XDR *x, wlan_set_ams_du_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_ba_decline_1_argument(XDR *x, wlan_set_ba_decline_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_block_ack_1_argument(XDR *x, wlan_set_block_ack_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_n_protection_1_argument(XDR *x, wlan_set_n_protection_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_wpa_group_reauth_interval_1_argument(XDR *x,
                                                  wlan_set_wpa_group_reauth_interval_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wpa_reauth_interval_1_argument(XDR *x,
                                                          wlan_set_wpa_reauth_interval_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wpa_preauth_1_argument(XDR *x, wlan_set_wpa_preauth_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wmm_apsd_1_argument(XDR *x, wlan_set_wmm_apsd_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wps_mode_1_argument(XDR *x, wlan_set_wps_mode_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wps_model_name_1_argument(XDR *x, wlan_set_wps_model_name_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wps_config_timeout_1_argument(XDR *x,
                                                         wlan_set_wps_config_timeout_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_wps_pinstart_1_argument(XDR *x, wlan_set_wps_pinstart_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_custom_ssid_str_1_argument(XDR *x, wlan_set_custom_ssid_str_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_bss_isolate_1_argument(XDR *x, wlan_set_bss_isolate_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_station_isolate_1_argument(XDR *x, wlan_set_station_isolate_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_side_band_1_argument(XDR *x, wlan_set_side_band_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_radius_server_address_1_argument(XDR *x, wlan_set_radius_server_address_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_radius_server_port_1_argument(XDR *x,
                                                         wlan_set_radius_server_port_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_radius_server_key_1_argument(XDR *x,
                                                        wlan_set_radius_server_key_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_radius_reauth_interval_1_argument(XDR *x, wlan_set_radius_reauth_interval_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_acct_server_address_1_argument(XDR *x,
                                                          wlan_set_acct_server_address_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_acct_server_port_1_argument(XDR *x, wlan_set_acct_server_port_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_acct_server_key_1_argument(XDR *x, wlan_set_acct_server_key_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_ht_tx_stream_1_argument(XDR *x, wlan_set_ht_tx_stream_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_ht_rx_stream_1_argument(XDR *x, wlan_set_ht_rx_stream_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_ht_stbc_1_argument(XDR *x, wlan_set_ht_stbc_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_ht_rdg_1_argument(XDR *x, wlan_set_ht_rdg_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_extension_channel_1_argument(XDR *x,
                                                        wlan_get_extension_channel_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_extension_channel_1_argument(XDR *x,
                                                        wlan_set_extension_channel_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_ieee80211h_enable_1_argument(XDR *x,
                                                        wlan_set_ieee80211h_enable_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_igmp_snooping_1_argument(XDR *x, wlan_set_igmp_snooping_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_max_station_num_1_argument(XDR *x, wlan_set_max_station_num_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_implicit_beamforming_enable_1_argument(XDR *x,
                                                    wlan_set_implicit_beamforming_enable_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_get_air_time_management_stats_1_argument(XDR *x,
                                                  wlan_get_air_time_management_stats_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_frames_in_queue_data_1_argument(XDR *x,
                                                           wlan_get_frames_in_queue_data_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_rate_adapt_data_1_argument(XDR *x, wlan_get_rate_adapt_data_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_air_time_bssid_weight_1_argument(XDR *x, wlan_set_air_time_bssid_weight_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_air_time_sta_weight_1_argument(XDR *x,
                                                          wlan_set_air_time_sta_weight_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_del_air_time_sta_weight_1_argument(XDR *x,
                                                          wlan_del_air_time_sta_weight_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_get_air_time_sta_weight_1_argument(XDR *x,
                                                          wlan_get_air_time_sta_weight_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_interworkie_enable_1_argument(XDR *x,
                                                         wlan_set_interworkie_enable_1_argument *record) {
    return item(x, *record);
}
inline bool_t
xdr_wlan_set_interworkieaccessnettype_1_argument(XDR *x,
                                                 wlan_set_interworkieaccessnettype_1_argument *record) {
    return item(x, *record);
}
inline bool_t xdr_wlan_set_rad_stat_enable_1_argument(XDR *x, wlan_set_rad_stat_enable_1_argument *record) {
    return item(x, *record);
}
// clang-format on
