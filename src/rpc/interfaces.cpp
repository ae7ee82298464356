#include "api/interfaces.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_number_of_entries_1_svc(wlan_config_result_data_t *result) {
    say_name(__func__);
    unsigned count = 0;
    const Status status = wlan_getNumberOfEntries(&count);
    return reply_number(status, count, result);
}

int wlan_get_name_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<text_size::wlan_get_name>(__func__, wlan_getName, "[name %s]\n", index, result);
}

// The two below answer with a number that means nothing.

int wlan_add_entry_1_svc(wlan_config_result_data_t *result) {
    say(__func__, Line<>("\n"));
    return reply_number(wlan_addEntry(), 0, result);
}

int wlan_del_entry_1_svc(int index, wlan_config_result_data_t *result) {
    say_name(__func__);
    return reply_number(__func__, "[ret = %d]\n", wlan_delEntry(index), 0, result);
}
