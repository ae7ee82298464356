// The driver's table of stations and counters, and the protocol's records of them, to the byte.

#include "api/stations.h"
#include "api/unreached.h"
#include "driver_double.h"
#include "observed.h"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

// A station whose bytes tell their own offset, but for what a test says.
static std::string station(const std::vector<std::pair<std::size_t, std::string>> &fields) {
    std::string record;
    for (std::size_t i = 0; i < 140; ++i)
        record += static_cast<char>(i);
    for (const auto &[at, bytes] : fields)
        put(&record, at, bytes);
    return record;
}

// The table with the given stations, whatever number of them it claims.
static void give_stations(unsigned claimed, const std::vector<std::string> &stations) {
    std::string table = little_endian(claimed, 4);
    for (const std::string &record : stations)
        table += record;
    driver::start();
    driver::answers[15] = table;
}

static std::string bytes_of(const wlan_device_t &device) {
    return {reinterpret_cast<const char *>(&device), sizeof device};
}

// A record that nothing was written to.
static const std::string untouched(sizeof(wlan_device_t), '~');

static wlan_device_t get_device(int index, int number, Status expected = success) {
    wlan_device_t device;
    std::memcpy(&device, untouched.data(), sizeof device);
    EXPECT_EQ(wlan_getAssocDevice(index, number, &device), expected);
    return device;
}

static std::unique_ptr<wlan_assoc_devices_table> get_table(Status expected = success) {
    auto table = std::make_unique<wlan_assoc_devices_table>();
    EXPECT_EQ(wlan_getAssocDevicesTable(10, table.get()), expected);
    return table;
}

TEST(Rssi, IsThatOfTheBestAntennaAndSomeMore) {
    constexpr struct {
        int antennas[3], together;
    } rows[] = {{{-50, -51, -70}, -47},          {{-50, -54, -60}, -48}, {{-50, -58, -60}, -49},
                {{-50, -59, -60}, -50},          {{-70, -50, -52}, -48}, {{-60, -60, -60}, -57},
                {{INT_MIN, INT_MAX, 0}, INT_MAX}};
    for (const auto &[antennas, together] : rows) {
        int rssi = 0;
        ZAV_EquivalentRssiCalc(antennas[0], antennas[1], antennas[2], &rssi);
        EXPECT_EQ(rssi, together) << antennas[0];
    }
}

TEST(Stations, ComeAndGoBetweenTheCountAndTheRecord) {
    const std::string first = station({{0, std::string(2, '\0')}}),
                      second = station({{0, std::string(1, '\0')}});
    give_stations(2, {first, second});
    EXPECT_EQ(answer(wlan_getAssocDevicesNum, 1), Answer(success, 2));
    give_stations(1, {second});
    EXPECT_EQ(bytes_of(get_device(1, 1, failure)), untouched);
    EXPECT_EQ(std::string(get_device(1, 0).mac_address), "01:02:03:04:05:06");
    give_stations(2, {first, second});
    EXPECT_EQ(std::string(get_device(1, 0).mac_address), "00:02:03:04:05:06");
    EXPECT_EQ(get_device(1, 0).rssi, 12 + 3) << "three antennas count";
}

TEST(Stations, HaveAClass) {
    constexpr struct {
        unsigned char mode;
        unsigned value30, value32, code;
    } rows[] = {{2, 1, 2, 4}, {2, 0, 0, 4}, {2, 0, 1, 4},  {2, 0, 2, 3},
                {1, 1, 0, 2}, {1, 0, 0, 3}, {0, 257, 1, 3}};
    for (const auto &row : rows) {
        give_stations(1, {station({{0, std::string(1, '\0')},
                                   {30, little_endian(row.value30, 2) + little_endian(row.value32, 2)},
                                   {36, little_endian(row.mode, 1)}})});
        EXPECT_EQ(get_device(1, 0).counter1, row.code) << row.value30;
    }
}

// The most vendor prefixes fill their field, and no more are listed.
TEST(Stations, AreBoundedWhateverTheDriverSays) {
    const std::string five = "4d-4e-4f;50-51-52;53-54-55;56-57-58;59-5a-5b";
    const std::string of_bss_1 = station({{0, "\1"}, {76, "\xc8"}, {92, std::string(32, '\xff')}});
    for (const auto &[claimed, expected] :
         {std::pair{31, success}, {32, success}, {65, success}, {66, failure}, {-1, failure}}) {
        give_stations(static_cast<unsigned>(claimed), std::vector(65, of_bss_1));
        const auto sent = static_cast<unsigned>(expected == success ? claimed : 99);
        EXPECT_EQ(answer(wlan_getAssocDevicesNum, 10), Answer(expected, sent));
        EXPECT_EQ(answer(wlan_getAssocDevicesTableNumOfEntries, 10), Answer(expected, sent));
        const auto table = get_table(expected);
        EXPECT_EQ(table->count, expected == success ? std::min(sent, 32U) : 0);
        EXPECT_EQ(std::string(table->devices[30].group_list), expected == success ? five : "");
    }
    give_stations(65, std::vector(65, of_bss_1));
    EXPECT_EQ(std::string(get_device(10, 64).group_list), five);
    testing::internal::CaptureStderr();
    for (const int number : {65, -1, INT_MAX, INT_MIN})
        EXPECT_EQ(bytes_of(get_device(10, number, failure)), untouched);
    wlan_device_t none;
    EXPECT_EQ(wlan_get(9, 0, &none), failure);
    const std::string error = "[ZAV-API] Error ZAV_GetAssocDevice invalid devNum or no such device (";
    const std::string failed = ")!!!\n[ZAV-API] Error wlan_getAssocDevice failed !!!\n";
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              error + "65" + failed + error + "-1" + failed + error + "2147483647" + failed + error +
                  "-2147483648" + failed + error + "0)!!!\n[ZAV-API] Error wlan_get failed !!!\n");
}

// Eleven values, or "failure"; a place that was not written is a "-".
static std::string counters(const std::string &answer) {
    PacketCounters found;
    found.fill(-77);
    if (parse_packet_counters("who", answer.c_str(), &found) != success)
        return "failure";
    std::string text;
    for (const int value : found)
        text += (value == -77 ? "-" : std::to_string(value)) + " ";
    return text;
}

TEST(PacketCounters, ComeInFifteenNamedWords) {
    const std::string good =
        "Unicast_Tx_packets=1\nUnicast_Rx_packets=2 x y Tx_error_count=5 Rx_error_count=6\t"
        "Tx_drop_count=7 Rx_drop_count=8 Multicast_Tx_packets=9 Multicast_Rx_packets=10\n"
        "Broadcast_Tx_packets=11 Broadcast_Rx_packets=12 Unknown_protocol_packets=13 z";
    const auto with = [&good](const std::string &part, const std::string &other) {
        std::string text = good + " end";
        return counters(text.replace(text.find(part), part.size(), other));
    };
    const std::string values = "5 6 1 2 7 8 9 10 11 12 13 ";
    EXPECT_EQ(counters(good + " end"), values);
    EXPECT_EQ(counters(good), "failure") << "fourteen words";
    EXPECT_EQ(counters(""), "failure");
    EXPECT_EQ(with("end", std::string(3000, 'w') + " more"), values);
    EXPECT_EQ(with("Unicast_Tx_packets=1", "Unicast_Tx_packets=0x10,"), "5 6 16 2 7 8 9 10 11 12 13 ");
    EXPECT_EQ(with("error_count=5", "error_count=4294967295"), "-1 6 1 2 7 8 9 10 11 12 13 ");
    EXPECT_EQ(with("packets=13", "packets=" + std::string(60, '9')), "5 6 1 2 7 8 9 10 11 12 -1 ");
    EXPECT_EQ(with("count=5", "count= 5"), "failure") << "a value must be in the word of its name";
    EXPECT_EQ(with("Rx_drop_count=8", "Tx_drop_count=8"), "failure");
    EXPECT_EQ(with("packets=13", "packets=none"), "failure");
}

TEST(BasicStats, NeedAKnownKeyAndThePlatformsTools) {
    driver::start();
    unsigned value = 7;
    testing::internal::CaptureStderr();
    EXPECT_EQ(ZAV_GetBasicStats(1, "wlan_totalBytesReceived", &value), failure);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "[ZAV-API] Error ZAV_GetBasicStats unknown stat key (wlan_totalBytesReceived).\n");

    // Whoever waits in /tmp for what root writes there.
    for (const std::string plant : {"ln -s victim ByteSent", "ln victim ByteSent", "mkfifo ByteSent",
                                    "mkdir ByteSent", "install -D victim ByteSent/stays"}) {
        ASSERT_EQ(std::system(("cd /tmp; rm -rf ByteSent; echo kept >victim; " + plant).c_str()), 0);
        EXPECT_EQ(ZAV_GetBasicStats(1, "wlan_totalBytesSent", &value), failure);
        EXPECT_EQ(std::system("grep -q kept /tmp/victim"), 0) << plant;
        EXPECT_TRUE(std::filesystem::is_regular_file("/tmp/ByteSent")) << plant;
    }

    ASSERT_EQ(std::system("rm /tmp/ByteSent && grep -q kept /tmp/ByteSent.*/stays"), 0);
    ASSERT_EQ(setenv("PATH", "/nowhere", 1), 0);
    testing::internal::CaptureStderr();
    EXPECT_EQ(ZAV_GetBasicStats(1, "wlan_totalBytesSent", &value), failure);
    EXPECT_EQ(testing::internal::GetCapturedStderr().find("get_int_value"), std::string::npos)
        << "not even read";
    EXPECT_EQ(value, 7U);
}
