#include "api/access_list.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_mac_address_control_enabled_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getMacAddressControlEnabled, "[out_int = %d ]\n", index, result);
}

int wlan_set_mac_address_control_enabled_1_svc(int index, int value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setMacAddressControlEnabled, "[accessType=%d]\n", index, value, result);
}

int wlan_set_mac_address_control_clear_1_svc(int index, wlan_config_return_code_e *result) {
    return run_action(__func__, wlan_setMacAddressControlClear, index, result);
}

int wlan_set_mac_address_control_add_1_svc(int index, const char *mac, const char *name,
                                           wlan_config_return_code_e *result) {
    say(__func__, Line<const char *, const char *>("[mac=%s] [name=%s]\n"), mac, name);
    *result = code_of(wlan_setMacAddressControlAdd(index, mac, name));
    return 1;
}

int wlan_set_mac_address_control_delete_1_svc(int index, const char *mac, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setMacAddressControlDelete, "[mac=%s]\n", index, mac, result);
}

int wlan_get_mac_address_control_list_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text_by_name<text_size::wlan_get_mac_address_control_list>(
        __func__, wlan_getMacAddressControlList, "[name %s]\n", index, result);
}

int wlan_get_mac_address_control_count_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getMacAddressControlCount, "[out_int = %d ]\n", index, result);
}
