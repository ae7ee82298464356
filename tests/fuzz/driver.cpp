// What the driver answers, through the operations that read it. Input: which of them, an argument, the
// answer.

#undef NDEBUG
#include "api/air_time.h"
#include "api/radio_statistics.h"
#include "api/rates.h"
#include "api/stations.h"
#include "api/wps.h"
#include "backend/lifecycle.h"
#include "driver_double.h"
#include "security/wps_info.h"

#include <cassert>
#include <cstdint>
#include <cstring>
#include <memory>

namespace {

template <std::size_t size>
bool is_text(const char (&text)[size]) {
    return strnlen(text, size) < size;
}

void check(const wlan_device_t &device) {
    assert(std::strlen(device.mac_address) == 17 && std::strlen(device.text_field) == 16);
    assert(is_text(device.ip_address) && is_text(device.group_list));
    assert(device.counter1 >= 2 && device.counter1 <= 4);
}

void read_stations(int argument) {
    const auto table = std::make_unique<wlan_assoc_devices_table>();
    wlan_device_t device;
    unsigned count = 0, all = 0;
    if (wlan_getAssocDevicesTable(1, table.get()) == success) {
        assert(table->count <= std::size(table->devices));
        for (unsigned i = 0; i < table->count; ++i)
            check(table->devices[i]);
        assert(wlan_getAssocDevicesTableNumOfEntries(1, &all) == success && all >= table->count && all <= 65);
        assert(wlan_getAssocDevicesNum(1, &count) == success && count <= all);
    }
    const bool found = wlan_getAssocDevice(1, argument, &device) == success;
    assert(found == (argument >= 0 && static_cast<unsigned>(argument) < count));
    if (found)
        check(device);
}

// The answer serves for the stations and for their counters alike.
void read_air_time(int argument) {
    FourWords words;
    RateData rates;
    const auto info = std::make_unique<BSSAirTimeManagementInfo>();
    const bool in_range = argument >= 0 && argument < 8;
    for (const int station : {0, 1, argument}) {
        assert(wlan_getAirTimeStats(1, station, argument, &words) == failure || in_range);
        assert(wlan_getFramesInQueueData(1, station, argument, &words) == failure || in_range);
        (void)wlan_getGetStationRateAdaptationData(1, station, &rates);
    }
    assert(wlan_getBSSAirTimeManagementInfo(1, info.get()) == success);
}

void read_radio(int) {
    unsigned words[4];
    int noise[4];
    std::uint64_t count = 0;
    RssiTable table;
    assert(wlan_getChannelStatistics(1, &words[0], &words[1], &words[2]) == success);
    assert(wlan_getChannelNoiseFloor(1, &noise[0], &noise[1], &noise[2], &noise[3]) == success);
    assert(wlan_getRadioTxPackets(1, &count) == success && wlan_getRadioRxPackets(1, &count) == success);
    assert(wlan_getRetransmissionMetric(1, &words[3]) == success && wlan_getRSSITable(1, &table) == success);
}

void read_counters(int) {
    wlan_stats_t stats{};
    (void)wlan_getStats(1, &stats);
}

void read_rates(int argument) {
    std::string rates(static_cast<unsigned char>(argument), '~');
    (void)wlan_getPossibleDataTransmitRates(1, rates);
    assert(rates.empty() || rates.find('\0') != rates.npos);
}

void read_wps(int) {
    const auto &bytes = driver::answers[17];
    const std::string answer(bytes.begin(), bytes.end());
    WscInfo info{};
    if (parse_wsc_info("read_wps", answer.c_str(), &info) == success) {
        assert(info.Mode.back() == '\0' && info.PinCode.back() == '\0' && info.Uuid.back() == '\0');
    }
    std::array<char, 20> name{};
    assert(wlan_getWpsDeviceName(1, name) == failure || (name[0] != '\0' && name.back() == '\0'));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    constexpr void (*readers[])(int) = {read_stations, read_air_time, read_radio,
                                        read_counters, read_rates,    read_wps};
    constexpr std::size_t head = 1 + sizeof(int), room = 9104;
    if (size < head || size > head + room)
        return 0;
    int argument = 0;
    std::memcpy(&argument, data + 1, sizeof argument);
    driver::start();
    for (const unsigned long request : {6UL, 15UL, 17UL, 18UL})
        driver::answers[request].assign(data + head, data + size);
    readers[data[0] % std::size(readers)](argument);
    return 0;
}
