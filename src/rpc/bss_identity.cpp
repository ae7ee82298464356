#include "api/bss_identity.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_ssid_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<33>(__func__, wlan_getSSID, "[ssid %s]\n", index, result);
}

int wlan_set_ssid_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setSSID, "[ssid=%s]\n", index, value, result);
}
