// Air time and weights against hand-made answers of the driver.

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

// As long as a request can say.
TEST(Command, IsAnsweredInUpTo65535Bytes) {
    std::string bytes(65535, 'a'), got(bytes.size() + 1, '~');
    const auto ask = [&](std::size_t room) {
        return ask_private("who", InterfaceName{"zv00"}, {PrivateRequest::statistics},
                           std::as_writable_bytes(std::span(got).first(room)));
    };
    driver::start();
    driver::answers = {{2, ""}, {6, bytes}, {17, bytes}};
    EXPECT_EQ(ZAV_Set(1, "TxPower=50"), success);
    EXPECT_EQ(driver::asked, Lines{"2 zvi00 TxPower=50 11"});
    EXPECT_EQ(ask(65535), success);
    EXPECT_EQ(got, bytes + '~');
    EXPECT_EQ(ask(65536), failure);
    EXPECT_EQ(ZAV_Show(1, "Channel", got), success);
    EXPECT_EQ(got.c_str(), bytes.substr(1));
}

// The last of each, and those behind it.
TEST(AirTime, StandsByGroupQueueAndStationUnderTheNumberOfTheDriver) {
    give_stations({7, 31, 32, 255});
    driver::answers[17] = words(1280);
    driver::answers[6] = words(1024);
    FourWords found{};
    RateData data{};
    EXPECT_EQ(wlan_getAirTimeStats(1, 1, 7, &found), success);
    EXPECT_EQ(found, (FourWords{510, 511, 1022, 1023}));
    EXPECT_EQ(wlan_getFramesInQueueData(1, 1, 7, &found), success);
    EXPECT_EQ(found, (FourWords{255, 511, 767, 1023}));
    EXPECT_EQ(wlan_getGetStationRateAdaptationData(1, 1, &data), success);
    EXPECT_EQ(std::memcmp(&data, words(244).data(), sizeof data), 0);
    EXPECT_EQ(driver::asked.back(), "6 zvi00 ratestd.-D.31 14");
    const FourWords last = found;
    for (const int wrong : {8, -1, INT_MAX, INT_MIN}) {
        EXPECT_EQ(wlan_getAirTimeStats(1, 0, wrong, &found), failure) << wrong;
        EXPECT_EQ(wlan_getFramesInQueueData(1, 0, wrong, &found), failure) << wrong;
    }
    for (const int station : {2, 3, 4, -1, INT_MAX, INT_MIN}) {
        std::memset(&data, '~', sizeof data);
        EXPECT_EQ(wlan_getAirTimeStats(1, station, 0, &found), failure) << station;
        EXPECT_EQ(wlan_getGetStationRateAdaptationData(1, station, &data), failure) << station;
        EXPECT_EQ(data.rates[0].value1 | data.value2, 0U) << "cleared before";
    }
    EXPECT_EQ(found, last) << "untouched";
    std::uint64_t sent = 0; // no row shows what length the driver is told
    EXPECT_EQ(wlan_getRadioTxPackets(10, &sent), success);
    EXPECT_EQ(driver::asked.back(), "6 zv01 RadioStat.-o 500");
    driver::asked.clear();
    EXPECT_EQ(ZAV_GetAirTimeStats(9, std::make_unique<AirTimeBlock>().get()), success);
    EXPECT_EQ(driver::asked, Lines{"17 atm5g fairness.-F 5121"});
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

TEST(AccessCategories, ArePrintedWithTheirSum) {
    EXPECT_EQ(said_by([] {
                  print_access_categories("frames", {1, 2, 3, 4, ULONG_MAX - 10});
              }),
              "frames BE=1, BK=2, VI=3, VO=4, MGMT=" + std::to_string(ULONG_MAX - 10) +
                  ", TOTAL=" + std::to_string(ULONG_MAX) + "\n");
}
