#include "api/keys.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_wep_key_index_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWepKeyIndex, "[keyIndex = %d ]\n", index, result);
}

int wlan_set_wep_key_index_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWepKeyIndex, "[wepKeyIndex=%d]\n", index, value, result);
}

int wlan_get_wep_key_passphrase_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_wep_key_passphrase>(__func__, wlan_getWepKeyPassphrase,
                                                            "[passphrase %s]\n", index, result);
}

int wlan_set_wep_key_passphrase_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWepKeyPassphrase, "[passphrase=%s]\n", index, value, result);
}

int wlan_get_encryption_level_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_encryption_level>(__func__, wlan_getWepEncryptionLevel,
                                                          "[encryption_level %s]\n", index, result);
}

int wlan_set_wep_encryption_level_1_svc(int index, const char *value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWepEncryptionLevel, "[EncLevel=%s]\n", index, value, result);
}

int wlan_get_wep_key_1_svc(int index, int key_index, wlan_config_result_data_t *result) {
    return get_key_text<text_size::wlan_get_wep_key>(__func__, wlan_getWepKey, "[key %s]\n", index, key_index,
                                                     result);
}

int wlan_set_wep_key_1_svc(int index, int key_index, const char *value, wlan_config_return_code_e *result) {
    return set_selected(__func__, wlan_setWepKey, "[key=%s]\n", index, key_index, value, result);
}

int wlan_get_pre_shared_key_1_svc(int index, int key_index, wlan_config_result_data_t *result) {
    return get_key_text<text_size::wlan_get_pre_shared_key>(__func__, wlan_getPreSharedKey, "[psk %s]\n",
                                                            index, key_index, result);
}

int wlan_set_pre_shared_key_1_svc(int index, int key_index, const char *value,
                                  wlan_config_return_code_e *result) {
    return set_selected(__func__, wlan_setPreSharedKey, "[psk=%s]\n", index, key_index, value, result);
}

int wlan_get_key_passphrase_1_svc(int index, int key_index, wlan_config_result_data_t *result) {
    return get_key_text<text_size::wlan_get_key_passphrase>(
        __func__, wlan_getKeyPassphrase, "[key passphrase %s]\n", index, key_index, result);
}

int wlan_set_key_passphrase_1_svc(int index, int key_index, const char *value,
                                  wlan_config_return_code_e *result) {
    return set_selected(__func__, wlan_setKeyPassphrase, "[key passphrase=%s]\n", index, key_index, value,
                        result);
}
