#pragma once

#include "rpc/arguments.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <type_traits>
#include <utility>

// The procedures of the protocol, one row each: number, name, arguments, result. The daemon, wlanctl and the
// tests read this table.

constexpr unsigned WLAN_CONFIG_RPC_PROG = 0x20121110;
constexpr unsigned WLAN_CONFIG_API_VERSION = 1;
constexpr unsigned last_procedure = 253;
constexpr unsigned unassigned_procedure = 20;

// A datagram of the RPC library, call or reply, has at most this many bytes.
constexpr unsigned longest_message = 8800;

enum class Kind : unsigned char { integer, unsigned_integer, unsigned_short, boolean, text };

struct Argument {
    const char *name;
    Kind kind;
};

struct Arguments {
    static constexpr std::size_t most = 4;
    std::array<Argument, most> fields{};
    std::size_t count = 0;

    constexpr const Argument *begin() const { return fields.data(); }
    constexpr const Argument *end() const { return fields.data() + count; }
};

// What the answer holds. Everything but a bare code travels in the result record, with its code.
enum class Result : unsigned char {
    code,                 // the return code alone
    none,                 // the result record, of which only the code means anything
    integer,              // one signed 32-bit number
    unsigned_integer,     // one unsigned 32-bit number
    text,                 // a text with its terminating zero byte
    secret_text,          // the same, not for everyone's eyes: a key, a passphrase, a PIN
    port_and_index,       // two unsigned 32-bit numbers
    basic_stats,          // the words of wlan_basicStats_t
    stats,                // the words of wlan_stats_t and five more, which mean nothing
    channel_statistics,   // three unsigned 32-bit numbers
    noise_floor,          // four signed 32-bit numbers
    packet_count,         // one unsigned 64-bit number as two words, the low one first
    rssi_table,           // 37 signed 64-bit numbers likewise
    device,               // the memory image of wlan_device_t
    device_table,         // ... of wlan_assoc_devices_table
    scan_result,          // ... of scan_table
    air_time_stats,       // ... of AirTimeStats
    frames_in_queue,      // ... of FramesInQueueData
    rate_data,            // ... of RateData
    air_time_information, // ... of BSSAirTimeManagementInfo
};

constexpr bool is_text(Result result) { return result == Result::text || result == Result::secret_text; }

struct Procedure {
    unsigned number;
    std::string_view name;
    Arguments arguments;
    Result result;
};

template <class Type>
struct KindOf;
template <>
struct KindOf<int> {
    static constexpr Kind kind = Kind::integer;
};
template <>
struct KindOf<unsigned> {
    static constexpr Kind kind = Kind::unsigned_integer;
};
template <>
struct KindOf<unsigned short> {
    static constexpr Kind kind = Kind::unsigned_short;
};
template <>
struct KindOf<bool> {
    static constexpr Kind kind = Kind::boolean;
};
template <>
struct KindOf<char *> {
    static constexpr Kind kind = Kind::text;
};
template <>
struct KindOf<const char *> {
    static constexpr Kind kind = Kind::text;
};
template <class Type>
inline constexpr Kind kind_of = KindOf<Type>::kind;

// Arguments of a bare type take their name from the row, those of a record theirs from the record.
template <class Type>
constexpr Arguments bare(const char *name) {
    return {{{{name, kind_of<Type>}}}, 1};
}

template <class Record>
constexpr Arguments record() {
    return []<class... Fields, std::size_t... i>(std::type_identity<std::tuple<Fields &...>>,
                                                 std::index_sequence<i...>) {
        static_assert(sizeof...(Fields) == Record::names.size(), "a field lacks its name");
        return Arguments{{{{Record::names[i], kind_of<Fields>}...}}, sizeof...(Fields)};
    }(std::type_identity<decltype(std::declval<Record &>().fields())>{},
           std::make_index_sequence<Record::names.size()>{});
}

inline constexpr Arguments no_arguments{};
inline constexpr Arguments interface_index = bare<int>("index");

inline constexpr Procedure protocol[] = {
    {1, "wlan_load", bare<int>("flags"), Result::code},
    {2, "wlan_init", no_arguments, Result::code},
    {3, "wlan_reset", no_arguments, Result::code},
    {4, "wlan_get_number_of_entries", no_arguments, Result::unsigned_integer},
    {5, "wlan_add_entry", no_arguments, Result::none},
    {6, "wlan_del_entry", interface_index, Result::none},
    {7, "wlan_get_bssid_port", bare<const char *>("bssid"), Result::port_and_index},
    {8, "wlan_associate_vlan", record<wlan_associate_vlan_1_argument>(), Result::code},
    {9, "wlan_get_enable", interface_index, Result::unsigned_integer},
    {10, "wlan_set_enable", record<wlan_set_enable_1_argument>(), Result::code},
    {11, "wlan_get_status", interface_index, Result::text},
    {12, "wlan_get_name", interface_index, Result::text},
    {13, "wlan_get_bssid", interface_index, Result::text},
    {14, "wlan_get_max_bitrate", interface_index, Result::text},
    {15, "wlan_set_max_bitrate", record<wlan_set_max_bitrate_1_argument>(), Result::code},
    {16, "wlan_get_channel", interface_index, Result::unsigned_integer},
    {17, "wlan_set_channel", record<wlan_set_channel_1_argument>(), Result::code},
    {18, "wlan_get_auto_channel_enable", interface_index, Result::unsigned_integer},
    {19, "wlan_set_auto_channel_enable", record<wlan_set_auto_channel_enable_1_argument>(), Result::code},
    {21, "wlan_get_ssid", interface_index, Result::text},
    {22, "wlan_set_ssid", record<wlan_set_ssid_1_argument>(), Result::code},
    {23, "wlan_get_beacon_type", interface_index, Result::text},
    {24, "wlan_set_beacon_type", record<wlan_set_beacon_type_1_argument>(), Result::code},
    {25, "wlan_get_mac_address_control_enabled", interface_index, Result::integer},
    {26, "wlan_set_mac_address_control_enabled", record<wlan_set_mac_address_control_enabled_1_argument>(),
     Result::code},
    {27, "wlan_get_standard", interface_index, Result::text},
    {28, "wlan_get_wep_key_index", interface_index, Result::unsigned_integer},
    {29, "wlan_set_wep_key_index", record<wlan_set_wep_key_index_1_argument>(), Result::code},
    {30, "wlan_get_wep_key_passphrase", interface_index, Result::secret_text},
    {31, "wlan_set_wep_key_passphrase", record<wlan_set_wep_key_passphrase_1_argument>(), Result::code},
    {32, "wlan_get_encryption_level", interface_index, Result::text},
    {33, "wlan_get_basic_encryption_modes", interface_index, Result::text},
    {34, "wlan_set_basic_encryption_modes", record<wlan_set_basic_encryption_modes_1_argument>(),
     Result::code},
    {35, "wlan_get_basic_authentication_modes", interface_index, Result::text},
    {36, "wlan_set_basic_authentication_modes", record<wlan_set_basic_authentication_modes_1_argument>(),
     Result::code},
    {37, "wlan_get_wpa_encryption_modes", interface_index, Result::text},
    {38, "wlan_set_wpa_encryption_modes", record<wlan_set_wpa_encryption_modes_1_argument>(), Result::code},
    {39, "wlan_get_wpa_authentication_modes", interface_index, Result::text},
    {40, "wlan_set_wpa_authentication_modes", record<wlan_set_wpa_authentication_modes_1_argument>(),
     Result::code},
    {41, "wlan_get_possible_channels", interface_index, Result::text},
    {42, "wlan_get_basic_data_transmit_rates", interface_index, Result::text},
    {43, "wlan_set_basic_data_transmit_rates", record<wlan_set_basic_data_transmit_rates_1_argument>(),
     Result::code},
    {44, "wlan_get_operational_data_transmit_rates", interface_index, Result::text},
    {45, "wlan_set_operational_data_transmit_rates",
     record<wlan_set_operational_data_transmit_rates_1_argument>(), Result::code},
    {46, "wlan_get_possible_data_transmit_rates", interface_index, Result::text},
    {47, "wlan_get_ssid_advertisement_enabled", interface_index, Result::unsigned_integer},
    {48, "wlan_set_ssid_advertisement_enabled", record<wlan_set_ssid_advertisement_enabled_1_argument>(),
     Result::code},
    {49, "wlan_get_radio_enabled", interface_index, Result::unsigned_integer},
    {50, "wlan_set_radio_enabled", record<wlan_set_radio_enabled_1_argument>(), Result::code},
    {51, "wlan_get_transmit_power_supported", interface_index, Result::text},
    {52, "wlan_get_transmit_power", interface_index, Result::unsigned_integer},
    {53, "wlan_set_transmit_power", record<wlan_set_transmit_power_1_argument>(), Result::code},
    {54, "wlan_get_auto_rate_fallback_enable", interface_index, Result::unsigned_integer},
    {55, "wlan_set_auto_rate_fallback_enable", record<wlan_set_auto_rate_fallback_enable_1_argument>(),
     Result::code},
    {56, "wlan_get_basic_stats", interface_index, Result::basic_stats},
    {57, "wlan_get_stats", record<wlan_get_wlan_stats_1_argument>(), Result::stats},
    {58, "wlan_get_assoc_devices_num", interface_index, Result::unsigned_integer},
    {59, "wlan_get_assoc_device", record<wlan_get_assoc_device_1_argument>(), Result::device},
    {60, "wlan_get_wep_key", record<wlan_get_wep_key_1_argument>(), Result::secret_text},
    {61, "wlan_set_wep_key", record<wlan_set_wep_key_1_argument>(), Result::code},
    {62, "wlan_get_pre_shared_key", record<wlan_get_pre_shared_key_1_argument>(), Result::secret_text},
    {63, "wlan_set_pre_shared_key", record<wlan_set_pre_shared_key_1_argument>(), Result::code},
    {64, "wlan_get_key_passphrase", record<wlan_get_key_passphrase_1_argument>(), Result::secret_text},
    {65, "wlan_set_key_passphrase", record<wlan_set_key_passphrase_1_argument>(), Result::code},
    {66, "wlan_get_wmm_supported", interface_index, Result::unsigned_integer},
    {67, "wlan_get_wmm_uaspd_supported", interface_index, Result::unsigned_integer},
    {68, "wlan_get_wmm_enable", interface_index, Result::unsigned_integer},
    {69, "wlan_set_wmm_enable", record<wlan_set_wmm_enable_1_argument>(), Result::code},
    {70, "wlan_get_wmm_uaspd_enable", interface_index, Result::unsigned_integer},
    {71, "wlan_set_wmm_uaspd_enable", record<wlan_set_wmm_uaspd_enable_1_argument>(), Result::code},
    {72, "wlan_get_og_aifsn", record<wlan_get_og_aifsn_1_argument>(), Result::unsigned_integer},
    {73, "wlan_set_og_aifsn", record<wlan_set_og_aifsn_1_argument>(), Result::code},
    {74, "wlan_get_og_ecw_min", record<wlan_get_og_ecw_min_1_argument>(), Result::unsigned_integer},
    {75, "wlan_set_og_ecw_min", record<wlan_set_og_ecw_min_1_argument>(), Result::code},
    {76, "wlan_get_og_ecw_max", record<wlan_get_og_ecw_max_1_argument>(), Result::unsigned_integer},
    {77, "wlan_set_og_ecw_max", record<wlan_set_og_ecw_max_1_argument>(), Result::code},
    {78, "wlan_get_og_tx_op", record<wlan_get_og_tx_op_1_argument>(), Result::unsigned_integer},
    {79, "wlan_set_og_tx_op", record<wlan_set_og_tx_op_1_argument>(), Result::code},
    {80, "wlan_get_og_ack_policy", record<wlan_get_og_ack_policy_1_argument>(), Result::unsigned_integer},
    {81, "wlan_set_og_ack_policy", record<wlan_set_og_ack_policy_1_argument>(), Result::code},
    {82, "wlan_get_ic_aifsn", record<wlan_get_ic_aifsn_1_argument>(), Result::unsigned_integer},
    {83, "wlan_set_ic_aifsn", record<wlan_set_ic_aifsn_1_argument>(), Result::code},
    {84, "wlan_get_ic_ecw_min", record<wlan_get_ic_ecw_min_1_argument>(), Result::unsigned_integer},
    {85, "wlan_set_ic_ecw_min", record<wlan_set_ic_ecw_min_1_argument>(), Result::code},
    {86, "wlan_get_ic_ecw_max", record<wlan_get_ic_ecw_max_1_argument>(), Result::unsigned_integer},
    {87, "wlan_set_ic_ecw_max", record<wlan_set_ic_ecw_max_1_argument>(), Result::code},
    {88, "wlan_get_wps_enable", interface_index, Result::unsigned_integer},
    {89, "wlan_set_wps_enable", record<wlan_set_wps_enable_1_argument>(), Result::code},
    {90, "wlan_get_wps_device_name", interface_index, Result::text},
    {91, "wlan_get_wps_device_password", interface_index, Result::secret_text},
    {92, "wlan_set_wps_device_password", record<wlan_set_wps_device_password_1_argument>(), Result::code},
    {93, "wlan_get_wps_uuid", interface_index, Result::text},
    {94, "wlan_get_wps_version", interface_index, Result::unsigned_integer},
    {95, "wlan_get_wps_config_methods_supported", interface_index, Result::text},
    {96, "wlan_get_wps_config_methods_enabled", interface_index, Result::text},
    {97, "wlan_set_wps_config_methods_enabled", record<wlan_set_wps_config_methods_enabled_1_argument>(),
     Result::code},
    {98, "wlan_get_wps_setup_locked_state", interface_index, Result::text},
    {99, "wlan_get_wps_setup_lock", interface_index, Result::unsigned_integer},
    {100, "wlan_set_wps_setup_lock", record<wlan_set_wps_setup_lock_1_argument>(), Result::code},
    {101, "wlan_get_wps_configuration_state", interface_index, Result::text},
    {102, "wlan_get_wps_last_configuration_error", interface_index, Result::text},
    {103, "wlan_get_wps_registrar_entries_num", interface_index, Result::unsigned_integer},
    {104, "wlan_get_wps_registrar_established", interface_index, Result::unsigned_integer},
    {105, "wlan_get_wps_registrar_enabled", record<wlan_get_wps_registrar_enabled_1_argument>(),
     Result::unsigned_integer},
    {106, "wlan_set_wps_registrar_enabled", record<wlan_set_wps_registrar_enabled_1_argument>(),
     Result::code},
    {107, "wlan_get_wps_registrar_uuid", record<wlan_get_wps_registrar_uuid_1_argument>(), Result::text},
    {108, "wlan_get_wps_registrar_device_name", record<wlan_get_wps_registrar_device_name_1_argument>(),
     Result::text},
    {109, "wlan_set_mac_address_control_clear", interface_index, Result::code},
    {110, "wlan_set_mac_address_control_add", record<wlan_set_mac_address_control_add_1_argument>(),
     Result::code},
    {111, "wlan_set_mac_address_control_delete", record<wlan_set_mac_address_control_delete_1_argument>(),
     Result::code},
    {112, "wlan_get_mac_address_control_list", interface_index, Result::text},
    {113, "wlan_get_mac_address_control_count", interface_index, Result::unsigned_integer},
    {114, "wlan_set_standard", record<wlan_set_standard_1_argument>(), Result::code},
    {115, "wlan_set_wep_encryption_level", record<wlan_set_wep_encryption_level_1_argument>(), Result::code},
    {116, "wlan_get_wmm_ic_tx_op", record<wlan_get_wmm_ic_tx_op_1_argument>(), Result::unsigned_integer},
    {117, "wlan_set_wmm_ic_tx_op", record<wlan_set_wmm_ic_tx_op_1_argument>(), Result::code},
    {118, "wlan_get_wmm_ic_ack_policy", record<wlan_get_wmm_ic_ack_policy_1_argument>(),
     Result::unsigned_integer},
    {119, "wlan_set_wmm_ic_ack_policy", record<wlan_set_wmm_ic_ack_policy_1_argument>(), Result::code},
    {120, "wlan_set_wps_cancel", interface_index, Result::code},
    {121, "wlan_set_wps_uuid", record<wlan_set_wps_uuid_1_argument>(), Result::code},
    {122, "wlan_get_country_code", interface_index, Result::text},
    {123, "wlan_set_country_code", record<wlan_set_country_code_1_argument>(), Result::code},
    {124, "wlan_get_bg_protection", interface_index, Result::unsigned_integer},
    {125, "wlan_set_bg_protection", record<wlan_set_bg_protection_1_argument>(), Result::code},
    {126, "wlan_get_beacon_interval", interface_index, Result::unsigned_integer},
    {127, "wlan_set_beacon_interval", record<wlan_set_beacon_interval_1_argument>(), Result::code},
    {128, "wlan_get_dtim_period", interface_index, Result::unsigned_integer},
    {129, "wlan_set_dtim_period", record<wlan_set_dtim_period_1_argument>(), Result::code},
    {130, "wlan_get_tx_preamble", interface_index, Result::unsigned_integer},
    {131, "wlan_set_tx_preamble", record<wlan_set_tx_preamble_1_argument>(), Result::code},
    {132, "wlan_get_rts_threshold", interface_index, Result::unsigned_integer},
    {133, "wlan_set_rts_threshold", record<wlan_set_rts_threshold_1_argument>(), Result::code},
    {134, "wlan_get_frag_threshold", interface_index, Result::unsigned_integer},
    {135, "wlan_set_frag_threshold", record<wlan_set_frag_threshold_1_argument>(), Result::code},
    {136, "wlan_get_short_slot", interface_index, Result::unsigned_integer},
    {137, "wlan_set_short_slot", record<wlan_set_short_slot_1_argument>(), Result::code},
    {138, "wlan_get_tx_burst", interface_index, Result::unsigned_integer},
    {139, "wlan_set_tx_burst", record<wlan_set_tx_burst_1_argument>(), Result::code},
    {140, "wlan_get_short_retry_limit", interface_index, Result::unsigned_integer},
    {141, "wlan_set_short_retry_limit", record<wlan_set_short_retry_limit_1_argument>(), Result::code},
    {142, "wlan_get_long_retry_limit", interface_index, Result::unsigned_integer},
    {143, "wlan_set_long_retry_limit", record<wlan_set_long_retry_limit_1_argument>(), Result::code},
    {144, "wlan_get_ht_mcs", interface_index, Result::unsigned_integer},
    {145, "wlan_set_ht_mcs", record<wlan_set_ht_mcs_1_argument>(), Result::code},
    {146, "wlan_get_channel_bw", interface_index, Result::integer},
    {147, "wlan_set_channel_bw", record<wlan_set_channel_bw_1_argument>(), Result::code},
    {148, "wlan_get_ht_mode", interface_index, Result::unsigned_integer},
    {149, "wlan_set_ht_mode", record<wlan_set_ht_mode_1_argument>(), Result::code},
    {150, "wlan_get_guard_interval", interface_index, Result::integer},
    {151, "wlan_set_guard_interval", record<wlan_set_guard_interval_1_argument>(), Result::code},
    {152, "wlan_get_ams_du", interface_index, Result::unsigned_integer},
    {153, "wlan_set_ams_du", record<wlan_set_ams_du_1_argument>(), Result::code},
    {154, "wlan_get_ba_decline", interface_index, Result::unsigned_integer},
    {155, "wlan_set_ba_decline", record<wlan_set_ba_decline_1_argument>(), Result::code},
    {156, "wlan_get_block_ack", interface_index, Result::unsigned_integer},
    {157, "wlan_set_block_ack", record<wlan_set_block_ack_1_argument>(), Result::code},
    {158, "wlan_get_n_protection", interface_index, Result::unsigned_integer},
    {159, "wlan_set_n_protection", record<wlan_set_n_protection_1_argument>(), Result::code},
    {160, "wlan_get_wpa_group_reauth_interval", interface_index, Result::unsigned_integer},
    {161, "wlan_set_wpa_group_reauth_interval", record<wlan_set_wpa_group_reauth_interval_1_argument>(),
     Result::code},
    {162, "wlan_get_wpa_reauth_interval", interface_index, Result::unsigned_integer},
    {163, "wlan_set_wpa_reauth_interval", record<wlan_set_wpa_reauth_interval_1_argument>(), Result::code},
    {164, "wlan_get_wpa_preauth", interface_index, Result::unsigned_integer},
    {165, "wlan_set_wpa_preauth", record<wlan_set_wpa_preauth_1_argument>(), Result::code},
    {166, "wlan_get_wmm_apsd", interface_index, Result::unsigned_integer},
    {167, "wlan_set_wmm_apsd", record<wlan_set_wmm_apsd_1_argument>(), Result::code},
    {168, "wlan_get_wps_mode", interface_index, Result::unsigned_integer},
    {169, "wlan_set_wps_mode", record<wlan_set_wps_mode_1_argument>(), Result::code},
    {170, "wlan_get_wps_model_name", interface_index, Result::text},
    {171, "wlan_set_wps_model_name", record<wlan_set_wps_model_name_1_argument>(), Result::code},
    {172, "wlan_get_wps_result_status", interface_index, Result::text},
    {173, "wlan_get_wps_status", interface_index, Result::text},
    {174, "wlan_get_wps_config_timeout", interface_index, Result::unsigned_integer},
    {175, "wlan_set_wps_config_timeout", record<wlan_set_wps_config_timeout_1_argument>(), Result::code},
    {176, "wlan_set_wps_pushbutton", interface_index, Result::code},
    {177, "wlan_set_wps_pinstart", record<wlan_set_wps_pinstart_1_argument>(), Result::code},
    {178, "wlan_set_restore_defaults", interface_index, Result::code},
    {179, "wlan_get_custom_ssid_str", interface_index, Result::text},
    {180, "wlan_set_custom_ssid_str", record<wlan_set_custom_ssid_str_1_argument>(), Result::code},
    {181, "wlan_set_wps_oob", interface_index, Result::code},
    {182, "wlan_set_bss_isolate", record<wlan_set_bss_isolate_1_argument>(), Result::code},
    {183, "wlan_get_bss_isolate", interface_index, Result::unsigned_integer},
    {184, "wlan_set_station_isolate", record<wlan_set_station_isolate_1_argument>(), Result::code},
    {185, "wlan_get_station_isolate", interface_index, Result::unsigned_integer},
    {186, "wlan_get_side_band", interface_index, Result::unsigned_integer},
    {187, "wlan_set_side_band", record<wlan_set_side_band_1_argument>(), Result::code},
    {188, "wlan_get_radius_server_address", interface_index, Result::text},
    {189, "wlan_set_radius_server_address", record<wlan_set_radius_server_address_1_argument>(),
     Result::code},
    {190, "wlan_get_radius_server_port", interface_index, Result::integer},
    {191, "wlan_set_radius_server_port", record<wlan_set_radius_server_port_1_argument>(), Result::code},
    {192, "wlan_get_radius_server_key", interface_index, Result::secret_text},
    {193, "wlan_set_radius_server_key", record<wlan_set_radius_server_key_1_argument>(), Result::code},
    {194, "wlan_get_radius_reauth_interval", interface_index, Result::integer},
    {195, "wlan_set_radius_reauth_interval", record<wlan_set_radius_reauth_interval_1_argument>(),
     Result::code},
    {196, "wlan_get_ht_tx_stream", interface_index, Result::integer},
    {197, "wlan_set_ht_tx_stream", record<wlan_set_ht_tx_stream_1_argument>(), Result::code},
    {198, "wlan_get_ht_rx_stream", interface_index, Result::integer},
    {199, "wlan_set_ht_rx_stream", record<wlan_set_ht_rx_stream_1_argument>(), Result::code},
    {200, "wlan_get_ht_stbc", interface_index, Result::integer},
    {201, "wlan_set_ht_stbc", record<wlan_set_ht_stbc_1_argument>(), Result::code},
    {202, "wlan_get_ht_rdg", interface_index, Result::integer},
    {203, "wlan_set_ht_rdg", record<wlan_set_ht_rdg_1_argument>(), Result::code},
    {204, "wlan_get_extension_channel", record<wlan_get_extension_channel_1_argument>(), Result::integer},
    {205, "wlan_set_extension_channel", record<wlan_set_extension_channel_1_argument>(), Result::code},
    {206, "wlan_restart_all", no_arguments, Result::code},
    {207, "wlan_restart", interface_index, Result::code},
    {208, "wlan_get_ieee80211h_enable", interface_index, Result::unsigned_integer},
    {209, "wlan_set_ieee80211h_enable", record<wlan_set_ieee80211h_enable_1_argument>(), Result::code},
    {210, "wlan_get_igmp_snooping", interface_index, Result::unsigned_integer},
    {211, "wlan_set_igmp_snooping", record<wlan_set_igmp_snooping_1_argument>(), Result::code},
    {212, "wlan_get_max_station_num", interface_index, Result::integer},
    {213, "wlan_set_max_station_num", record<wlan_set_max_station_num_1_argument>(), Result::code},
    {214, "wlan_get_implicit_beamforming_enable", interface_index, Result::unsigned_integer},
    {215, "wlan_set_implicit_beamforming_enable", record<wlan_set_implicit_beamforming_enable_1_argument>(),
     Result::code},
    {216, "wlan_get_current_channel", interface_index, Result::unsigned_integer},
    {217, "wlan_get_ap_scan_num_of_entries", interface_index, Result::unsigned_integer},
    {218, "wlan_get_ap_scan_result", interface_index, Result::scan_result},
    {219, "wlan_ap_scan", interface_index, Result::none},
    {220, "wlan_ap_auto_channel_select", interface_index, Result::none},
    {221, "wlan_get_assoc_devices_table", interface_index, Result::device_table},
    {222, "wlan_get_assoc_devices_table_num_of_entries", interface_index, Result::unsigned_integer},
    {223, "wlan_get_ap_scan_status", interface_index, Result::unsigned_integer},
    {224, "wlan_get_air_time_management_stats", record<wlan_get_air_time_management_stats_1_argument>(),
     Result::air_time_stats},
    {225, "wlan_get_frames_in_queue_data", record<wlan_get_frames_in_queue_data_1_argument>(),
     Result::frames_in_queue},
    {226, "wlan_get_rate_adapt_data", record<wlan_get_rate_adapt_data_1_argument>(), Result::rate_data},
    {227, "wlan_set_air_time_bssid_weight", record<wlan_set_air_time_bssid_weight_1_argument>(),
     Result::code},
    {228, "wlan_get_air_time_bssid_weight", interface_index, Result::unsigned_integer},
    {229, "wlan_set_air_time_sta_weight", record<wlan_set_air_time_sta_weight_1_argument>(), Result::code},
    {230, "wlan_del_air_time_sta_weight", record<wlan_del_air_time_sta_weight_1_argument>(), Result::code},
    {231, "wlan_get_air_time_sta_weight", record<wlan_get_air_time_sta_weight_1_argument>(),
     Result::unsigned_integer},
    {232, "wlan_get_bss_air_time_management_info", interface_index, Result::air_time_information},
    {233, "wlan_set_fcc_14_30_enable", bare<bool>("value"), Result::code},
    {234, "wlan_set_interworkie_enable", record<wlan_set_interworkie_enable_1_argument>(), Result::code},
    {235, "wlan_set_interworkieaccessnettype", record<wlan_set_interworkieaccessnettype_1_argument>(),
     Result::code},
    {236, "wlan_get_interworkie_enable", interface_index, Result::integer},
    {237, "wlan_get_interworkieaccessnettype", interface_index, Result::integer},
    {238, "wlan_get_channel_statistics", interface_index, Result::channel_statistics},
    {239, "wlan_get_channel_noise_floor", interface_index, Result::noise_floor},
    {240, "wlan_get_radio_tx_packets", interface_index, Result::packet_count},
    {241, "wlan_get_radio_rx_packets", interface_index, Result::packet_count},
    {242, "wlan_get_retransmission_metric", interface_index, Result::unsigned_integer},
    {243, "wlan_set_rad_stat_enable", record<wlan_set_rad_stat_enable_1_argument>(), Result::code},
    {244, "wlan_get_rssi_table", interface_index, Result::rssi_table},
    {245, "wlan_set_noise_floor_type", bare<int>("type"), Result::code},
    // The accounting setters share the records of their counterparts; their own names for them mean the same.
    {246, "wlan_get_acct_server_address", interface_index, Result::text},
    {247, "wlan_set_acct_server_address", record<wlan_set_radius_server_address_1_argument>(), Result::code},
    {248, "wlan_get_acct_server_port", interface_index, Result::integer},
    {249, "wlan_set_acct_server_port", record<wlan_set_radius_server_port_1_argument>(), Result::code},
    {250, "wlan_get_acct_server_key", interface_index, Result::secret_text},
    {251, "wlan_set_acct_server_key", record<wlan_set_radius_server_key_1_argument>(), Result::code},
    {252, "wlan_set_acct_interim_interval", record<wlan_set_beacon_interval_1_argument>(), Result::code},
    {253, "wlan_get_acct_interim_interval", interface_index, Result::unsigned_integer},
};

// The row of that name, or nullptr.
constexpr const Procedure *find_procedure(std::string_view name) {
    for (const Procedure &procedure : protocol)
        if (procedure.name == name)
            return &procedure;
    return nullptr;
}

// What a client must not make happen a second time by sending a request again whose reply was lost: the
// transport keeps the replies of these. Everything else answers the same again, or 2 where the first has
// stored the value. wlan_load finds the driver loaded, wlan_init is polled, and a second clearing of an
// access list clears nothing.
constexpr bool is_unsafe_to_repeat(unsigned procedure) {
    switch (procedure) {
    case 3:   // wlan_reset: stops the driver, perhaps another client's
    case 8:   // wlan_associate_vlan: VLAN 4095 takes the interface in each time
    case 10:  // wlan_set_enable: what was stored answers 2, though the interface did not come up
    case 92:  // wlan_set_wps_device_password: "0" makes a new PIN
    case 110: // wlan_set_mac_address_control_add: a stored address answers 2, though its name was refused
    case 111: // wlan_set_mac_address_control_delete: the same
    case 120: // wlan_set_wps_cancel: ends what was begun since
    case 176: // wlan_set_wps_pushbutton: begins again
    case 177: // wlan_set_wps_pinstart: begins again
    case 178: // wlan_set_restore_defaults: loses what was set since
    case 181: // wlan_set_wps_oob: loses what was set since
    case 206: // wlan_restart_all: every station falls off again
    case 207: // wlan_restart: the same
    case 219: // wlan_ap_scan: scans again, or answers that a scan runs
    case 220: // wlan_ap_auto_channel_select: the radio leaves its channel again
        return true;
    default:
        return false;
    }
}

// A number that stands in the wrong place shows in the name of this type in the compiler's message.
template <unsigned number>
struct NumberOutOfOrderOrUnassigned {
    static_assert(number == 0);
};

consteval unsigned first_wrong_number() {
    unsigned previous = 0;
    for (const Procedure &procedure : protocol) {
        if (procedure.number <= previous || procedure.number > last_procedure ||
            procedure.number == unassigned_procedure)
            return procedure.number == 0 ? last_procedure + 1 : procedure.number;
        previous = procedure.number;
    }
    return 0;
}
static_assert(sizeof(NumberOutOfOrderOrUnassigned<first_wrong_number()>) != 0);
