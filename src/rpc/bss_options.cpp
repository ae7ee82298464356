#include "api/bss_options.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

// The getters of interworking show the index unsigned.
static int get_interwork_number(const char *who, Status (*operation)(int, unsigned *), Line<int> line,
                                int index, wlan_config_result_data_t *result) {
    say(who, Line<unsigned>("index %u\n"), static_cast<unsigned>(index));
    unsigned value = 0;
    const Status status = operation(index, &value);
    return reply_number(who, line, status, value, result);
}

int wlan_get_ssid_advertisement_enabled_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getSsidAdvertisementEnabled, "[enable = %d ]\n", index, result);
}

int wlan_set_ssid_advertisement_enabled_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setSsidAdvertisementEnabled, "[enabled=%d]\n", index, value, result);
}

int wlan_get_wpa_reauth_interval_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getWPAReAuthInterval, "[out_uint = %d ]\n", index, result);
}

int wlan_set_wpa_reauth_interval_1_svc(int index, unsigned value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setWPAReAuthInterval, "[reAuthInt=%d]\n", index, value, result);
}

// (Its line says apsd, and readers of the log know it so.)
int wlan_get_station_isolate_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getStationIsolate, "[apsd = %d ]\n", index, result);
}

int wlan_set_station_isolate_1_svc(int index, bool value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setStationIsolate, "[enable=%d]\n", index, value, result);
}

int wlan_get_max_station_num_1_svc(int index, wlan_config_result_data_t *result) {
    return get_number(__func__, wlan_getMaxStationNum, "[out_int = %d ]\n", index, result);
}

int wlan_set_max_station_num_1_svc(int index, int value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setMaxStationNum, "[maxStaNum=%d]\n", index, value, result);
}

int wlan_get_interworkie_enable_1_svc(int index, wlan_config_result_data_t *result) {
    return get_interwork_number(__func__, wlan_getInterworkIeEnable, "[enable = %d ]\n", index, result);
}

int wlan_set_interworkie_enable_1_svc(int index, int value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setInterworkIeEnable, "[InterworkIeEnable=%d]\n", index, value, result);
}

int wlan_get_interworkieaccessnettype_1_svc(int index, wlan_config_result_data_t *result) {
    return get_interwork_number(__func__, wlan_getInterworkIeAccessNetType, "[value = %d ]\n", index, result);
}

int wlan_set_interworkieaccessnettype_1_svc(int index, int value, wlan_config_return_code_e *result) {
    return set(__func__, wlan_setInterworkIeAccessNetType, "[InterworkIeAccessNetType=%d]\n", index, value,
               result);
}
