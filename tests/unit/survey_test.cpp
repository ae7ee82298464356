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

std::string answered(int index) {
    scan_table table;
    std::memset(&table, '~', sizeof table);
    EXPECT_EQ(wlan_getApScanResult(index, &table), success);
    unsigned count = 99;
    EXPECT_EQ(wlan_getApScanNumOfEntries(index, &count), success);
    EXPECT_EQ(count, table.count);
    return {reinterpret_cast<const char *>(&table), sizeof table};
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

TEST(Survey, IsConvertedByteForByteAndBounded) {
    set_up();
    std::string block(8232, '\xff'), table = std::string("\x40\0\0\0", 4) + std::string(64 * 128, '\0');
    for (std::size_t i = 1; i < block.size(); ++i) // with zeros at other places of each record
        block[i] = static_cast<char>(i * 7 % 251);
    for (std::size_t at = 0; at < 64; ++at) {
        for (const auto &[from, to, width, is_text] : moves) {
            std::string field = block.substr(1 + 122 * at + from, width);
            field.resize(is_text ? std::min(field.find('\0'), width) : width);
            table.replace(4 + 128 * at + to, field.size(), field);
        }
        if (static_cast<signed char>(block[1 + 122 * at + 120]) < 0) // it is a number, and signed
            table.replace(4 + 128 * at + 121, 3, "\xff\xff\xff");
    }
    publish_survey(Radio::band_24g, *answer_of(block));
    EXPECT_EQ(answered(on_24g), table);
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
