#include "api/ht.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_ht_mcs_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getHTMcs, "[out_uint = %d ]\n", index, result);
}

int wlan_set_ht_mcs_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setHTMcs, "[mcs=%d]\n", index, value, result);
}

int wlan_get_channel_bw_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getChannelBW, "[out_int = %d ]\n", index, result);
}

int wlan_set_channel_bw_1_svc(int index, int value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setChannelBW, "[bw=%d]\n", index, value, result);
}

int wlan_get_ht_mode_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getHTMode, "[htMode = %d ]\n", index, result);
}

int wlan_set_ht_mode_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setHTMode, "[htMode=%d]\n", index, value, result);
}

int wlan_get_guard_interval_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getGuardInterval, "[out_int = %d ]\n", index, result);
}

int wlan_set_guard_interval_1_svc(int index, int value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setGuardInterval, "[guardInterval=%d]\n", index, value, result);
}

int wlan_get_ams_du_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getAmsdu, "[amsdu = %d ]\n", index, result);
}

int wlan_set_ams_du_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setAmsdu, "[amsdu=%d]\n", index, value, result);
}

int wlan_get_ba_decline_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getBADecline, "[baDecline = %d ]\n", index, result);
}

int wlan_set_ba_decline_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setBADecline, "[baDecline=%d]\n", index, value, result);
}

int wlan_get_block_ack_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getBlockAck, "[ba = %d ]\n", index, result);
}

int wlan_set_block_ack_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setBlockAck, "[ba=%d]\n", index, value, result);
}

int wlan_get_n_protection_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getNProtection, "[nProtection = %d ]\n", index, result);
}

int wlan_set_n_protection_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setNProtection, "[nProtection=%d]\n", index, value, result);
}

// (Its line says apsd, and readers of the log know it so.)
int wlan_get_side_band_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getSideBand, "[apsd = %d ]\n", index, result);
}

int wlan_set_side_band_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setSideBand, "[sideband=%d]\n", index, value, result);
}

int wlan_get_ht_tx_stream_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getHTTxStream, "[out_int = %d ]\n", index, result);
}

int wlan_set_ht_tx_stream_1_svc(int index, int value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setHTTxStream, "[stream=%d]\n", index, value, result);
}

int wlan_get_ht_rx_stream_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getHTRxStream, "[out_int = %d ]\n", index, result);
}

int wlan_set_ht_rx_stream_1_svc(int index, int value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setHTRxStream, "[stream=%d]\n", index, value, result);
}

int wlan_get_ht_stbc_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getHTStbc, "[out_int = %d ]\n", index, result);
}

int wlan_set_ht_stbc_1_svc(int index, int value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setHTStbc, "[stbc=%d]\n", index, value, result);
}

int wlan_get_ht_rdg_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getHTRDG, "[out_int = %d ]\n", index, result);
}

int wlan_set_ht_rdg_1_svc(int index, int value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setHTRDG, "[rdg=%d]\n", index, value, result);
}

int wlan_get_implicit_beamforming_enable_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getImplicitBeamformingEnable, "[enable = %d ]\n", index, result);
}

int wlan_set_implicit_beamforming_enable_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setImplicitBeamformingEnable, "[enable=%d]\n", index, value, result);
}
