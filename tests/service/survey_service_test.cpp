#include "service/gateway.h"

#include <chrono>
#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::uint32_t load = 1, init = 2, get_ssid = 21, restart_all = 206;
constexpr std::uint32_t entries = 217, result = 218, scan = 219, scan_status = 223;
constexpr std::uint32_t on_24g = 1, on_5g = 9;
constexpr std::uint32_t never = 0, running = 1, failed = 2, finished = 3;

std::string number(std::uint32_t value) { return data_reply(0, {value, 0, 0, 0}, ""); }
const std::string accepted = data_reply(0, {}, ""), refused = data_reply(-1, {}, "");

class Survey : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(gateway.call(load, word(245)), word(0));
        ASSERT_EQ(gateway.settled(init, "", word(3)), word(0));
    }
    using Answer = std::optional<std::string>;
    using Both = std::pair<Answer, Answer>; // of 2.4 GHz and of 5 GHz
    Answer ask(std::uint32_t procedure, std::uint32_t index) { return gateway.call(procedure, word(index)); }
    Both ask_both(std::uint32_t procedure, std::uint32_t bss = 0) {
        return {ask(procedure, on_24g + bss), ask(procedure, on_5g + bss)};
    }
    void await_end(std::uint32_t index, std::uint32_t expected) {
        EXPECT_EQ(gateway.settled(scan_status, word(index), number(running)), number(expected));
    }
    Gateway gateway;
};

TEST_F(Survey, OfBothBandsKeepsNobodyWaiting) {
    EXPECT_EQ(ask_both(scan_status), Both(number(never), number(never)));
    EXPECT_EQ(ask(result, on_5g), data_reply(0, {}, std::string(8196, '\0')));
    gateway.fault("survey.delay", "4000");
    const auto begun = Clock::now();
    EXPECT_EQ(ask_both(scan), Both(accepted, accepted));
    EXPECT_EQ(ask_both(scan, 7), Both(refused, refused)) << "both are busy";
    EXPECT_EQ(ask(restart_all, 0), word(0));
    const std::string words = " 127.0.0.1 " + std::to_string(gateway.port()) + " 21 1"; // wlan_get_ssid
    const std::string other_client =
        "for i in $(seq 30); do " BINARY_DIR "/bin/rpcgen_client" + words + " || exit; done";
    Process others[] = {{{"/bin/sh", "-c", other_client}, {}, "/tmp/1.out", "/tmp/1.err"},
                        {{"/bin/sh", "-c", other_client}, {}, "/tmp/2.out", "/tmp/2.err"},
                        {{"/bin/sh", "-c", other_client}, {}, "/tmp/3.out", "/tmp/3.err"}};
    int calls = 0;
    for (auto before = begun; before < begun + 1500ms; ++calls) {
        ASSERT_EQ(ask_both(scan_status), Both(number(running), number(running)));
        ASSERT_EQ(ask(entries, on_24g), number(0)) << "cleared";
        ASSERT_TRUE(ask(get_ssid, on_24g));
        const auto now = Clock::now();
        ASSERT_LT(now - before, 500ms) << "four calls";
        before = now;
    }
    EXPECT_GT(calls, 50);
    for (Process &other : others)
        EXPECT_EQ(other.ended(), 0);
    await_end(on_24g, finished);
    await_end(on_5g, finished);
    EXPECT_LT(Clock::now() - begun, 7500ms) << "at once, not one after the other";
    EXPECT_EQ(ask_both(entries, 1), Both(number(3), number(2)));
    const std::string out = read_file(gateway.path("out"));
    EXPECT_NE(out.find("end wlan_ap_scan_1_svc\n"), out.npos) << "without debugging";
    EXPECT_NE(out.find("end wlan_get_ap_scan_status_1_svc\n"), out.npos);
}

TEST_F(Survey, StatusIsNeverThatOfTheScanBefore) {
    gateway.fault("survey.delay", "50");
    for (int i = 0; i < 20; ++i) {
        ASSERT_EQ(ask(scan, on_5g), accepted);
        ASSERT_EQ(ask(scan_status, on_5g), number(running));
        await_end(on_5g, finished);
    }
}

TEST_F(Survey, ThatFailsLeavesItsBandCleared) {
    for (const std::uint32_t index : {on_24g, on_5g}) {
        EXPECT_EQ(ask(scan, index), accepted);
        await_end(index, finished);
    }
    gateway.fault("survey.zv00.fail", "5");
    EXPECT_EQ(ask(scan, on_5g), accepted);
    await_end(on_5g, failed);
    EXPECT_EQ(ask(result, on_5g), data_reply(0, {}, std::string(8196, '\0')));
    EXPECT_EQ(ask(scan_status, on_24g), number(finished));
    EXPECT_EQ(ask(entries, on_24g), number(3));
    gateway.repair("survey.zv00.fail");
    gateway.fault("survey.zv00.answer", "\xff");
    EXPECT_EQ(ask(scan, on_5g), accepted);
    await_end(on_5g, finished);
    EXPECT_EQ(ask(entries, on_5g), number(64));
}

} // namespace
