#include "api/bss_identity.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_bssid_port_1_svc(const char *bssid, wlan_config_result_data_t *result) {
    say(__func__, Line<const char *>("[input [bssid : %s] ]\n"), bssid);
    unsigned port = 0, index = 0;
    result->return_code = code_of(wlan_getBssIdPort(bssid, &port, &index));
    fill_numbers(result, std::array{port, index});
    say(__func__, Line<int, int, int>("len %d [port = %d index = %d] \n"),
        shown(result->return_u_int.return_u_int_len), shown(port), shown(index));
    return 1;
}

int wlan_associate_vlan_1_svc(const char *bssid, unsigned short vlan, wlan_config_return_code_e *result) {
    say(__func__, Line<const char *, int>("[input [bssid : %s] [vlan=%d]\n"), bssid, vlan);
    *result = code_of(wlan_associateVlan(bssid, vlan));
    return 1;
}

// The code of the operation is not told: a status that cannot be had is an empty text.
int wlan_get_status_1_svc(int index, wlan_config_result_data_t *result) {
    const int reply =
        get_text<text_size::wlan_get_status>(__func__, wlan_getStatus, "[status %s]\n", index, result);
    result->return_code = code_of(success);
    return reply;
}

int wlan_get_bssid_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_bssid>(__func__, wlan_getBSSID, "[bssid %s]\n", index, result);
}

int wlan_get_ssid_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_ssid>(__func__, wlan_getSSID, "[ssid %s]\n", index, result);
}

int wlan_set_ssid_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setSSID, "[ssid=%s]\n", index, value, result);
}
