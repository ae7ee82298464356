#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <tuple>

// The records that operations fill and clients receive. They travel as their memory image, so their layout is
// the wire format. `fields()` names a record's items in wire order; items in a tuple of their own are a run
// of 32-bit words, which is coded in one piece.

static_assert(std::endian::native == std::endian::little, "the images are little-endian");

struct wlan_basicStats_t {
    unsigned bytes_sent, bytes_received, packets_sent, packets_received, associations;
    auto fields() {
        return std::tie(bytes_sent, bytes_received, packets_sent, packets_received, associations);
    }
};
static_assert(sizeof(wlan_basicStats_t) == 20);

struct wlan_stats_t {
    unsigned errors_sent, errors_received;
    unsigned unicast_packets_sent, unicast_packets_received;
    unsigned discard_packets_sent, discard_packets_received;
    unsigned multicast_packets_sent, multicast_packets_received;
    unsigned broadcast_packets_sent, broadcast_packets_received;
    unsigned unknown_protocol_packets_received;
    auto fields() {
        return std::tie(errors_sent, errors_received, unicast_packets_sent, unicast_packets_received,
                        discard_packets_sent, discard_packets_received, multicast_packets_sent,
                        multicast_packets_received, broadcast_packets_sent, broadcast_packets_received,
                        unknown_protocol_packets_received);
    }
};
static_assert(sizeof(wlan_stats_t) == 44);

struct wlan_device_t {
    char mac_address[18];
    char ip_address[64];
    char group_list[45];
    char text_field[17];
    unsigned counter1, counter2, counter3, counter4, counter5;
    int rssi;
    unsigned counter6, counter7;
    unsigned short short_value;
    unsigned counter8, counter9, counter10;
    unsigned char byte_value;
    int int_value1, int_value2;
    char name_field[32];
    auto fields() {
        return std::tuple(std::tie(mac_address, ip_address, group_list, text_field),
                          std::tie(counter1, counter2, counter3, counter4, counter5, rssi, counter6, counter7,
                                   short_value, counter8, counter9, counter10),
                          std::tie(byte_value), std::tie(int_value1, int_value2), std::tie(name_field));
    }
};
static_assert(sizeof(wlan_device_t) == 236 && offsetof(wlan_device_t, text_field) == 127 &&
              offsetof(wlan_device_t, counter1) == 144 && offsetof(wlan_device_t, rssi) == 164 &&
              offsetof(wlan_device_t, short_value) == 176 && offsetof(wlan_device_t, counter8) == 180 &&
              offsetof(wlan_device_t, byte_value) == 192 && offsetof(wlan_device_t, name_field) == 204);

struct wlan_assoc_devices_table {
    std::uint32_t count;
    wlan_device_t devices[32];
    auto fields() { return std::tie(count, devices); }
};
static_assert(sizeof(wlan_assoc_devices_table) == 7556);

struct scan_entry {
    unsigned char bssid[6];
    char ssid[32];
    unsigned char octets1[12];
    unsigned char byte1;
    unsigned char octets2[12];
    unsigned char byte2;
    unsigned char octets3[15];
    unsigned char byte3;
    unsigned char byte4;
    char text1[6];
    char char1;
    char text2[15];
    char text3[8];
    char text4[8];
    int number;
    unsigned char byte5;
    auto fields() {
        return std::tie(bssid, ssid, octets1, byte1, octets2, byte2, octets3, byte3, byte4, text1, char1,
                        text2, text3, text4, number, byte5);
    }
};
static_assert(sizeof(scan_entry) == 128 && offsetof(scan_entry, octets3) == 64 &&
              offsetof(scan_entry, text1) == 81 && offsetof(scan_entry, text4) == 111 &&
              offsetof(scan_entry, number) == 120 && offsetof(scan_entry, byte5) == 124);

struct scan_table {
    unsigned char count;
    scan_entry entries[64];
    auto fields() { return std::tie(count, entries); }
};
static_assert(sizeof(scan_table) == 8196 && offsetof(scan_table, entries) == 4);

struct AirTimeStats {
    std::uint64_t value1, value2;
    auto fields() { return std::tie(value1, value2); }
};
static_assert(sizeof(AirTimeStats) == 16);

struct SchSRateAdaptPERStats {
    std::uint64_t value1, value2, value3, value4, value5;
    auto fields() { return std::tie(value1, value2, value3, value4, value5); }
};
static_assert(sizeof(SchSRateAdaptPERStats) == 40);

struct RateData {
    SchSRateAdaptPERStats rates[24];
    std::uint64_t value1, value2;
    auto fields() { return std::tie(rates, value1, value2); }
};
static_assert(sizeof(RateData) == 976 && offsetof(RateData, value1) == 960);

struct FramesInQueueData {
    unsigned value1, value2, value3, value4;
    auto fields() { return std::tie(value1, value2, value3, value4); }
};
static_assert(sizeof(FramesInQueueData) == 16);

struct BSSAirTimeManagementInfo {
    std::uint64_t totals[16];
    std::uint64_t values[128];
    std::uint64_t shares[16];
    auto fields() { return std::tie(totals, values, shares); }
};
static_assert(sizeof(BSSAirTimeManagementInfo) == 1280 && offsetof(BSSAirTimeManagementInfo, shares) == 1152);
