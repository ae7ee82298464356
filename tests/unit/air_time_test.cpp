// Air time, weights and radio statistics against hand-made answers of the driver.

#include "api/air_time.h"
#include "api/radio_statistics.h"
#include "backend/driver_channel.h"
#include "driver_double.h"
#include "observed.h"
#include "rrm/air_time.h"
#include "rrm/driver_data.h"
#include "rrm/unreached.h"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>

using Lines = std::vector<std::string>;

// A table of stations of the first BSS, whom the driver calls by these numbers, behind one of another BSS.
static void give_stations(const std::vector<unsigned char> &numbers) {
    std::string table = little_endian(numbers.size() + 1, 4);
    put(&table, 4, "\1");
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        put(&table, 4 + 140 * (i + 1), std::string("\0\0\0\x5e\0\x53", 6) + static_cast<char>(0xA0 + i));
        put(&table, 4 + 140 * (i + 1) + 15, std::string(1, static_cast<char>(numbers[i])));
    }
    driver::start();
    driver::answers[15] = table;
}

// So many 32-bit words, each telling its place.
static std::string words(unsigned count) {
    std::string block;
    for (unsigned i = 0; i < count; ++i)
        block += little_endian(i, 4);
    return block;
}

TEST(Command, TakesOneOfTwoRequests) {
    InterfaceName ifname{"zv00"};
    driver::start();
    driver::answers = {{17, ""}, {6, ""}};
    EXPECT_EQ(SetDriverDataOnTheFly("fairness.-b.2.40", ifname, 1), success);
    EXPECT_EQ(SetDriverDataOnTheFly("RadioStat.-a.5", ifname, 0), success);
    set_driver_state(DriverState::loaded);
    EXPECT_EQ(SetDriverDataOnTheFly("RadioStat.-a.6", ifname, 0), failure);
    EXPECT_EQ(driver::asked, (Lines{"17 zv00 fairness.-b.2.40 17", "6 zv00 RadioStat.-a.5 15"}));
}

// As long as a request can say.
TEST(Command, IsAnsweredInUpTo65535Bytes) {
    InterfaceName ifname{"zv00"};
    std::string bytes(65535, 'a'), got(bytes.size(), '~');
    driver::start();
    driver::answers = {{6, bytes}, {17, bytes}};
    EXPECT_EQ(
        ask_private("who", ifname, {PrivateRequest::statistics}, std::as_writable_bytes(std::span(got))),
        success);
    EXPECT_EQ(got, bytes);
    got += '~';
    EXPECT_EQ(
        ask_private("who", ifname, {PrivateRequest::statistics}, std::as_writable_bytes(std::span(got))),
        failure);
    EXPECT_EQ(ZAV_Show(1, "Channel", got), success);
    EXPECT_EQ(got.c_str(), bytes.substr(1));
}

TEST(Stations, AreFoundByPlaceAndAddressUnderTheNumberOfTheDriver) {
    give_stations({7, 31, 32, 255});
    unsigned number = 99;
    EXPECT_EQ(answer(ZAV_GetZavinoStaIndexByStaIndex, 1, 0), Answer(success, 7));
    EXPECT_EQ(answer(ZAV_GetZavinoStaIndexByStaIndex, 1, 1), Answer(success, 31));
    EXPECT_EQ(answer(ZAV_GetZavinoStaIndexByMac, 1, "00:00:5e:00:53:a0"), Answer(success, 7));
    EXPECT_EQ(answer(ZAV_GetZavinoStaIndexByMac, 1, "00:00:5E:00:53:A1"), Answer(success, 31));
    for (const int place : {2, 3, 4, -1, INT_MAX, INT_MIN})
        EXPECT_EQ(ZAV_GetZavinoStaIndexByStaIndex(1, place, &number), failure) << place;
    for (const char *mac : {"00:00:5E:00:53:A2", "00:00:5E:00:53:A", "00:00:00:00:00:00", ""})
        EXPECT_EQ(ZAV_GetZavinoStaIndexByMac(1, mac, &number), failure) << mac;
    EXPECT_EQ(ZAV_GetZavinoStaIndexByStaIndex(3, 0, &number), failure);
    EXPECT_EQ(ZAV_GetZavinoStaIndexByStaIndex(0, 0, &number), failure);
    EXPECT_EQ(number, 99U);
    EXPECT_EQ(said_by([&] { (void)ZAV_GetZavinoStaIndexByMac(1, "00:00:5E:00:53:A1", &number); }),
              "[ZAV-API] ZAV_GetAssocDevicesTable (buffer=get_mac_table,len=14).\n"
              "[ZAV-API] ZAV_GetZavinoStaIndexByMac sta_mac=00:00:5E:00:53:A1 staidx=1 zvidx=31\n");
}

TEST(AirTime, CountersStandByGroupAndStation) {
    give_stations({0, 31});
    driver::answers[17] = words(1280);
    for (const unsigned station : {0U, 1U})
        for (const unsigned group : {0U, 7U}) {
            const unsigned a = 2 * (group * 32 + station * 31), b = 2 * (256 + group * 32 + station * 31);
            FourWords found{};
            EXPECT_EQ(wlan_getAirTimeStats(1, static_cast<int>(station), static_cast<int>(group), &found),
                      success);
            EXPECT_EQ(found, (FourWords{a, a + 1, b, b + 1}));
        }
    EXPECT_EQ(driver::asked.back(), "17 atm24g fairness.-F 5121");
    FourWords found{9, 9, 9, 9};
    for (const int group : {8, -1, INT_MAX, INT_MIN})
        EXPECT_EQ(wlan_getAirTimeStats(1, 0, group, &found), failure) << group;
    const std::size_t asked = driver::asked.size();
    EXPECT_EQ(said_by([] { EXPECT_EQ(ZAV_GetAirTimeStats(1, nullptr), failure); }),
              "[ZAV-API] ZAV_GetAirTimeStats driverFairnessData is not initialized\n");
    EXPECT_EQ(driver::asked.size(), asked);
    driver::answers.erase(17);
    EXPECT_EQ(wlan_getAirTimeStats(1, 0, 0, &found), failure);
    EXPECT_EQ(found, (FourWords{9, 9, 9, 9}));
}

TEST(AirTime, FramesStandByStationAndQueue) {
    give_stations({0, 31});
    driver::answers[6] = words(1024);
    for (const unsigned station : {0U, 1U})
        for (const unsigned queue : {0U, 7U}) {
            const unsigned first = station * 31 * 8 + queue;
            FourWords found{};
            EXPECT_EQ(
                wlan_getFramesInQueueData(1, static_cast<int>(station), static_cast<int>(queue), &found),
                success);
            EXPECT_EQ(found, (FourWords{first, 256 + first, 512 + first, 768 + first}));
        }
    FourWords found{};
    for (const int queue : {8, -1, INT_MAX, INT_MIN})
        EXPECT_EQ(wlan_getFramesInQueueData(1, 0, queue, &found), failure) << queue;
}

TEST(AirTime, RatesAreBytesOfTheDriver) {
    give_stations({31, 32});
    const std::string block = words(244);
    driver::answers[6] = block + "more";
    RateData data;
    EXPECT_EQ(wlan_getGetStationRateAdaptationData(1, 0, &data), success);
    EXPECT_EQ(std::memcmp(&data, block.data(), sizeof data), 0);
    EXPECT_EQ(driver::asked.back(), "6 zvi00 ratestd.-D.31 14");
    for (const int station : {1, 2, 16, -1}) {
        std::memset(&data, '~', sizeof data);
        EXPECT_EQ(wlan_getGetStationRateAdaptationData(1, station, &data), failure) << station;
        EXPECT_EQ(data.rates[0].value1 | data.value2, 0U) << "cleared before";
    }
}

// The shares of BSSes with these air times in the first and the last category.
static std::vector<std::uint64_t> shares(const std::vector<std::uint64_t> &first, std::uint64_t last = 0) {
    std::string block(5120, '\0');
    for (std::size_t bss = 0; bss < first.size(); ++bss)
        put(&block, 4096 + 8 * bss, little_endian(first[bss], 8));
    put(&block, 5112, little_endian(last, 8)); // of BSS 15
    driver::start();
    driver::answers[17] = block;
    const auto info = std::make_unique<BSSAirTimeManagementInfo>();
    std::memset(info.get(), '~', sizeof *info);
    EXPECT_EQ(wlan_getBSSAirTimeManagementInfo(9, info.get()), success);
    EXPECT_EQ(std::memcmp(info->values, &block[4096], sizeof info->values), 0);
    EXPECT_EQ(info->totals[0], first[0]);
    EXPECT_EQ(info->totals[15], last);
    return {std::begin(info->shares), std::end(info->shares)};
}

TEST(AirTime, IsSharedInPercent) {
    std::vector<std::uint64_t> expected(16);
    EXPECT_EQ(shares({0}), expected);
    expected[0] = 66;
    expected[2] = 33;
    EXPECT_EQ(shares({2, 0, 1}), expected);
    expected = std::vector<std::uint64_t>(16);
    expected[0] = expected[15] = 50;
    EXPECT_EQ(shares({6000000000000}, 6000000000000), expected);
    expected[0] = expected[15] = 0; // the sum is beyond 64 bits
    EXPECT_EQ(shares({1ULL << 63}, 1ULL << 63), expected);
}

TEST(Weights, OfStationsAreEqual) {
    give_stations({1, 2, 3});
    EXPECT_EQ(answer(wlan_getStaWeight, 1, ""), Answer(success, 33));
    EXPECT_EQ(wlan_getStaWeight(1, "", nullptr), failure);
}

TEST(Weights, OfStationsAreChangedAddedAndRemoved) {
    const std::string a1 = "00:00:5E:00:53:A1", a2 = "00:00:5E:00:53:A2", list = a1 + ",40;" + a2 + ",20;";
    const std::string who = "[ZAV-API] zavChangeOrRemoveStaWeight ";
    std::string thirty_one;
    for (int i = 10; i < 41; ++i)
        thirty_one.append("02:00:00:00:00:").append(std::to_string(i)).append(",1;");
    const struct {
        std::string stored, mac;
        int weight;
        Status result;
        std::string after, command, said{};
    } rows[] = {
        {list, "00:00:5e:00:53:a1", 50, success, a2 + ",20;" + a1 + ",50;", "fairness.-c.31.50",
         "entry (index=1, ZvStaIdx=31, weight=50).\n" + who + "cmd=fairness.-c.31.50\n"},
        {list, a1, -1, success, a2 + ",20;", "fairness.-c.31.4294967295",
         "Received data: 00:00:5E:00:53:A...\n"},
        {list, a2, 20, unchanged, list, "",
         "station with this mac address is not associated\n" + who + "update NVRAM only\n"},
        {list, "AA:BB:CC:DD:EE:FF", 0, success, list + "AA:BB:CC:DD:EE:FF,0;", ""},
        {list, "AA:BB:CC:DD:EE:FF", -1, unchanged, list, ""},
        {"", a2, 100, success, a2 + ",100;", ""},
        {"none", a2, 1, success, a2 + ",1;", ""},
        {list, a1, 101, failure, list, "", "invalid weight. weight should be in Range of 0-100\n"},
        {list, a1, -2, failure, list, ""},
        {list, "00:00:5E:00:53", 1, failure, list, "",
         "wrong mac address or mac address format: 00:00:5E:00:53\n"},
        {a1 + ",40;00:00:5E", a2, 1, failure, a1 + ",40;00:00:5E", "",
         "Wrong format, can't parse [1]: 00:00:5E...\n"},
        {a1 + ",40 x;" + a2 + ",20;", a2, 1, success, a2 + ",1;", ""}, // the list ends where it goes wrong
        {thirty_one, a2, 1, success, thirty_one + a2 + ",1;", ""},
        {thirty_one + a2 + ",1;", "AA:BB:CC:DD:EE:FF", 1, failure, thirty_one + a2 + ",1;", "",
         "Buffer overflow, while reading from the parameter\n"},
        {thirty_one + a2 + ",1;", a2, 2, success, thirty_one + a2 + ",2;", ""},
        {std::string(2500, '0'), a2, 1, failure, std::string(2500, '0'), ""},
    };
    setenv("zav_cfg_dir", "/tmp", 1);
    for (const auto &row : rows) {
        write_file("/tmp/ZAV75024g.dat", "#\nStaWeights=" + row.stored + "\nB=1\n");
        give_stations({0, 31});
        driver::answers[17] = "";
        const std::string said = said_by([&] {
            EXPECT_EQ(zavChangeOrRemoveStaWeight(1, row.mac.c_str(), row.weight), row.result) << row.stored;
        });
        EXPECT_NE(said.find(row.said.empty() ? "" : who + row.said), said.npos) << said;
        EXPECT_EQ(read_file("/tmp/ZAV75024g.dat"), "#\nStaWeights=" + row.after + "\nB=1\n");
        const std::string told = driver::asked.size() < 2 ? "" : driver::asked[1];
        EXPECT_EQ(told.substr(0, told.rfind(' ')), row.command.empty() ? "" : "17 atm24g " + row.command);
    }
    EXPECT_EQ(zavChangeOrRemoveStaWeight(17, a1.c_str(), 1), failure);
    write_file("/tmp/ZAV75024g.dat", "#\n");
    EXPECT_TRUE(said_by([&] {
                    EXPECT_EQ(zavChangeOrRemoveStaWeight(1, a1.c_str(), 1), failure);
                }).ends_with(who + "Can't get StaWeights parameter from NVRAM\n"));
}

TEST(RadioStatistics, StandAtTheirPlaces) {
    std::string block(344, '\0');
    for (std::size_t at = 0; at < block.size(); ++at)
        block[at] = static_cast<char>(at + at / 256);
    const auto number = [&](std::size_t at, std::size_t width) {
        std::uint64_t value = 0;
        for (std::size_t i = width; i-- > 0;)
            value = value << 8 | static_cast<unsigned char>(block[at + i]);
        return value;
    };
    driver::start();
    driver::answers[6] = block;
    std::array<unsigned, 3> channel{};
    std::array<int, 4> noise{};
    std::uint64_t sent = 0, received = 0;
    RssiTable table{};
    EXPECT_EQ(wlan_getChannelStatistics(10, &channel[0], &channel[1], &channel[2]), success);
    EXPECT_EQ(driver::asked, Lines{"6 zv01 RadioStat.-o 500"});
    EXPECT_EQ(wlan_getChannelNoiseFloor(1, &noise[0], &noise[1], &noise[2], &noise[3]), success);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(channel[i], number(4 * i, 4)) << i;
        EXPECT_EQ(noise[i], static_cast<int>(number(12 + 4 * i, 4))) << i;
    }
    EXPECT_EQ(noise[3], static_cast<int>(number(340, 4)));
    EXPECT_EQ(wlan_getRadioTxPackets(1, &sent), success);
    EXPECT_EQ(sent, number(24, 8));
    EXPECT_EQ(wlan_getRadioRxPackets(1, &received), success);
    EXPECT_EQ(received, number(32, 8));
    EXPECT_EQ(answer(wlan_getRetransmissionMetric, 1), Answer(success, number(40, 4)));
    EXPECT_EQ(wlan_getRSSITable(1, &table), success);
    for (std::size_t i = 0; i < table.size(); ++i)
        EXPECT_EQ(static_cast<std::uint64_t>(table[i]), number(44 + 8 * i, 8)) << i;

    const std::size_t asked = driver::asked.size();
    EXPECT_EQ(wlan_getChannelStatistics(1, &channel[0], nullptr, &channel[2]), failure);
    EXPECT_EQ(wlan_getChannelNoiseFloor(1, &noise[0], &noise[1], &noise[2], nullptr), failure);
    EXPECT_EQ(wlan_getRadioTxPackets(1, nullptr), failure);
    EXPECT_EQ(wlan_getRSSITable(1, nullptr), failure);
    EXPECT_EQ(wlan_getRSSITable(17, &table), failure);
    EXPECT_EQ(said_by([&] { (void)wlan_getRSSITable(1, nullptr), (void)wlan_getRadioTxPackets(1, nullptr); }),
              "[ZAV-API] ZAV_GetRSSITable entry (index=1).\n"
              "[ZAV-API] ZAV_GetRSSITable RSSI Table is not initialized\n"
              "[ZAV-API] ZAV_GetRadioTxPackets entry (index=1).\n"
              "[ZAV-API] ZAV_GetRadioTxPackets Channel Statistics is not initialized\n");
    EXPECT_EQ(driver::asked.size(), asked);
    driver::answers.clear();
    EXPECT_EQ(wlan_getRadioTxPackets(1, &sent), failure);
    EXPECT_EQ(sent, number(24, 8)) << "untouched";
}

TEST(AccessCategories, ArePrintedWithTheirSum) {
    EXPECT_EQ(said_by([] {
                  print_access_categories("frames", {1, 2, 3, 4, ULONG_MAX - 10});
              }),
              "frames BE=1, BK=2, VI=3, VO=4, MGMT=" + std::to_string(ULONG_MAX - 10) +
                  ", TOTAL=" + std::to_string(ULONG_MAX) + "\n");
}
