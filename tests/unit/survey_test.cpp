#include "api/site_survey.h"
#include "api/worker.h"
#include "backend/interfaces.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>

// Instead of the real one: runs the worker's body at once, or refuses.
static bool no_thread_left = false;
bool start_worker(void *(*body)(void *), void *argument) {
    errno = EAGAIN;
    return !no_thread_left && body(argument) == nullptr;
}
void report_no_worker(const char *) {}

namespace {

constexpr int on_24g = 1, on_5g = 9;

void set_up() { set_known_driver(DriverState::initialised, {8, 8}); }

std::unique_ptr<SurveyAnswer> answer_of(const std::string &bytes) {
    auto answer = std::make_unique<SurveyAnswer>();
    std::copy_n(bytes.data(), std::min(bytes.size(), answer->size()), answer->data());
    return answer;
}

// What stands where in a driver's record and on the wire; a text ends at its zero byte.
struct Move {
    std::size_t from, to, width;
    bool is_text = false;
};
constexpr Move moves[] = {
    {0, 0, 6},           {6, 6, 32, true},    {39, 38, 12},  {51, 50, 1},
    {52, 51, 12},        {64, 63, 1},         {65, 64, 12},  {80, 79, 1},
    {81, 80, 1},         {82, 81, 6, true},   {88, 87, 1},   {89, 88, 15, true},
    {104, 103, 8, true}, {112, 111, 8, true}, {120, 120, 1}, {121, 124, 1},
};

std::string on_the_wire(const std::string &block) {
    const auto count = std::min<std::size_t>(static_cast<unsigned char>(block[0]), 64);
    std::string table(8196, '\0');
    table[0] = static_cast<char>(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::string record = block.substr(1 + 122 * i, 122);
        std::string entry(128, '\0');
        for (const auto &[from, to, width, is_text] : moves) {
            std::string field = record.substr(from, width);
            if (is_text)
                field.resize(std::min(field.find('\0'), field.size()));
            entry.replace(to, field.size(), field);
        }
        if (static_cast<signed char>(entry[120]) < 0)
            entry.replace(121, 3, "\xff\xff\xff");
        table.replace(4 + 128 * i, 128, entry);
    }
    return table;
}

std::string answered(int index) {
    scan_table table;
    std::memset(&table, '~', sizeof table);
    EXPECT_EQ(wlan_getApScanResult(index, &table), success);
    unsigned count = 99;
    EXPECT_EQ(wlan_getApScanNumOfEntries(index, &count), success);
    EXPECT_EQ(count, table.count);
    return {reinterpret_cast<const char *>(&table), sizeof table};
}

TEST(Survey, IsConvertedByteForByte) {
    set_up();
    EXPECT_EQ(answered(on_24g), std::string(8196, '\0')) << "before any survey";
    std::string block(8232, '\0');
    for (const int zero_every : {0, 1, 7, 40, 33}) {
        for (std::size_t i = 0; i < block.size(); ++i)
            block[i] = zero_every > 0 && i % static_cast<std::size_t>(zero_every) == 0
                           ? '\0'
                           : static_cast<char>(1 + i * 7 % 251);
        for (const int count : {0, 1, 63, 64, 65, 255}) {
            SCOPED_TRACE(std::to_string(zero_every) + " " + std::to_string(count));
            block[0] = static_cast<char>(count);
            publish_survey(Radio::band_24g, *answer_of(block));
            ASSERT_EQ(answered(on_24g), on_the_wire(block));
        }
    }
    EXPECT_EQ(answered(on_5g), std::string(8196, '\0')) << "the other band's block";
}

TEST(Survey, IsReadWhole) {
    set_up();
    const std::string ones(8232, '\1'), twos(8232, '\2');
    publish_survey(Radio::band_5g, *answer_of(ones));
    std::thread writer([&] {
        for (int i = 0; i < 3000; ++i)
            publish_survey(Radio::band_5g, *answer_of(i % 2 == 0 ? twos : ones));
    });
    const auto block = std::make_unique<SurveyBlock>();
    unsigned count = 0;
    for (int i = 0; i < 3000; ++i) {
        ASSERT_EQ(ZAV_GetApScanNumOfEntries(on_5g, &count), success);
        ASSERT_EQ(ZAV_GetApScanResult(on_5g, block.get()), success);
        const std::string bytes(reinterpret_cast<const char *>(block.get()), sizeof *block);
        ASSERT_EQ(bytes.find_first_not_of(bytes[0]), bytes.npos) << i;
    }
    writer.join();
}

TEST(Survey, FailsWithItsDriverOrItsThread) {
    set_up();
    const auto status = [](int index) {
        unsigned value = 99;
        EXPECT_EQ(wlan_ApSiteSurveyStatus(index, &value), success);
        return value;
    };
    EXPECT_EQ(status(on_24g), scan_never);
    no_thread_left = true;
    EXPECT_EQ(wlan_ApSiteSurvey(on_24g), failure);
    no_thread_left = false;
    EXPECT_EQ(std::pair(status(on_24g), status(on_5g)), std::pair(scan_failed, scan_never));
    publish_survey(Radio::band_5g, *answer_of(std::string(8232, '\1')));
    EXPECT_EQ(wlan_ApSiteSurvey(on_5g), success) << "no such interface here, so the driver does not answer";
    EXPECT_EQ(status(on_5g), scan_failed);
    EXPECT_EQ(answered(on_5g), std::string(8196, '\0'));
    for (const unsigned value : {scan_running, 4U, 0xFFFFFFFF})
        set_ap_scan_thread_status(Radio::band_24g, value);
    EXPECT_EQ(status(on_24g + 7), scan_running);
    EXPECT_EQ(wlan_ApSiteSurvey(on_24g), failure) << "busy";
    EXPECT_EQ(wlan_ApSiteSurvey(on_5g), success);
    EXPECT_EQ(wlan_ApSiteSurvey(17), failure);
}

} // namespace
