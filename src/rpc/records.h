#pragma once

#include "api/records.h"

// The records that every answer is; those that operations fill are made from the protocol's description.

enum wlan_config_return_code_e : int {};

// return_u_int_len counts the bytes that the values occupy, and the array has as many elements: the values
// first, zeros behind them.
struct wlan_config_result_data_t {
    wlan_config_return_code_e return_code;
    struct {
        unsigned return_u_int_len;
        unsigned *return_u_int_val;
    } return_u_int;
    struct {
        unsigned return_data_len; // at most longest_return_data
        char *return_data_val;
    } return_data;
};

// Part of the protocol; no procedure of version 1 answers with it.
struct wlan_device_result_data_t {
    wlan_config_return_code_e return_code;
    struct {
        unsigned devices_len;
        wlan_device_t *devices_val;
    } devices;
};
