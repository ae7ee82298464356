#pragma once

#include "backend/packed.h"
#include "backend/status.h"

#include <array>
#include <cstddef>
#include <cstdint>

// The associated stations as the driver tells them, and the traffic counters of a BSS. All of it is asked
// afresh.

// One station. Everything but the BSS, the address, the driver's number and the rate is passed on as it is.
struct StationRecord {
    std::uint8_t bss; // number within the band, from 0
    std::array<std::uint8_t, 6> mac;
    std::array<std::uint8_t, 3> unused1;
    std::array<std::int8_t, 3> antenna_rssi; // dBm
    std::int8_t rssi;                        // dBm
    std::int8_t signed14;
    std::uint8_t driver_number; // what the driver itself calls the station in its other answers, 0 to 31
    Packed<std::uint32_t> value16;
    std::uint8_t rate; // bits 0 to 6 the MCS, bit 7 the bandwidth
    std::array<std::uint8_t, 3> unused2;
    Packed<std::uint32_t> value24;
    Packed<std::uint16_t> bits28, value30, value32, value34;
    std::uint8_t mode36;
    std::array<std::uint8_t, 3> unused3;
    Packed<std::uint32_t> value40, value44, value48, value52, value56, value60;
    std::array<std::uint8_t, 8> unused4;
    Packed<std::uint32_t> value72;
    std::uint8_t vendor_prefix_count; // as the driver says, whatever the room
    std::array<std::array<std::uint8_t, 3>, 5> vendor_prefixes;
    std::array<char, 32> name;
    std::array<std::uint8_t, 16> unused5;
};
static_assert(sizeof(StationRecord) == 140 && alignof(StationRecord) == 1 &&
              offsetof(StationRecord, mac) == 1 && offsetof(StationRecord, antenna_rssi) == 10 &&
              offsetof(StationRecord, rssi) == 13 && offsetof(StationRecord, signed14) == 14 &&
              offsetof(StationRecord, driver_number) == 15 && offsetof(StationRecord, value16) == 16 &&
              offsetof(StationRecord, rate) == 20 && offsetof(StationRecord, value24) == 24 &&
              offsetof(StationRecord, bits28) == 28 && offsetof(StationRecord, value34) == 34 &&
              offsetof(StationRecord, mode36) == 36 && offsetof(StationRecord, value40) == 40 &&
              offsetof(StationRecord, value60) == 60 && offsetof(StationRecord, value72) == 72 &&
              offsetof(StationRecord, vendor_prefix_count) == 76 &&
              offsetof(StationRecord, vendor_prefixes) == 77 && offsetof(StationRecord, name) == 92);

struct StationTable {
    Packed<std::uint32_t> count; // never above the room once it was read by the operations below
    std::array<StationRecord, 65> stations;
};
static_assert(sizeof(StationTable) == 9104 && offsetof(StationTable, stations) == 4);

constexpr unsigned highest_driver_number = 31;

// Stations of the BSS of `index`. -1 before the driver is initialised, for an index without a BSS, and when
// the driver does not answer or claims more stations than its table holds.
Status ZAV_GetAssocDevicesNum(int index, unsigned *ret_count);
// The device_number-th of them, from 0; -1 with an error line when there are fewer.
Status ZAV_GetAssocDevice(int index, int device_number, StationRecord *ret_station);

// Those of the whole radio. The table takes kilobytes: not for a worker's stack.
Status ZAV_GetAssocDevicesTable(int index, StationTable *ret_table);
Status ZAV_GetAssocDevicesTableNumOfEntries(int index, unsigned *ret_count);

// The signal strength, in dBm, that three antennas have together.
void ZAV_EquivalentRssiCalc(int rssi1, int rssi2, int rssi3, int *ret_rssi);

// A counter of the BSS from the driver's statistics text: "wlan_totalBytesSent", "wlan_totalByteReceived",
// "wlan_totalPacketsSent" or "wlan_totalPacketsReceived". -1 also for any other key, with an error line.
Status ZAV_GetBasicStats(int index, const char *key, unsigned *ret_value);

// Sent and received by turns: errors, unicast packets, drops, multicast packets, broadcast packets; then
// packets of an unknown protocol, received.
using PacketCounters = std::array<int, 11>;
// -1 when the driver does not answer with these counters; some may have been written then.
Status ZAV_GetStats(int index, PacketCounters *ret_counters);
// Takes them out of the driver's answer; `who` is named in the debug line.
Status parse_packet_counters(const char *who, const char *answer, PacketCounters *ret_counters);
