#include "api/site_survey.h"

#include "backend/log.h"
#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_ap_scan_num_of_entries_1_svc(int index, wlan_config_result_data_t *result) {
    say(__func__, Line<int>("[index %d]\n"), index);
    unsigned count = 0;
    const Status status = wlan_getApScanNumOfEntries(index, &count);
    return reply_number(__func__, "[entries = %d ]\n", status, count, result);
}

int wlan_get_ap_scan_result_1_svc(int index, wlan_config_result_data_t *result) {
    say(__func__, Line<int>("[index %d]\n"), index);
    scan_table table{};
    result->return_code = code_of(wlan_getApScanResult(index, &table));
    fill_record(result, std::as_bytes(std::span(&table, 1)));
    // The second is the array of numbers, which is empty.
    say(__func__,
        Line<int, int>(
            "result->return_data.return_data_len = %d result->return_u_int.return_u_int_val = %d\n"),
        shown(result->return_data.return_data_len), 0);
    return 1;
}

// The lines at the end of the two procedures below come with or without debugging.

int wlan_ap_scan_1_svc(int index, wlan_config_result_data_t *result) {
    say(__func__, Line<int>("index %d\n"), index);
    result->return_code = code_of(wlan_ApSiteSurvey(index));
    fill_nothing(result);
    log_output("end wlan_ap_scan_1_svc\n");
    return 1;
}

int wlan_ap_auto_channel_select_1_svc(int index, wlan_config_result_data_t *result) {
    say(__func__, Line<int>("[index %d]\n"), index);
    const Status status = wlan_apAutoChannelSelect(index);
    result->return_code = code_of(status);
    fill_nothing(result);
    log_debug("[ZAV-API] %s  WLAN RPC server return code :%d\n", __func__, status);
    return 1;
}

int wlan_get_ap_scan_status_1_svc(int index, wlan_config_result_data_t *result) {
    say(__func__, Line<int>("index %d\n"), index);
    unsigned status = 0;
    result->return_code = code_of(wlan_ApSiteSurveyStatus(index, &status));
    fill_numbers(result, std::span(&status, 1));
    log_output("end wlan_get_ap_scan_status_1_svc\n");
    return 1;
}
