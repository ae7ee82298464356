#include "api/modes.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_beacon_type_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_beacon_type>(__func__, wlan_getBeaconType, "[beaconType %s]\n", index,
                                                     result);
}

int wlan_set_beacon_type_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setBeaconType, "[beaconType=%s]\n", index, value, result);
}

int wlan_get_standard_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_standard>(__func__, wlan_getStandard, "[standard %s]\n", index,
                                                  result);
}

int wlan_set_standard_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setStandard, "[standard=%s]\n", index, value, result);
}

int wlan_get_basic_encryption_modes_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_basic_encryption_modes>(__func__, wlan_getBasicEncryptionModes,
                                                                "[encryption_modes %s]\n", index, result);
}

int wlan_set_basic_encryption_modes_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setBasicEncryptionModes, "[encModes=%s]\n", index, value, result);
}

int wlan_get_basic_authentication_modes_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_basic_authentication_modes>(
        __func__, wlan_getBasicAuthenticationModes, "[encryption_modes %s]\n", index, result);
}

int wlan_set_basic_authentication_modes_1_svc(int index, const char *value,
                                              wlan_config_return_code_e *result) {
    return set(__func__, wlan_setBasicAuthenticationModes, "[authMode=%s]\n", index, value, result);
}

int wlan_get_wpa_encryption_modes_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_wpa_encryption_modes>(__func__, wlan_getWpaEncryptionModes,
                                                              "[wpa_encryption_modes %s]\n", index, result);
}

int wlan_set_wpa_encryption_modes_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWpaEncryptionModes, "[encModes=%s]\n", index, value, result);
}

int wlan_get_wpa_authentication_modes_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_wpa_authentication_modes>(
        __func__, wlan_getWpaAuthenticationModes, "[WPA Authentication Mode %s]\n", index, result);
}

int wlan_set_wpa_authentication_modes_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWpaBasicAuthenticationModes, "[authMode=%s]\n", index, value, result);
}
