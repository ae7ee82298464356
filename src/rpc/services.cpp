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
    {21, wlan_get_ssid_1_svc},
    {22, wlan_set_ssid_1_svc},
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
    {66, wlan_get_wmm_supported_1_svc},
    {67, wlan_get_wmm_uaspd_supported_1_svc},
    {70, wlan_get_wmm_uaspd_enable_1_svc},
    {160, wlan_get_wpa_group_reauth_interval_1_svc},
    {161, wlan_set_wpa_group_reauth_interval_1_svc},
    {166, wlan_get_wmm_apsd_1_svc},
    {171, wlan_set_wps_model_name_1_svc},
    {174, wlan_get_wps_config_timeout_1_svc},
    {175, wlan_set_wps_config_timeout_1_svc},
    {206, wlan_restart_all_1_svc},
    {207, wlan_restart_1_svc},
    {217, wlan_get_ap_scan_num_of_entries_1_svc},
    {218, wlan_get_ap_scan_result_1_svc},
    {219, wlan_ap_scan_1_svc},
    {220, wlan_ap_auto_channel_select_1_svc},
    {223, wlan_get_ap_scan_status_1_svc},
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
