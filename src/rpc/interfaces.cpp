#include "api/interfaces.h"

#include "rpc/procedures.h"
#include "rpc/shapes.h"

int wlan_get_number_of_entries_1_svc(wlan_config_result_data_t *result) {
    say_name(__func__);
    unsigned count = 0;
    result->return_code = code_of(wlan_getNumberOfEntries(&count));
    fill_numbers(result, std::span(&count, 1));
    return 1;
}

int wlan_get_name_1_svc(int index, wlan_config_result_data_t *result) {
    return get_text<16>(__func__, wlan_getName, "[name %s]\n", index, result);
}

// The two below answer with a number that means nothing.

int wlan_add_entry_1_svc(wlan_config_result_data_t *result) {
    say(__func__, Line<>("\n"));
    result->return_code = code_of(wlan_addEntry());
    fill_numbers(result, std::array<unsigned, 1>{});
    return 1;
}

int wlan_del_entry_1_svc(int index, wlan_config_result_data_t *result) {
    say_name(__func__);
    result->return_code = code_of(wlan_delEntry(index));
    fill_numbers(result, std::array<unsigned, 1>{});
    say(__func__, Line<int>("[ret = %d]\n"), 0);
    return 1;
}
