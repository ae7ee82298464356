#include "api/rates.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_basic_data_transmit_rates_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_basic_data_transmit_rates>(__func__, wlan_getBasicDataTransmitRates,
                                                                   "[txRates %s]\n", index, result);
}

int wlan_set_basic_data_transmit_rates_1_svc(int index, const char *value,
                                             wlan_config_return_code_e *result) {
    return set(__func__, wlan_setBasicDataTransmitRates, "[txRates=%s]\n", index, value, result);
}

int wlan_get_operational_data_transmit_rates_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_operational_data_transmit_rates>(
        __func__, wlan_getOperationalDataTransmitRates, "[txRates %s]\n", index, result);
}

int wlan_set_operational_data_transmit_rates_1_svc(int index, const char *value,
                                                   wlan_config_return_code_e *result) {
    return set(__func__, wlan_setOperationalDataTransmitRates, "[txRates=%s]\n", index, value, result);
}

int wlan_get_possible_data_transmit_rates_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_possible_data_transmit_rates>(
        __func__, wlan_getPossibleDataTransmitRates, "[txRates %s]\n", index, result);
}
