#include "api/wps.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_set_wps_model_name_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWpsModelName, "[modelName=%s]\n", index, value, result);
}

int wlan_get_wps_config_timeout_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWpsConfigTimeout, "[out_uint = %d ]\n", index, result);
}

int wlan_set_wps_config_timeout_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWpsConfigTimeout, "[configTimeout=%d]\n", index, value, result);
}
