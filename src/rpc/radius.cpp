#include "api/radius.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_radius_server_address_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text_by_name<text_size::wlan_get_radius_server_address>(__func__, wlan_getRadiusServerAddress,
                                                                       "[name %s]\n", index, result);
}

int wlan_set_radius_server_address_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setRadiusServerAddress, "[ip_address=%s]\n", index, value, result);
}

int wlan_get_radius_server_port_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getRadiusServerPort, "[out_int = %d ]\n", index, result);
}

int wlan_set_radius_server_port_1_svc(int index, int value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setRadiusServerPort, "[port=%d]\n", index, value, result);
}

int wlan_get_radius_server_key_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text_by_name<text_size::wlan_get_radius_server_key>(__func__, wlan_getRadiusServerKey,
                                                                   "[name %s]\n", index, result);
}

int wlan_set_radius_server_key_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setRadiusServerKey, "[key=%s]\n", index, value, result);
}

int wlan_get_radius_reauth_interval_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getRadiusReAuthInterval, "[out_int = %d ]\n", index, result);
}

int wlan_set_radius_reauth_interval_1_svc(int index, int value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setRadiusReAuthInterval, "[interval=%d]\n", index, value, result);
}

int wlan_get_acct_server_address_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text_by_name<text_size::wlan_get_acct_server_address>(__func__, wlan_getAcctServerAddress,
                                                                     "[name %s]\n", index, result);
}

int wlan_set_acct_server_address_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setAcctServerAddress, "[ip_address=%s]\n", index, value, result);
}

int wlan_get_acct_server_port_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getAcctServerPort, "[out_int = %d ]\n", index, result);
}

int wlan_set_acct_server_port_1_svc(int index, int value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setAcctServerPort, "[port=%d]\n", index, value, result);
}

int wlan_get_acct_server_key_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text_by_name<text_size::wlan_get_acct_server_key>(__func__, wlan_getAcctServerKey,
                                                                 "[name %s]\n", index, result);
}

int wlan_set_acct_server_key_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setAcctServerKey, "[key=%s]\n", index, value, result);
}
