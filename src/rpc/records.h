#pragma once

#include "api/records.h"
#include "rpc/arguments.h"

#include <cstddef>
#include <tuple>

// The records of the protocol; those that operations fill are in api/records.h.

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
        unsigned return_data_len; // at most 8256
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

struct InfSMacAddr {
    unsigned char octets[6];
    unsigned char padding[2]; // not on the wire
    auto fields() { return std::tie(octets); }
};

struct SchMacAddrWeight {
    InfSMacAddr mac;
    unsigned weight;
    auto fields() { return std::tie(mac, weight); }
};
static_assert(sizeof(SchMacAddrWeight) == 12 && offsetof(SchMacAddrWeight, weight) == 8);

struct MacWeightData {
    SchMacAddrWeight stations[16];
    auto fields() { return std::tie(stations); }
};
static_assert(sizeof(MacWeightData) == 192);
