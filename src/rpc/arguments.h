#pragma once

#include <array>
#include <tuple>

// The arguments of the procedures that take more than one. Many share their fields: a record here is one set
// of fields, and the names of the protocol follow below. `fields()` is the order on the wire, `names` what a
// client calls them.

namespace arguments {

struct index_stats_type {
    int index;
    unsigned stats_type;
    auto fields() { return std::tie(index, stats_type); }
    static constexpr std::array names{"index", "stats_type"};
};

struct bssid_vlan {
    char *bssid;
    unsigned short vlan;
    auto fields() { return std::tie(bssid, vlan); }
    static constexpr std::array names{"bssid", "vlan"};
};

struct index_bool {
    int index;
    bool value;
    auto fields() { return std::tie(index, value); }
    static constexpr std::array names{"index", "value"};
};

struct index_text {
    int index;
    char *value;
    auto fields() { return std::tie(index, value); }
    static constexpr std::array names{"index", "value"};
};

struct index_unsigned {
    int index;
    unsigned value;
    auto fields() { return std::tie(index, value); }
    static constexpr std::array names{"index", "value"};
};

struct index_int {
    int index;
    int value;
    auto fields() { return std::tie(index, value); }
    static constexpr std::array names{"index", "value"};
};

struct index_dev_index {
    int index;
    int dev_index;
    auto fields() { return std::tie(index, dev_index); }
    static constexpr std::array names{"index", "dev_index"};
};

struct index_key_index {
    int index;
    int key_index;
    auto fields() { return std::tie(index, key_index); }
    static constexpr std::array names{"index", "key_index"};
};

struct index_key_index_text {
    int index;
    int key_index;
    char *value;
    auto fields() { return std::tie(index, key_index, value); }
    static constexpr std::array names{"index", "key_index", "value"};
};

struct index_ac {
    int index;
    int ac;
    auto fields() { return std::tie(index, ac); }
    static constexpr std::array names{"index", "ac"};
};

struct index_ac_unsigned {
    int index;
    int ac;
    unsigned value;
    auto fields() { return std::tie(index, ac, value); }
    static constexpr std::array names{"index", "ac", "value"};
};

struct index_ac_bool {
    int index;
    int ac;
    bool value;
    auto fields() { return std::tie(index, ac, value); }
    static constexpr std::array names{"index", "ac", "value"};
};

struct index_registrar_index {
    int index;
    int registrar_index;
    auto fields() { return std::tie(index, registrar_index); }
    static constexpr std::array names{"index", "registrar_index"};
};

struct index_registrar_index_bool {
    int index;
    int registrar_index;
    bool value;
    auto fields() { return std::tie(index, registrar_index, value); }
    static constexpr std::array names{"index", "registrar_index", "value"};
};

struct index_mac_name {
    int index;
    char *mac;
    char *name;
    auto fields() { return std::tie(index, mac, name); }
    static constexpr std::array names{"index", "mac", "name"};
};

struct index_mac {
    int index;
    char *mac;
    auto fields() { return std::tie(index, mac); }
    static constexpr std::array names{"index", "mac"};
};

struct index_subindex {
    int index;
    int subindex;
    auto fields() { return std::tie(index, subindex); }
    static constexpr std::array names{"index", "subindex"};
};

struct index_subindex_int {
    int index;
    int subindex;
    int value;
    auto fields() { return std::tie(index, subindex, value); }
    static constexpr std::array names{"index", "subindex", "value"};
};

struct index_arg1_arg2 {
    int index;
    int arg1;
    int arg2;
    auto fields() { return std::tie(index, arg1, arg2); }
    static constexpr std::array names{"index", "arg1", "arg2"};
};

struct index_sta_num {
    int index;
    int sta_num;
    auto fields() { return std::tie(index, sta_num); }
    static constexpr std::array names{"index", "sta_num"};
};

struct index_weight {
    int index;
    int weight;
    auto fields() { return std::tie(index, weight); }
    static constexpr std::array names{"index", "weight"};
};

struct index_mac_weight {
    int index;
    char *mac;
    int weight;
    auto fields() { return std::tie(index, mac, weight); }
    static constexpr std::array names{"index", "mac", "weight"};
};

struct index_enable_rit_mit {
    int index;
    int enable;
    int rit;
    int mit;
    auto fields() { return std::tie(index, enable, rit, mit); }
    static constexpr std::array names{"index", "enable", "rit", "mit"};
};

} // namespace arguments

using wlan_get_wlan_stats_1_argument = arguments::index_stats_type;
using wlan_associate_vlan_1_argument = arguments::bssid_vlan;
using wlan_set_enable_1_argument = arguments::index_bool;
using wlan_set_max_bitrate_1_argument = arguments::index_text;
using wlan_set_channel_1_argument = arguments::index_unsigned;
using wlan_set_auto_channel_enable_1_argument = arguments::index_bool;
using wlan_set_ssid_1_argument = arguments::index_text;
using wlan_set_beacon_type_1_argument = arguments::index_text;
using wlan_set_mac_address_control_enabled_1_argument = arguments::index_int;
using wlan_set_wep_key_index_1_argument = arguments::index_unsigned;
using wlan_set_wep_key_passphrase_1_argument = arguments::index_text;
using wlan_set_basic_encryption_modes_1_argument = arguments::index_text;
using wlan_set_basic_authentication_modes_1_argument = arguments::index_text;
using wlan_set_wpa_encryption_modes_1_argument = arguments::index_text;
using wlan_set_wpa_authentication_modes_1_argument = arguments::index_text;
using wlan_set_basic_data_transmit_rates_1_argument = arguments::index_text;
using wlan_set_operational_data_transmit_rates_1_argument = arguments::index_text;
using wlan_set_ssid_advertisement_enabled_1_argument = arguments::index_bool;
using wlan_set_radio_enabled_1_argument = arguments::index_bool;
using wlan_set_transmit_power_1_argument = arguments::index_unsigned;
using wlan_set_auto_rate_fallback_enable_1_argument = arguments::index_bool;
using wlan_get_assoc_device_1_argument = arguments::index_dev_index;
using wlan_get_wep_key_1_argument = arguments::index_key_index;
using wlan_set_wep_key_1_argument = arguments::index_key_index_text;
using wlan_get_pre_shared_key_1_argument = arguments::index_key_index;
using wlan_set_pre_shared_key_1_argument = arguments::index_key_index_text;
using wlan_get_key_passphrase_1_argument = arguments::index_key_index;
using wlan_set_key_passphrase_1_argument = arguments::index_key_index_text;
using wlan_set_wmm_enable_1_argument = arguments::index_bool;
using wlan_set_wmm_uaspd_enable_1_argument = arguments::index_bool;
using wlan_get_og_aifsn_1_argument = arguments::index_ac;
using wlan_set_og_aifsn_1_argument = arguments::index_ac_unsigned;
using wlan_get_og_ecw_min_1_argument = arguments::index_ac;
using wlan_set_og_ecw_min_1_argument = arguments::index_ac_unsigned;
using wlan_get_og_ecw_max_1_argument = arguments::index_ac;
using wlan_set_og_ecw_max_1_argument = arguments::index_ac_unsigned;
using wlan_get_og_tx_op_1_argument = arguments::index_ac;
using wlan_set_og_tx_op_1_argument = arguments::index_ac_unsigned;
using wlan_get_og_ack_policy_1_argument = arguments::index_ac;
using wlan_set_og_ack_policy_1_argument = arguments::index_ac_bool;
using wlan_get_ic_aifsn_1_argument = arguments::index_ac;
using wlan_set_ic_aifsn_1_argument = arguments::index_ac_unsigned;
using wlan_get_ic_ecw_min_1_argument = arguments::index_ac;
using wlan_set_ic_ecw_min_1_argument = arguments::index_ac_unsigned;
using wlan_get_ic_ecw_max_1_argument = arguments::index_ac;
using wlan_set_ic_ecw_max_1_argument = arguments::index_ac_unsigned;
using wlan_set_wps_enable_1_argument = arguments::index_bool;
using wlan_set_wps_device_password_1_argument = arguments::index_text;
using wlan_set_wps_config_methods_enabled_1_argument = arguments::index_text;
using wlan_set_wps_setup_lock_1_argument = arguments::index_bool;
using wlan_get_wps_registrar_enabled_1_argument = arguments::index_registrar_index;
using wlan_set_wps_registrar_enabled_1_argument = arguments::index_registrar_index_bool;
using wlan_get_wps_registrar_uuid_1_argument = arguments::index_registrar_index;
using wlan_get_wps_registrar_device_name_1_argument = arguments::index_registrar_index;
using wlan_set_mac_address_control_add_1_argument = arguments::index_mac_name;
using wlan_set_mac_address_control_delete_1_argument = arguments::index_mac;
using wlan_set_standard_1_argument = arguments::index_text;
using wlan_set_wep_encryption_level_1_argument = arguments::index_text;
using wlan_get_wmm_ic_tx_op_1_argument = arguments::index_ac;
using wlan_set_wmm_ic_tx_op_1_argument = arguments::index_ac_unsigned;
using wlan_get_wmm_ic_ack_policy_1_argument = arguments::index_ac;
using wlan_set_wmm_ic_ack_policy_1_argument = arguments::index_ac_bool;
using wlan_set_wps_uuid_1_argument = arguments::index_text;
using wlan_set_country_code_1_argument = arguments::index_text;
using wlan_set_bg_protection_1_argument = arguments::index_bool;
using wlan_set_beacon_interval_1_argument = arguments::index_unsigned;
using wlan_set_acct_interim_interval_1_argument = arguments::index_unsigned;
using wlan_set_dtim_period_1_argument = arguments::index_unsigned;
using wlan_set_tx_preamble_1_argument = arguments::index_bool;
using wlan_set_rts_threshold_1_argument = arguments::index_unsigned;
using wlan_set_frag_threshold_1_argument = arguments::index_unsigned;
using wlan_set_short_slot_1_argument = arguments::index_bool;
using wlan_set_tx_burst_1_argument = arguments::index_bool;
using wlan_set_short_retry_limit_1_argument = arguments::index_unsigned;
using wlan_set_long_retry_limit_1_argument = arguments::index_unsigned;
using wlan_set_ht_mcs_1_argument = arguments::index_unsigned;
using wlan_set_channel_bw_1_argument = arguments::index_int;
using wlan_set_ht_mode_1_argument = arguments::index_bool;
using wlan_set_guard_interval_1_argument = arguments::index_int;
using wlan_set_ams_du_1_argument = arguments::index_bool;
using wlan_set_ba_decline_1_argument = arguments::index_bool;
using wlan_set_block_ack_1_argument = arguments::index_bool;
using wlan_set_n_protection_1_argument = arguments::index_bool;
using wlan_set_wpa_group_reauth_interval_1_argument = arguments::index_unsigned;
using wlan_set_wpa_reauth_interval_1_argument = arguments::index_unsigned;
using wlan_set_wpa_preauth_1_argument = arguments::index_bool;
using wlan_set_wmm_apsd_1_argument = arguments::index_bool;
using wlan_set_wps_mode_1_argument = arguments::index_bool;
using wlan_set_wps_model_name_1_argument = arguments::index_text;
using wlan_set_wps_config_timeout_1_argument = arguments::index_unsigned;
using wlan_set_wps_pinstart_1_argument = arguments::index_text;
using wlan_set_custom_ssid_str_1_argument = arguments::index_text;
using wlan_set_bss_isolate_1_argument = arguments::index_bool;
using wlan_set_station_isolate_1_argument = arguments::index_bool;
using wlan_set_side_band_1_argument = arguments::index_bool;
using wlan_set_radius_server_address_1_argument = arguments::index_text;
using wlan_set_radius_server_port_1_argument = arguments::index_int;
using wlan_set_radius_server_key_1_argument = arguments::index_text;
using wlan_set_radius_reauth_interval_1_argument = arguments::index_int;
using wlan_set_acct_server_address_1_argument = arguments::index_text;
using wlan_set_acct_server_port_1_argument = arguments::index_int;
using wlan_set_acct_server_key_1_argument = arguments::index_text;
using wlan_set_ht_tx_stream_1_argument = arguments::index_int;
using wlan_set_ht_rx_stream_1_argument = arguments::index_int;
using wlan_set_ht_stbc_1_argument = arguments::index_int;
using wlan_set_ht_rdg_1_argument = arguments::index_int;
using wlan_get_extension_channel_1_argument = arguments::index_subindex;
using wlan_set_extension_channel_1_argument = arguments::index_subindex_int;
using wlan_set_ieee80211h_enable_1_argument = arguments::index_bool;
using wlan_set_igmp_snooping_1_argument = arguments::index_bool;
using wlan_set_max_station_num_1_argument = arguments::index_int;
using wlan_set_implicit_beamforming_enable_1_argument = arguments::index_bool;
using wlan_get_air_time_management_stats_1_argument = arguments::index_arg1_arg2;
using wlan_get_frames_in_queue_data_1_argument = arguments::index_arg1_arg2;
using wlan_get_rate_adapt_data_1_argument = arguments::index_sta_num;
using wlan_set_air_time_bssid_weight_1_argument = arguments::index_weight;
using wlan_set_air_time_sta_weight_1_argument = arguments::index_mac_weight;
using wlan_del_air_time_sta_weight_1_argument = arguments::index_mac;
using wlan_get_air_time_sta_weight_1_argument = arguments::index_mac;
using wlan_set_interworkie_enable_1_argument = arguments::index_int;
using wlan_set_interworkieaccessnettype_1_argument = arguments::index_int;
using wlan_set_rad_stat_enable_1_argument = arguments::index_enable_rit_mit;
