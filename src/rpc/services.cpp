#include "rpc/procedures.h"
#include "rpc/protocol.h"
#include "rpc/service.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <type_traits>
#include <utility>

namespace {

constexpr Service services[] = {
    {1, wlan_load_1_svc},
    {2, wlan_init_1_svc},
    {3, wlan_reset_1_svc},
    {4, wlan_get_number_of_entries_1_svc},
    {5, wlan_add_entry_1_svc},
    {6, wlan_del_entry_1_svc},
    {7, wlan_get_bssid_port_1_svc},
    {8, wlan_associate_vlan_1_svc},
    {9, wlan_get_enable_1_svc},
    {10, wlan_set_enable_1_svc},
    {11, wlan_get_status_1_svc},
    {12, wlan_get_name_1_svc},
    {13, wlan_get_bssid_1_svc},
    {14, wlan_get_max_bitrate_1_svc},
    {15, wlan_set_max_bitrate_1_svc},
    {21, wlan_get_ssid_1_svc},
    {22, wlan_set_ssid_1_svc},
    {23, wlan_get_beacon_type_1_svc},
    {24, wlan_set_beacon_type_1_svc},
    {25, wlan_get_mac_address_control_enabled_1_svc},
    {26, wlan_set_mac_address_control_enabled_1_svc},
    {27, wlan_get_standard_1_svc},
    {28, wlan_get_wep_key_index_1_svc},
    {29, wlan_set_wep_key_index_1_svc},
    {30, wlan_get_wep_key_passphrase_1_svc},
    {31, wlan_set_wep_key_passphrase_1_svc},
    {32, wlan_get_encryption_level_1_svc},
    {33, wlan_get_basic_encryption_modes_1_svc},
    {34, wlan_set_basic_encryption_modes_1_svc},
    {35, wlan_get_basic_authentication_modes_1_svc},
    {36, wlan_set_basic_authentication_modes_1_svc},
    {37, wlan_get_wpa_encryption_modes_1_svc},
    {38, wlan_set_wpa_encryption_modes_1_svc},
    {39, wlan_get_wpa_authentication_modes_1_svc},
    {40, wlan_set_wpa_authentication_modes_1_svc},
    {42, wlan_get_basic_data_transmit_rates_1_svc},
    {43, wlan_set_basic_data_transmit_rates_1_svc},
    {44, wlan_get_operational_data_transmit_rates_1_svc},
    {45, wlan_set_operational_data_transmit_rates_1_svc},
    {46, wlan_get_possible_data_transmit_rates_1_svc},
    {49, wlan_get_radio_enabled_1_svc},
    {50, wlan_set_radio_enabled_1_svc},
    {51, wlan_get_transmit_power_supported_1_svc},
    {52, wlan_get_transmit_power_1_svc},
    {53, wlan_set_transmit_power_1_svc},
    {54, wlan_get_auto_rate_fallback_enable_1_svc},
    {55, wlan_set_auto_rate_fallback_enable_1_svc},
    {56, wlan_get_basic_stats_1_svc},
    {57, wlan_get_stats_1_svc},
    {58, wlan_get_assoc_devices_num_1_svc},
    {59, wlan_get_assoc_device_1_svc},
    {60, wlan_get_wep_key_1_svc},
    {61, wlan_set_wep_key_1_svc},
    {62, wlan_get_pre_shared_key_1_svc},
    {63, wlan_set_pre_shared_key_1_svc},
    {64, wlan_get_key_passphrase_1_svc},
    {65, wlan_set_key_passphrase_1_svc},
    {66, wlan_get_wmm_supported_1_svc},
    {67, wlan_get_wmm_uaspd_supported_1_svc},
    {70, wlan_get_wmm_uaspd_enable_1_svc},
    {88, wlan_get_wps_enable_1_svc},
    {89, wlan_set_wps_enable_1_svc},
    {90, wlan_get_wps_device_name_1_svc},
    {91, wlan_get_wps_device_password_1_svc},
    {92, wlan_set_wps_device_password_1_svc},
    {93, wlan_get_wps_uuid_1_svc},
    {94, wlan_get_wps_version_1_svc},
    {95, wlan_get_wps_config_methods_supported_1_svc},
    {96, wlan_get_wps_config_methods_enabled_1_svc},
    {97, wlan_set_wps_config_methods_enabled_1_svc},
    {98, wlan_get_wps_setup_locked_state_1_svc},
    {99, wlan_get_wps_setup_lock_1_svc},
    {100, wlan_set_wps_setup_lock_1_svc},
    {101, wlan_get_wps_configuration_state_1_svc},
    {102, wlan_get_wps_last_configuration_error_1_svc},
    {103, wlan_get_wps_registrar_entries_num_1_svc},
    {104, wlan_get_wps_registrar_established_1_svc},
    {105, wlan_get_wps_registrar_enabled_1_svc},
    {106, wlan_set_wps_registrar_enabled_1_svc},
    {107, wlan_get_wps_registrar_uuid_1_svc},
    {108, wlan_get_wps_registrar_device_name_1_svc},
    {109, wlan_set_mac_address_control_clear_1_svc},
    {110, wlan_set_mac_address_control_add_1_svc},
    {111, wlan_set_mac_address_control_delete_1_svc},
    {112, wlan_get_mac_address_control_list_1_svc},
    {113, wlan_get_mac_address_control_count_1_svc},
    {114, wlan_set_standard_1_svc},
    {115, wlan_set_wep_encryption_level_1_svc},
    {120, wlan_set_wps_cancel_1_svc},
    {121, wlan_set_wps_uuid_1_svc},
    {160, wlan_get_wpa_group_reauth_interval_1_svc},
    {161, wlan_set_wpa_group_reauth_interval_1_svc},
    {166, wlan_get_wmm_apsd_1_svc},
    {168, wlan_get_wps_mode_1_svc},
    {169, wlan_set_wps_mode_1_svc},
    {170, wlan_get_wps_model_name_1_svc},
    {171, wlan_set_wps_model_name_1_svc},
    {172, wlan_get_wps_result_status_1_svc},
    {173, wlan_get_wps_status_1_svc},
    {174, wlan_get_wps_config_timeout_1_svc},
    {175, wlan_set_wps_config_timeout_1_svc},
    {176, wlan_set_wps_pushbutton_1_svc},
    {177, wlan_set_wps_pinstart_1_svc},
    {178, wlan_set_restore_defaults_1_svc},
    {179, wlan_get_custom_ssid_str_1_svc},
    {180, wlan_set_custom_ssid_str_1_svc},
    {181, wlan_set_wps_oob_1_svc},
    {188, wlan_get_radius_server_address_1_svc},
    {189, wlan_set_radius_server_address_1_svc},
    {190, wlan_get_radius_server_port_1_svc},
    {191, wlan_set_radius_server_port_1_svc},
    {192, wlan_get_radius_server_key_1_svc},
    {193, wlan_set_radius_server_key_1_svc},
    {194, wlan_get_radius_reauth_interval_1_svc},
    {195, wlan_set_radius_reauth_interval_1_svc},
    {206, wlan_restart_all_1_svc},
    {207, wlan_restart_1_svc},
    {217, wlan_get_ap_scan_num_of_entries_1_svc},
    {218, wlan_get_ap_scan_result_1_svc},
    {219, wlan_ap_scan_1_svc},
    {220, wlan_ap_auto_channel_select_1_svc},
    {221, wlan_get_assoc_devices_table_1_svc},
    {222, wlan_get_assoc_devices_table_num_of_entries_1_svc},
    {223, wlan_get_ap_scan_status_1_svc},
    {224, wlan_get_air_time_management_stats_1_svc},
    {225, wlan_get_frames_in_queue_data_1_svc},
    {226, wlan_get_rate_adapt_data_1_svc},
    {227, wlan_set_air_time_bssid_weight_1_svc},
    {228, wlan_get_air_time_bssid_weight_1_svc},
    {229, wlan_set_air_time_sta_weight_1_svc},
    {230, wlan_del_air_time_sta_weight_1_svc},
    {231, wlan_get_air_time_sta_weight_1_svc},
    {232, wlan_get_bss_air_time_management_info_1_svc},
    {238, wlan_get_channel_statistics_1_svc},
    {239, wlan_get_channel_noise_floor_1_svc},
    {240, wlan_get_radio_tx_packets_1_svc},
    {241, wlan_get_radio_rx_packets_1_svc},
    {242, wlan_get_retransmission_metric_1_svc},
    {243, wlan_set_rad_stat_enable_1_svc},
    {244, wlan_get_rssi_table_1_svc},
    {245, wlan_set_noise_floor_type_1_svc},
    {246, wlan_get_acct_server_address_1_svc},
    {247, wlan_set_acct_server_address_1_svc},
    {248, wlan_get_acct_server_port_1_svc},
    {249, wlan_set_acct_server_port_1_svc},
    {250, wlan_get_acct_server_key_1_svc},
    {251, wlan_set_acct_server_key_1_svc},
};

// Whether a server procedure's parameters are what its protocol row says.
template <class... Parameters>
constexpr bool fits(const Procedure &row, int (*)(Parameters...)) {
    using Types = std::tuple<Parameters...>;
    constexpr std::size_t arguments = sizeof...(Parameters) - 1;
    constexpr bool sends_code =
        std::is_same_v<std::tuple_element_t<arguments, Types>, wlan_config_return_code_e *>;
    return row.arguments.count == arguments &&
           sends_code == (row.result == Result::code) &&[&]<std::size_t... i>(std::index_sequence<i...>) {
        return (true && ... && (row.arguments.fields[i].kind == kind_of<std::tuple_element_t<i, Types>>));
    }
    (std::make_index_sequence<arguments>{});
}

template <unsigned number>
struct ServiceDoesNotFitProtocol {
    static constexpr bool is_none = number == 0;
};

consteval unsigned first_misfit() {
    for (std::size_t i = 0; i < std::size(protocol); ++i) {
        const bool good =
            i < std::size(services) && services[i].number == protocol[i].number &&
            std::visit([&](auto procedure) { return fits(protocol[i], procedure); }, services[i].procedure);
        if (!good)
            return protocol[i].number;
    }
    return std::size(services) == std::size(protocol) ? 0 : services[std::size(protocol)].number;
}
static_assert(ServiceDoesNotFitProtocol<first_misfit()>::is_none);

} // namespace

const Service *find_service(unsigned number) {
    const auto row = std::lower_bound(std::begin(services), std::end(services), number,
                                      [](const Service &service, unsigned n) { return service.number < n; });
    return row == std::end(services) || row->number != number ? nullptr : row;
}
