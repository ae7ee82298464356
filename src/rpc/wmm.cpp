#include "api/wmm.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_wmm_supported_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWmmSupported, "[supported = %d ]\n", index, result);
}

int wlan_get_wmm_uaspd_supported_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWmmUaspdSupported, "[supported = %d ]\n", index, result);
}

int wlan_get_wmm_enable_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWmmEnable, "[enable = %d ]\n", index, result);
}

int wlan_set_wmm_enable_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWmmEnable, "[enable=%d]\n", index, value, result);
}

int wlan_get_wmm_uaspd_enable_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWmmUaspdEnable, "[enable = %d ]\n", index, result);
}

int wlan_set_wmm_uaspd_enable_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWmmUaspdEnable, "[enable=%d]\n", index, value, result);
}

int wlan_get_og_aifsn_1_svc(int index, int ac, wlan_config_result_data_t *result) {
    return get_number_of_class(__func__, wlan_getWmmOgAifsn, "[aifsn = %d ]\n", index, ac, result);
}

int wlan_set_og_aifsn_1_svc(int index, int ac, unsigned value, wlan_config_return_code_e *result) {
    return set_selected(__func__, wlan_setWmmOgAifsn, "[aifsn=%d]\n", index, ac, value, result);
}

int wlan_get_og_ecw_min_1_svc(int index, int ac, wlan_config_result_data_t *result) {
    return get_number_of_class(__func__, wlan_getWmmOgEcwMin, "[ecwMin = %d ]\n", index, ac, result);
}

int wlan_set_og_ecw_min_1_svc(int index, int ac, unsigned value, wlan_config_return_code_e *result) {
    return set_selected(__func__, wlan_setWmmOgEcwMin, "[ecwMin=%d]\n", index, ac, value, result);
}

int wlan_get_og_ecw_max_1_svc(int index, int ac, wlan_config_result_data_t *result) {
    return get_number_of_class(__func__, wlan_getWmmOgEcwMax, "[ecwMax = %d ]\n", index, ac, result);
}

int wlan_set_og_ecw_max_1_svc(int index, int ac, unsigned value, wlan_config_return_code_e *result) {
    return set_selected(__func__, wlan_setWmmOgEcwMax, "[ecwMax=%d]\n", index, ac, value, result);
}

int wlan_get_og_tx_op_1_svc(int index, int ac, wlan_config_result_data_t *result) {
    return get_number_of_class(__func__, wlan_getWmmOgTxOp, "[txOp = %d ]\n", index, ac, result);
}

int wlan_set_og_tx_op_1_svc(int index, int ac, unsigned value, wlan_config_return_code_e *result) {
    return set_selected(__func__, wlan_setWmmOgTxOp, "[txOp=%d]\n", index, ac, value, result);
}

int wlan_get_og_ack_policy_1_svc(int index, int ac, wlan_config_result_data_t *result) {
    return get_number_of_class(__func__, wlan_getWmmOgAckPolicy, "[policy = %d ]\n", index, ac, result);
}

int wlan_set_og_ack_policy_1_svc(int index, int ac, bool value, wlan_config_return_code_e *result) {
    return set_selected(__func__, wlan_setWmmOgAckPolicy, "[policy=%d]\n", index, ac, value, result);
}

int wlan_get_ic_aifsn_1_svc(int index, int ac, wlan_config_result_data_t *result) {
    return get_number_of_class(__func__, wlan_getWmmIcAifsn, "[aifsn = %d ]\n", index, ac, result);
}

int wlan_set_ic_aifsn_1_svc(int index, int ac, unsigned value, wlan_config_return_code_e *result) {
    return set_selected(__func__, wlan_setWmmIcAifsn, "[aifsn=%d]\n", index, ac, value, result);
}

int wlan_get_ic_ecw_min_1_svc(int index, int ac, wlan_config_result_data_t *result) {
    return get_number_of_class(__func__, wlan_getWmmIcEcwMin, "[ecwMin = %d ]\n", index, ac, result);
}

int wlan_set_ic_ecw_min_1_svc(int index, int ac, unsigned value, wlan_config_return_code_e *result) {
    return set_selected(__func__, wlan_setWmmIcEcwMin, "[ecwMin=%d]\n", index, ac, value, result);
}

int wlan_get_ic_ecw_max_1_svc(int index, int ac, wlan_config_result_data_t *result) {
    return get_number_of_class(__func__, wlan_getWmmIcEcwMax, "[ecwMax = %d ]\n", index, ac, result);
}

int wlan_set_ic_ecw_max_1_svc(int index, int ac, unsigned value, wlan_config_return_code_e *result) {
    return set_selected(__func__, wlan_setWmmIcEcwMax, "[ecwMax=%d]\n", index, ac, value, result);
}

int wlan_get_wmm_ic_tx_op_1_svc(int index, int ac, wlan_config_result_data_t *result) {
    return get_number_of_class(__func__, wlan_getWmmIcTxOp, "[txOp = %d ]\n", index, ac, result);
}

int wlan_set_wmm_ic_tx_op_1_svc(int index, int ac, unsigned value, wlan_config_return_code_e *result) {
    return set_selected(__func__, wlan_setWmmIcTxOp, "[txOp=%d]\n", index, ac, value, result);
}

int wlan_get_wmm_ic_ack_policy_1_svc(int index, int ac, wlan_config_result_data_t *result) {
    return get_number_of_class(__func__, wlan_getWmmIcAckPolicy, "[policy = %d ]\n", index, ac, result);
}

int wlan_set_wmm_ic_ack_policy_1_svc(int index, int ac, bool value, wlan_config_return_code_e *result) {
    return set_selected(__func__, wlan_setWmmIcAckPolicy, "[policy=%d]\n", index, ac, value, result);
}

int wlan_get_wmm_apsd_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWMMAPSD, "[apsd = %d ]\n", index, result);
}

int wlan_set_wmm_apsd_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWMMAPSD, "[apsd=%d]\n", index, value, result);
}
