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
    {11, wlan_get_status_1_svc},
    {12, wlan_get_name_1_svc},
    {13, wlan_get_bssid_1_svc},
    {14, wlan_get_max_bitrate_1_svc},
    {15, wlan_set_max_bitrate_1_svc},
    {16, wlan_get_channel_1_svc},
    {17, wlan_set_channel_1_svc},
    {18, wlan_get_auto_channel_enable_1_svc},
    {19, wlan_set_auto_channel_enable_1_svc},
    {21, wlan_get_ssid_1_svc},
    {22, wlan_set_ssid_1_svc},
    {41, wlan_get_possible_channels_1_svc},
    {42, wlan_get_basic_data_transmit_rates_1_svc},
    {43, wlan_set_basic_data_transmit_rates_1_svc},
    {44, wlan_get_operational_data_transmit_rates_1_svc},
    {45, wlan_set_operational_data_transmit_rates_1_svc},
    {46, wlan_get_possible_data_transmit_rates_1_svc},
    {47, wlan_get_ssid_advertisement_enabled_1_svc},
    {48, wlan_set_ssid_advertisement_enabled_1_svc},
    {49, wlan_get_radio_enabled_1_svc},
    {50, wlan_set_radio_enabled_1_svc},
    {51, wlan_get_transmit_power_supported_1_svc},
    {52, wlan_get_transmit_power_1_svc},
    {53, wlan_set_transmit_power_1_svc},
    {54, wlan_get_auto_rate_fallback_enable_1_svc},
    {55, wlan_set_auto_rate_fallback_enable_1_svc},
    {66, wlan_get_wmm_supported_1_svc},
    {67, wlan_get_wmm_uaspd_supported_1_svc},
    {68, wlan_get_wmm_enable_1_svc},
    {69, wlan_set_wmm_enable_1_svc},
    {70, wlan_get_wmm_uaspd_enable_1_svc},
    {71, wlan_set_wmm_uaspd_enable_1_svc},
    {72, wlan_get_og_aifsn_1_svc},
    {73, wlan_set_og_aifsn_1_svc},
    {74, wlan_get_og_ecw_min_1_svc},
    {75, wlan_set_og_ecw_min_1_svc},
    {76, wlan_get_og_ecw_max_1_svc},
    {77, wlan_set_og_ecw_max_1_svc},
    {78, wlan_get_og_tx_op_1_svc},
    {79, wlan_set_og_tx_op_1_svc},
    {80, wlan_get_og_ack_policy_1_svc},
    {81, wlan_set_og_ack_policy_1_svc},
    {82, wlan_get_ic_aifsn_1_svc},
    {83, wlan_set_ic_aifsn_1_svc},
    {84, wlan_get_ic_ecw_min_1_svc},
    {85, wlan_set_ic_ecw_min_1_svc},
    {86, wlan_get_ic_ecw_max_1_svc},
    {87, wlan_set_ic_ecw_max_1_svc},
    {116, wlan_get_wmm_ic_tx_op_1_svc},
    {117, wlan_set_wmm_ic_tx_op_1_svc},
    {118, wlan_get_wmm_ic_ack_policy_1_svc},
    {119, wlan_set_wmm_ic_ack_policy_1_svc},
    {122, wlan_get_country_code_1_svc},
    {123, wlan_set_country_code_1_svc},
    {124, wlan_get_bg_protection_1_svc},
    {125, wlan_set_bg_protection_1_svc},
    {126, wlan_get_beacon_interval_1_svc},
    {127, wlan_set_beacon_interval_1_svc},
    {128, wlan_get_dtim_period_1_svc},
    {129, wlan_set_dtim_period_1_svc},
    {130, wlan_get_tx_preamble_1_svc},
    {131, wlan_set_tx_preamble_1_svc},
    {132, wlan_get_rts_threshold_1_svc},
    {133, wlan_set_rts_threshold_1_svc},
    {134, wlan_get_frag_threshold_1_svc},
    {135, wlan_set_frag_threshold_1_svc},
    {136, wlan_get_short_slot_1_svc},
    {137, wlan_set_short_slot_1_svc},
    {138, wlan_get_tx_burst_1_svc},
    {139, wlan_set_tx_burst_1_svc},
    {140, wlan_get_short_retry_limit_1_svc},
    {141, wlan_set_short_retry_limit_1_svc},
    {142, wlan_get_long_retry_limit_1_svc},
    {143, wlan_set_long_retry_limit_1_svc},
    {144, wlan_get_ht_mcs_1_svc},
    {145, wlan_set_ht_mcs_1_svc},
    {146, wlan_get_channel_bw_1_svc},
    {147, wlan_set_channel_bw_1_svc},
    {148, wlan_get_ht_mode_1_svc},
    {149, wlan_set_ht_mode_1_svc},
    {150, wlan_get_guard_interval_1_svc},
    {151, wlan_set_guard_interval_1_svc},
    {152, wlan_get_ams_du_1_svc},
    {153, wlan_set_ams_du_1_svc},
    {154, wlan_get_ba_decline_1_svc},
    {155, wlan_set_ba_decline_1_svc},
    {156, wlan_get_block_ack_1_svc},
    {157, wlan_set_block_ack_1_svc},
    {158, wlan_get_n_protection_1_svc},
    {159, wlan_set_n_protection_1_svc},
    {160, wlan_get_wpa_group_reauth_interval_1_svc},
    {161, wlan_set_wpa_group_reauth_interval_1_svc},
    {162, wlan_get_wpa_reauth_interval_1_svc},
    {163, wlan_set_wpa_reauth_interval_1_svc},
    {164, wlan_get_wpa_preauth_1_svc},
    {165, wlan_set_wpa_preauth_1_svc},
    {166, wlan_get_wmm_apsd_1_svc},
    {167, wlan_set_wmm_apsd_1_svc},
    {171, wlan_set_wps_model_name_1_svc},
    {174, wlan_get_wps_config_timeout_1_svc},
    {175, wlan_set_wps_config_timeout_1_svc},
    {182, wlan_set_bss_isolate_1_svc},
    {183, wlan_get_bss_isolate_1_svc},
    {184, wlan_set_station_isolate_1_svc},
    {185, wlan_get_station_isolate_1_svc},
    {186, wlan_get_side_band_1_svc},
    {187, wlan_set_side_band_1_svc},
    {196, wlan_get_ht_tx_stream_1_svc},
    {197, wlan_set_ht_tx_stream_1_svc},
    {198, wlan_get_ht_rx_stream_1_svc},
    {199, wlan_set_ht_rx_stream_1_svc},
    {200, wlan_get_ht_stbc_1_svc},
    {201, wlan_set_ht_stbc_1_svc},
    {202, wlan_get_ht_rdg_1_svc},
    {203, wlan_set_ht_rdg_1_svc},
    {204, wlan_get_extension_channel_1_svc},
    {205, wlan_set_extension_channel_1_svc},
    {206, wlan_restart_all_1_svc},
    {207, wlan_restart_1_svc},
    {208, wlan_get_ieee80211h_enable_1_svc},
    {209, wlan_set_ieee80211h_enable_1_svc},
    {210, wlan_get_igmp_snooping_1_svc},
    {211, wlan_set_igmp_snooping_1_svc},
    {212, wlan_get_max_station_num_1_svc},
    {213, wlan_set_max_station_num_1_svc},
    {214, wlan_get_implicit_beamforming_enable_1_svc},
    {215, wlan_set_implicit_beamforming_enable_1_svc},
    {216, wlan_get_current_channel_1_svc},
    {233, wlan_set_fcc_14_30_enable_1_svc},
    {234, wlan_set_interworkie_enable_1_svc},
    {235, wlan_set_interworkieaccessnettype_1_svc},
    {236, wlan_get_interworkie_enable_1_svc},
    {237, wlan_get_interworkieaccessnettype_1_svc},
    {252, wlan_set_acct_interim_interval_1_svc},
    {253, wlan_get_acct_interim_interval_1_svc},
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
