// Runs in the directory of a simulated gateway, with its driver preloaded.

#include "api/rates.h"
#include "backend/bss_identity.h"
#include "backend/config_store.h"
#include "backend/driver_channel.h"
#include "backend/interfaces.h"
#include "backend/lifecycle.h"
#include "backend/shell.h"
#include "radio/bss_enable.h"

#include <climits>
#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

static void write_file(const char *name, const std::string &text) { std::ofstream(name) << text; }

static std::string read_text(const char *name) {
    std::string text;
    std::getline(std::ifstream(name), text, '\0');
    return text;
}

// The daemon as it starts, with files that name so many BSSes.
static void start_with(const std::string &number_24g, const std::string &number_5g, unsigned loaded = 245) {
    write_file("settings/ZAV75024g.dat", "#\nBssidNum=" + number_24g + "\n");
    write_file("settings/ZAV750.dat", "#\nBssidNum=" + number_5g + "\n");
    BssidNumZvi00 = BssidNumZv00 = 0;
    InterfacesUp = loaded;
    driver_initialised = false;
}

// All that an index stands for; "" and 99 are untouched.
static std::tuple<Status, std::string, std::string, unsigned, unsigned, unsigned> meaning(int index) {
    InterfaceName name{}, air_time{};
    unsigned bss = 99, first = 99, last = 99;
    const Status status = GET_IFNAME_FROM_INDEX(&name, index, &bss);
    EXPECT_EQ(GET_ATM_IFNAME_FROM_INDEX(&air_time, index, nullptr), status);
    EXPECT_EQ(ZAV_GetNumberOfEntriesPerInf(&first, &last, index), status);
    return {status, name.data(), air_time.data(), bss, first, last};
}

TEST(Interfaces, HaveOneMeaningForEachIndex) {
    start_with("4", "4");
    EXPECT_EQ(meaning(4), std::tuple(success, "zvi03", "atm24g", 4, 1, 4));
    EXPECT_EQ(meaning(5), std::tuple(success, "zv00", "atm5g", 1, 5, 8));
    EXPECT_EQ(meaning(8), std::tuple(success, "zv03", "atm5g", 4, 5, 8));
    for (const int index : {0, 9, -1, INT_MIN, INT_MAX}) {
        EXPECT_EQ(meaning(index), std::tuple(failure, "", "", 99, 99, 99)) << index;
        EXPECT_EQ(ZAV_nvram_get_uint32_helper(index, "BssidNum", 3), 3) << index;
        EXPECT_EQ(ZAV_nvram_set_uint32_helper(index, "BssidNum", 1), failure) << index;
    }
    unsigned first = 99;
    EXPECT_EQ(ZAV_GetNumberOfEntriesPerInf(nullptr, &first, 5), failure);
    EXPECT_TRUE(ZAV_GetNumberOfEntriesPerInf(&first, nullptr, 5) == failure && first == 5);
    InterfaceName name{};
    EXPECT_EQ(ZAV_getIfNameByIndex(5, &name), failure) << "the driver is not initialised";
    driver_initialised = true;
    EXPECT_EQ(ZAV_getIfNameByIndex(5, &name), success);
    EXPECT_TRUE(ZAV_is5g(name.data()) == 1 && ZAV_is24g(name.data()) == 0 && ZAV_is24g("zvi00") == 1);
}

TEST(Interfaces, TakeTheirCountsFromTheFilesOnce) {
    start_with("4", "3", 24);
    EXPECT_EQ(meaning(5), meaning(0));
    start_with("4", "3", 5);
    EXPECT_EQ(meaning(1), std::tuple(success, "zv00", "atm5g", 1, 1, 3));
    start_with("65", "64");
    EXPECT_EQ(meaning(128), std::tuple(success, "zv063", "atm5g", 64, 65, 128));
    start_with("-1", "garbage");
    EXPECT_EQ(meaning(1), meaning(0));
    write_file("settings/ZAV75024g.dat", "#\nBssidNum=6\n"); // an unknown count is looked up again
    EXPECT_EQ(meaning(6), std::tuple(success, "zvi05", "atm24g", 6, 1, 6));
    write_file("settings/ZAV75024g.dat", "#\nBssidNum=7\n"); // a known one is kept
    EXPECT_EQ(meaning(7), meaning(0));
}

TEST(Interfaces, AreProbedInBothFormsOfIfconfig) {
    const auto running = [](const std::string &output) {
        write_file("faults/tool.ifconfig.answer", output);
        return std::pair(GET_RUNNING_INTERFACES(), isInterfacesRunningOnBand(5));
    };
    start_with("4", "4");
    EXPECT_EQ(running("eth0      Link encap:Ethernet\n          zv0 zvi0\n"), std::pair(0, 0));
    EXPECT_EQ(running("zv01: flags=4163<UP>  mtu 1500\n"), std::pair(5, 1));
    EXPECT_EQ(running("zvi00     Link encap:Ethernet  HWaddr 00:00:5E:00:53:20\n"), std::pair(24, 0));
    EXPECT_EQ(running("zvi00: flags=2<>\nzv00: flags=2<>\n"), std::pair(245, 1));
    write_file("faults/tool.ifconfig.fail", "127");
    EXPECT_EQ(running("zv00\n"), std::pair(0, 0)) << "as if there were no ifconfig";
    std::remove("faults/tool.ifconfig.fail");
}

TEST(Rates, AreHalvedAndCutAtAWholeRate) {
    const auto rates = [](const char *answer, std::size_t room = 32) -> std::string {
        std::string text(32, '~');
        return format_rates(answer, std::span(text).first(room)) == success ? text.c_str() : "failure";
    };
    EXPECT_EQ(rates("BasicRate | 1 2 \nMaxDesireRate | 2 4 11 22 "), "1,2,5.5,11");
    EXPECT_EQ(rates("MaxDesireRate | 2 4 11 22"), "1,2,5.5");
    EXPECT_EQ(rates("MaxDesireRate | 99999999999999999999 -3 none 4 "), "0.5,-1.5");
    // NOLINTNEXTLINE(bugprone-string-literal-with-embedded-nul): what stands behind the end must not be read
    EXPECT_EQ(rates("MaxDesireRate |\0 8 "), "");
    EXPECT_EQ(rates("BasicRate | 2 4 MaxDesireRate "), "failure");
    EXPECT_EQ(rates("MaxDesireRate | 2 4 11 22 ", 8), "1,2,5.5");
    EXPECT_EQ(rates("MaxDesireRate | 2 4 11 22 ", 7), "1,2");
}

TEST(Shell, PassesNoDescriptorAndNoSignalMaskOn) {
    const int inherited = dup(0);
    sigset_t all, before;
    sigfillset(&all);
    sigprocmask(SIG_BLOCK, &all, &before);
    EXPECT_EQ(run_command("who", ("test ! -e /proc/$$/fd/" + std::to_string(inherited)).c_str()), success);
    EXPECT_EQ(run_command("who", "kill -TERM $$; exit 1"), success) << "an end by a signal is no failure";
    sigprocmask(SIG_SETMASK, &before, nullptr);
}

TEST(Driver, GetsCommandsOnceItIsInitialised) {
    start_with("8", "8");
    write_file("log", "");
    write_file("interfaces/zvi00", "down");
    write_file("faults/set.zvi00.A.fail", "5");
    EXPECT_EQ(ZAV_Set(0, "TxPower=40"), success);
    driver_initialised = true;
    EXPECT_EQ(ZAV_Set(1, "TxPower=50"), success);
    EXPECT_EQ(ZAV_InterfaceUp(1), success);
    testing::internal::CaptureStderr();
    EXPECT_TRUE(ZAV_Set(0, "TxPower=60") == failure && ZAV_Set(1, "A=1") == failure);
    EXPECT_EQ(run_command("who", "exit 1"), failure);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "[ZAV-API] Error ZAV_Set invalid interface index: 0\n"
              "[ZAV-API] Error ZAV_Set zvi00: ioctl failed Input/output error (5).\n"
              "[ZAV-API] Error who command failed (rc=256,WEXITSTATUS=1).\n");
    EXPECT_EQ(read_text("log"), "set zvi00 TxPower=50\ntool ifconfig zvi00 up\nset zvi00 A=1\n");
}

TEST(Driver, AnswersWithATerminatedTextThatFits) {
    const auto show = [](const std::string &answer, int index = 1) {
        write_file("faults/show.zvi00.Channel.answer", answer);
        std::string reply(32, '~');
        EXPECT_EQ(ZAV_Show(index, "Channel", std::span(reply).first(8)), index == 1 ? success : failure);
        EXPECT_EQ(reply.substr(8), std::string(24, '~'));
        return std::string(reply.c_str());
    };
    start_with("8", "8");
    EXPECT_EQ(show(std::string("\t36") + '\0'), "36");
    EXPECT_EQ(show("\t36"), "36");
    EXPECT_EQ(show("36"), "3") << "the last byte is the terminator, whatever it is";
    EXPECT_EQ(show(""), "");
    EXPECT_EQ(show(std::string(1000, 'x')), "xxxxxxx");
    EXPECT_EQ(show("36", 9), "") << "no such interface";
    EXPECT_EQ(show("36", 0), "") << "no such index";
}

TEST(BssIdentity, GivesTheBitRateInMegabits) {
    const auto rate = [](int index) -> std::string {
        std::array<char, 8> text{};
        return ZAV_GetMaxBitRate(index, text) == success ? text.data() : "failure";
    };
    start_with("8", "8");
    write_file("interfaces/zv01", "up");
    write_file("5g/rate", "866700000\n");
    write_file("log", "");
    EXPECT_EQ(rate(10), "failure") << "the driver is not initialised";
    driver_initialised = true;
    EXPECT_EQ(rate(10), "866");
    EXPECT_EQ(rate(17), "failure");
    testing::internal::CaptureStderr();
    write_file("faults/rate.zv01.fail", "95");
    EXPECT_EQ(rate(10), "failure");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "[ZAV-API] Error ZAV_GetMaxBitRate ioctl failed Operation not supported (95).\n");
    EXPECT_EQ(read_text("log"), "rate zv01\nrate zv01\n");
}

TEST(BssIdentity, AssociatesAVlanWholeOrNotAtAll) {
    constexpr char file[] = "/tmp/ZAV750vlan.dat", bssid[] = "00:00:5E:00:53:20";
    start_with("8", "8");
    write_file("settings/ZAV75024g.dat",
               std::string("#\nBssidNum=8\nMbssidByLAM=0\nWL_MACADDR0=") + bssid + "\n");
    const std::string slot = "#\nVlanId0=4095\nVlanId0Members=\"\"eth0 zv00\"\"\n", filler = "F=";
    // From no room at all to more than enough.
    int done = 0;
    for (std::size_t room = 1; room < 200; ++room) {
        std::string text = slot + filler;
        text.resize(16383 - room, 'x');
        text += '\n';
        for (const std::uint16_t vlan : {std::uint16_t{4095}, std::uint16_t{7}}) {
            write_file(file, text);
            testing::internal::CaptureStderr();
            const Status result = ZAV_AssocitaleVlan(bssid, vlan);
            const std::string said = testing::internal::GetCapturedStderr();
            done += result == success;
            EXPECT_EQ(read_text(file) == text, result != success) << room;
            EXPECT_EQ(said, result == success
                                ? ""
                                : "[ZAV-API] Error ZAV_AssocitaleVlan no room for the members of the VLAN\n");
        }
    }
    EXPECT_GT(done, 0);
    write_file(file, slot);
    EXPECT_EQ(ZAV_AssocitaleVlan(bssid, 4095), success);
    EXPECT_EQ(read_text(file), "#\nVlanId0=4095\nVlanId0Members=\"\" zvi00\"\"\nVlanzvi00Pvid=\n");
}

TEST(RadiusDaemon, IsRestartedForTheRadiosThatRun) {
    write_file("log", "");
    EXPECT_EQ(restartRadiusDaemon(), failure) << "the driver is not loaded";
    driver_loaded = true;
    for (const auto &[loaded, expected] :
         {std::pair(0U, failure), {24U, success}, {5U, success}, {245U, success}, {7U, failure}}) {
        start_with("8", "8", loaded);
        EXPECT_EQ(restartRadiusDaemon(), expected) << loaded;
    }
    std::string log;
    std::getline(std::ifstream("log"), log, '\0');
    EXPECT_EQ(log, "script zv_host.sh rtdot1xd 24g\nscript zv_host.sh rtdot1xd 5g\n"
                   "script zv_host.sh rtdot1xd dual\n");
    driver_loaded = false;
}
