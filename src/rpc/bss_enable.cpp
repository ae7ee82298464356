#include "api/bss_enable.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_enable_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getEnable, "[enable = %d ]\n", index, result);
}

int wlan_set_enable_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setEnable, "[enable=%d]\n", index, value, result);
}

int wlan_set_restore_defaults_1_svc(int index, wlan_config_return_code_e *result) {
    return run_action(__func__, wlan_setRestoreDefaults, index, result);
}

int wlan_get_custom_ssid_str_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text_by_name<text_size::wlan_get_custom_ssid_str>(__func__, wlan_getCustomSSIDStr,
                                                                 "[name %s]\n", index, result);
}

int wlan_set_custom_ssid_str_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setCustomSSIDStr, "[ssidStr=%s]\n", index, value, result);
}
