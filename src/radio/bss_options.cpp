#include "radio/bss_options.h"

#include "backend/log.h"
#include "backend/value_lists.h"
#include "radio/kinds.h"

constexpr BssList station_isolate{.key = "NoForwarding", .kind = FieldKind::flag};
Status ZAV_GetStationIsolate(int index, unsigned *ret_enable) {
    return read_setting(__func__, station_isolate, index, ret_enable);
}
Status ZAV_SetStationIsolate(int index, unsigned enable) {
    return write_setting(__func__, station_isolate, index, enable);
}

constexpr BssList max_station_num{
    .key = "MaxStaNum", .most = 255, .range = "invalid input. input should be in Range of 0-255"};
Status ZAV_GetMaxStationNum(int index, unsigned *ret_number) {
    return read_setting(__func__, max_station_num, index, ret_number);
}
Status ZAV_SetMaxStationNum(int index, unsigned number) {
    return write_setting(__func__, max_station_num, index, number);
}

constexpr BssList interwork_enable{.key = "wifiInterworkIeEnable", .most = 1, .absent_is_zeros = true};
Status ZAV_GetInterworkIeEnable(int index, unsigned *ret_enable) {
    return read_setting(__func__, interwork_enable, index, ret_enable);
}
Status ZAV_SetInterworkIeEnable(int index, unsigned enable) {
    return write_setting(__func__, interwork_enable, index, enable);
}

constexpr BssList access_net_type{.key = "wifiInterworkIeAccessNetType", .most = 15, .absent_is_zeros = true};
Status ZAV_GetInterworkIeAccessNetType(int index, unsigned *ret_type) {
    return read_setting(__func__, access_net_type, index, ret_type);
}
Status ZAV_SetInterworkIeAccessNetType(int index, unsigned type) {
    return write_setting(__func__, access_net_type, index, type);
}

constexpr BssList ssid_advertisement{
    .key = "HideSSID", .kind = FieldKind::inverted_flag, .keeps_equal = true};
Status ZAV_SetSsidAdvertisementEnabled(int index, unsigned enable) {
    return write_setting(__func__, ssid_advertisement, index, enable);
}

Status ZAV_GetSsidAdvertisementEnabled(int index, unsigned *ret_enable) {
    const Status result = read_setting(__func__, ssid_advertisement, index, ret_enable);
    if (result == success)
        log_debug("[ZAV-API] %s SSID Advertisement:%d\n", __func__, static_cast<int>(*ret_enable));
    return result;
}

constexpr BssList rekey_interval{.key = "RekeyInterval", .bad_index = Reported::by_isIndexValid};
Status ZAV_GetWPAReAuthInterval(int index, unsigned *ret_interval) {
    return read_setting(__func__, rekey_interval, index, ret_interval);
}

// The method goes with the interval.
Status ZAV_SetWPAReAuthInterval(int index, unsigned interval) {
    const char *const who = __func__;
    Bss bss;
    NumberList list;
    log_set(who, index, interval);
    if (find_listed_bss(who, rekey_interval.bad_index, index, &bss) != success)
        return failure;
    return nvram_set_together(bss, [&] {
        if (read_numbers(bss, rekey_interval.key.text, list) != success)
            return failure;
        const Status method =
            write_list_text(who, bss, "RekeyMethod", bss.number, interval != 0 ? "TIME" : "DISABLE");
        if (method == failure)
            return failure;
        list.at(bss.number - 1) = static_cast<int>(interval);
        return code_of_two(method, write_numbers(bss, rekey_interval.key.text, list));
    });
}
