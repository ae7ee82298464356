// What wlanctl makes of answers, here made by hand.

#include "client/output.h"
#include "client/text.h"

#include "rpc/records.h"

#include <clocale>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

std::string printed(const Output &output, const char *procedure, const Answer &answer) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(print_answer(output, *find_procedure(procedure), answer), 0);
    return testing::internal::GetCapturedStdout();
}

nlohmann::json value(const char *procedure, const Answer &answer) {
    return nlohmann::json::parse(printed({.json = true}, procedure, answer)).at("value");
}

// Zeros with these bytes among them.
Answer image(std::size_t size, const std::vector<std::pair<std::size_t, std::string>> &bytes) {
    Answer answer{.text = std::string(size, '\0')};
    for (const auto &[offset, text] : bytes)
        answer.text.replace(offset, text.size(), text);
    return answer;
}

TEST(Answers, AreNamedWordByWord) {
    using json = nlohmann::json;
    const auto words = [](std::vector<std::int64_t> numbers) {
        return Answer{.numbers = std::move(numbers)};
    };
    EXPECT_EQ(value("wlan_get_bssid_port", words({0, 9})), json::parse(R"({"port":0,"index":9})"));
    EXPECT_EQ(printed({}, "wlan_get_basic_stats", words({1, 4294967295, 3, 4, 5})),
              "bytes_sent: 1 bytes\nbytes_received: 4294967295 bytes\npackets_sent: 3 packets\n"
              "packets_received: 4 packets\nassociations: 5 stations\n");
    EXPECT_EQ(value("wlan_get_stats", words({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0, 0, 0, 0, 0})),
              json::parse(R"({"errors_sent":1,"errors_received":2,"unicast_packets_sent":3,
                "unicast_packets_received":4,"discard_packets_sent":5,"discard_packets_received":6,
                "multicast_packets_sent":7,"multicast_packets_received":8,"broadcast_packets_sent":9,
                "broadcast_packets_received":10,"unknown_protocol_packets_received":11})"));
    EXPECT_EQ(value("wlan_get_channel_statistics", words({1, 2, 3})),
              json::parse(R"({"cst":1,"ap_activity":2,"busy_time":3})"));
    EXPECT_EQ(value("wlan_get_channel_noise_floor", words({-95, -60, -80, -81})),
              json::parse(R"({"minimum":-95,"maximum":-60,"median":-80,"average":-81})"));
    EXPECT_EQ(value("wlan_get_radio_tx_packets", words({1, 2})), json::parse(R"({"packets":8589934593})"));
    std::vector<std::int64_t> rssi(74, 0xFFFFFFFF);
    rssi[72] = 7, rssi[73] = 0;
    const json table = value("wlan_get_rssi_table", words(rssi));
    EXPECT_EQ(table.at("rssi").size(), 37U);
    EXPECT_EQ(table["rssi"][0], -1);
    EXPECT_EQ(table["rssi"][36], 7);
}

TEST(Answers, AreNamedByteByByte) {
    const std::string ff(8, '\xff');
    const struct {
        const char *procedure;
        Answer answer;
        const char *pointer, *expected;
    } rows[] = {
        {"wlan_get_air_time_management_stats", image(16, {{4, "\2"}, {12, "\3"}}), "/set_b", "[0,3]"},
        {"wlan_get_frames_in_queue_data", image(16, {{0, "\1"}, {12, "\4"}}), "/planes", "[1,0,0,4]"},
        {"wlan_get_rate_adapt_data", image(976, {{40 * 23 + 32, ff}}), "/rates/23/value5",
         "18446744073709551615"},
        {"wlan_get_rate_adapt_data",
         image(976, {{880, "\1"}, {888, "\2"}, {896, "\3"}, {904, "\4"}, {912, "\5"}}), "/rates/22",
         R"({"value1":1,"value2":2,"value3":3,"value4":4,"value5":5})"},
        {"wlan_get_rate_adapt_data", image(976, {{960, "\1"}, {968, "\2"}}), "/value1", "1"},
        {"wlan_get_rate_adapt_data", image(976, {{960, "\1"}, {968, "\2"}}), "/value2", "2"},
        {"wlan_get_bss_air_time_management_info", image(1280, {{120, "\1"}}), "/totals/15", "1"},
        {"wlan_get_bss_air_time_management_info", image(1280, {{1144, "\1"}}), "/values/127", "1"},
        {"wlan_get_bss_air_time_management_info", image(1280, {{1152, "d"}}), "/shares/0", "100"},
        {"wlan_get_assoc_device", image(236, {{0, "00:1A"}, {82, "a;"}, {127, "01"}, {204, "n"}}),
         "/name_field", "\"n\""},
        {"wlan_get_assoc_device", image(236, {{0, std::string(18, 'x')}}), "/mac_address",
         "\"xxxxxxxxxxxxxxxxxx\""},
        {"wlan_get_assoc_device", image(236, {{164, "\xce\xff\xff\xff"}}), "/rssi", "-50"},
        {"wlan_get_assoc_device", image(236, {{176, "\xff\xff"}}), "/short_value", "65535"},
        {"wlan_get_assoc_device", image(236, {{200, ff.substr(0, 4)}}), "/int_value2", "-1"},
        {"wlan_get_assoc_device", image(236, {{188, ff.substr(0, 4)}}), "/counter10", "4294967295"},
        {"wlan_get_assoc_devices_table", image(7556, {{0, "\x20"}, {4 + 236 * 31 + 192, "\7"}}),
         "/devices/31/byte_value", "7"},
        {"wlan_get_assoc_devices_table", image(7556, {{0, ff}}), "/count", "4294967295"},
        {"wlan_get_ap_scan_result", image(8196, {{0, ff}, {4 + 128 * 63 + 120, "\x80\xff\xff\xff"}}),
         "/entries/63/number", "-128"},
        {"wlan_get_ap_scan_result", image(8196, {{0, "\1"}, {42, "\1\xab"}, {128, "Z"}}), "/entries/0/byte5",
         "90"},
    };
    for (const auto &[procedure, answer, pointer, expected] : rows)
        EXPECT_EQ(value(procedure, answer).at(nlohmann::json::json_pointer(pointer)),
                  nlohmann::json::parse(expected))
            << pointer;
    const nlohmann::json hostile =
        value("wlan_get_ap_scan_result", image(8196, {{0, "\1"}, {10, "a\xff"}, {42, "\1"}}));
    EXPECT_EQ(hostile.at("entries").size(), 1U);
    EXPECT_EQ(hostile["entries"][0].at("ssid_hex"), "61ff");
    EXPECT_EQ(hostile["entries"][0].at("octets1"), "010000000000000000000000");
}

TEST(Answers, OfStationsAreLines) {
    const Answer two = image(7556, {{0, "\2"},
                                    {4, "00:1A:2B:3C:4D:5E"},
                                    {4 + 144, "\3"},
                                    {4 + 204, "tab\there"},
                                    {4 + 164, "\xc4\xff\xff\xff"},
                                    {240, std::string(18, 'y')}});
    EXPECT_EQ(printed({}, "wlan_get_assoc_devices_table", two),
              "MAC\tIP\tVENDOR PREFIXES\tCAPABILITY BITS\tCLASS CODE\tRSSI (dBm)\tBSS FROM 0\tNAME\n"
              "00:1A:2B:3C:4D:5E\t\t\t\t3\t-60\t0\ttab\\x09here\nyyyyyyyyyyyyyyyyyy\t\t\t\t0\t0\t0\t\n");
    EXPECT_EQ(printed({.header = false}, "wlan_get_assoc_devices_table", image(7556, {})), "");
}

TEST(Secrets, AreShownToWhoAsks) {
    const Answer key{.text = "psst"};
    EXPECT_EQ(printed({}, "wlan_get_radius_server_key", key).find("psst"), std::string::npos);
    EXPECT_EQ(printed({.raw = true}, "wlan_get_radius_server_key", key), "psst\n");
    EXPECT_EQ(printed({.show_secrets = true}, "wlan_get_radius_server_key", key),
              "radius_server_key: psst\n");
    for (const bool raw : {false, true}) {
        const std::string masked = printed({.json = true, .raw = raw}, "wlan_get_radius_server_key", key);
        EXPECT_NE(masked.find(R"("value":null,"masked":true)"), std::string::npos) << masked;
        EXPECT_EQ(masked.find("psst"), std::string::npos);
    }
    EXPECT_NE(printed({.json = true, .show_secrets = true}, "wlan_get_radius_server_key", key)
                  .find(R"("value":"psst")"),
              std::string::npos);
}

TEST(Texts, AreCutToColumns) {
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    for (const auto &[columns, left] :
         {std::pair{0, ""}, {3, "a\u0308\u6f22"}, {4, "a\u0308\u6f22\xff"}, {9, "a\u0308\u6f22\xff\u6f22b"}})
        EXPECT_EQ(cut("a\u0308\u6f22\xff\u6f22b", std::size_t(columns)), left);
}

} // namespace
