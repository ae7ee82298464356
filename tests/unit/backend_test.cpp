// Runs in the directory of a simulated gateway, with its driver preloaded.

#include "api/rates.h"
#include "backend/bss_identity.h"
#include "backend/config_store.h"
#include "backend/driver_channel.h"
#include "backend/interfaces.h"
#include "backend/lifecycle.h"
#include "backend/running_interfaces.h"
#include "backend/settings_by_index.h"
#include "backend/shell.h"
#include "backend/unreached.h"
#include "files.h"
#include "radio/bss_enable.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

static std::string join(std::initializer_list<std::string_view> pieces) {
    std::string text;
    for (const std::string_view piece : pieces)
        text += piece;
    return text;
}

// The daemon as it starts, with files that name so many BSSes.
static void start_with(const std::string &number_24g, const std::string &number_5g,
                       Radios loaded = Radios::both) {
    write_file("settings/ZAV75024g.dat", "#\nBssidNum=" + number_24g + "\n");
    write_file("settings/ZAV750.dat", "#\nBssidNum=" + number_5g + "\n");
    set_known_driver();
    set_interfaces_up(loaded);
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
    EXPECT_EQ(ZAV_GetNumberOfEntriesPerInf(&first, nullptr, 5), failure);
    EXPECT_EQ(first, 5);
    InterfaceName name, air_time;
    Bss bss;
    name.fill('~');
    air_time.fill('~');
    EXPECT_EQ(GET_IFNAME_FROM_INDEX(&name, 5, nullptr), success);
    EXPECT_EQ(name, InterfaceName{"zv00"});
    EXPECT_EQ(GET_ATM_IFNAME_FROM_INDEX(&air_time, 5, nullptr), success);
    EXPECT_EQ(air_time, InterfaceName{"atm5g"}) << "a request carries all 16 bytes";
    EXPECT_EQ(ZAV_getIfNameByIndex(5, &bss), failure) << "the driver is not initialised";
    set_driver_state(DriverState::initialised);
    EXPECT_EQ(ZAV_getIfNameByIndex(5, &bss), success);
    EXPECT_EQ(bss.name, name);
    EXPECT_EQ(ZAV_is5g(bss), 1);
    EXPECT_EQ(ZAV_is24g(bss), 0);
}

TEST(Interfaces, TakeTheirCountsFromTheFilesOnce) {
    start_with("4", "3", Radios::only_24g);
    EXPECT_EQ(meaning(5), meaning(0));
    start_with("4", "3", Radios::only_5g);
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

// What another thread has read before the stop must not be stored behind it.
TEST(Interfaces, ForgetTheirCountsForGood) {
    start_with("4", "3");
    std::atomic<bool> enough = false;
    std::jthread worker([&] {
        for (; !enough; set_known_driver())
            (void)refresh_counts();
    });
    int outdated = 0;
    for (unsigned round = 0; round < 3000; ++round) {
        write_file("settings/next", "#\nBssidNum=" + std::to_string(round % 9 + 1) + "\n");
        std::rename("settings/next", "settings/ZAV750.dat");
        set_known_driver();
        for (unsigned look = 0; look < 200 + round % 2000; ++look) // never in step with the worker
            if (const unsigned count = known_counts().on_5g; count != 0)
                outdated += count != round % 9 + 1;
    }
    enough = true;
    EXPECT_EQ(outdated, 0);
}

TEST(Interfaces, AreProbedInBothFormsOfIfconfig) {
    const auto running = [](const std::string &output) {
        write_file("faults/tool.ifconfig.answer", output);
        return std::pair(static_cast<int>(GET_RUNNING_INTERFACES()), isInterfacesRunningOnBand(5));
    };
    start_with("4", "4");
    EXPECT_EQ(running("eth0      Link encap:Ethernet\n          zv0 zvi0\n"), std::pair(0, 0));
    EXPECT_EQ(running("zv01: flags=4163<UP>  mtu 1500\n"), std::pair(5, 1));
    EXPECT_EQ(running("zvi00     Link encap:Ethernet  HWaddr 00:00:5E:00:53:20\n"), std::pair(24, 0));
    EXPECT_EQ(running("zvi00: flags=2<>\nzv00: flags=2<>\n"), std::pair(245, 1));
    EXPECT_EQ(running(std::string("lo\0 \nzv00: <>\n", 14)), std::pair(5, 1)) << "a zero byte hides no line";
    EXPECT_EQ(running(std::string(255, 'x') + "zv00\nzvi00\n"), std::pair(24, 0))
        << "no line begins in a line";
    write_file("faults/tool.ifconfig.fail", "127");
    EXPECT_EQ(running("zv00\n"), std::pair(0, 0)) << "as if there were no ifconfig";
    std::remove("faults/tool.ifconfig.fail");
}

TEST(Rates, AreCutAtAWholeRateAndTheEndOfTheAnswer) {
    const auto rates = [](const char *answer, std::size_t room) -> std::string {
        std::string text(32, '~');
        return format_rates(answer, std::span(text).first(room)) == success ? text.c_str() : "failure";
    };
    EXPECT_EQ(rates("MaxDesireRate | 2 4 11 22 ", 8), "1,2,5.5");
    EXPECT_EQ(rates("MaxDesireRate | 2 4 11 22 ", 7), "1,2");
    EXPECT_EQ(rates("MaxDesireRate | 99999999999999999999 -3 none 4 ", 32), "0.5,-1.5");
    // NOLINTNEXTLINE(bugprone-string-literal-with-embedded-nul): what stands behind the end must not be read
    EXPECT_EQ(rates("MaxDesireRate |\0 8 ", 32), "");
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

// Whether the process whose number the command wrote lives on, a moment later.
static bool lives(const char *file) {
    const std::string stat = "/proc/" + std::to_string(std::stoi(read_file(file))) + "/stat";
    for (int tries = 50; tries > 0; --tries, std::this_thread::sleep_for(std::chrono::milliseconds(10)))
        if (const std::string state = read_file(stat.c_str());
            state.empty() || state.find(") Z ") != state.npos)
            return false;
    return true;
}

TEST(Shell, EndsACommandWithItsGroupAtTheDeadlineOnly) {
    using namespace std::chrono_literals;
    const auto begun = std::chrono::steady_clock::now();
    std::string lines;
    const auto take = [&](std::string_view line) { (lines += line) += '\n'; };
    EXPECT_EQ(run_command("who", "sleep 60 & echo $! >left"), success);
    EXPECT_EQ(read_command("who", "sleep 60 & echo $! >reading; printf 'a\nb'", 30s, take), success);
    EXPECT_EQ(lines, "a\nb\n") << "without the end of its output";
    testing::internal::CaptureStderr();
    constexpr char stubborn[] = "trap '' TERM; echo c; sleep 60 & echo $! >below; wait; sleep 60; exit 1";
    EXPECT_EQ(run_command("who", stubborn, {}, 1s), failure);
    EXPECT_FALSE(lives("below"));
    EXPECT_EQ(read_command("who", stubborn, 1s, take), failure);
    EXPECT_EQ(run_unchecked("who", "yes | cat >/dev/null", 1s), -1);
    const std::string said = "[ZAV-API] Error who command took longer than 1 s.\n";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), said + said + said);
    EXPECT_TRUE(lives("left") && lives("reading") && !lives("below"));
    EXPECT_LT(std::chrono::steady_clock::now() - begun, 20s);
    EXPECT_EQ(std::system("kill $(cat left reading)"), 0);
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
    write_file("interfaces/zvi00", "down");
    EXPECT_EQ(show(std::string("\t36") + '\0'), "36");
    EXPECT_EQ(show("\t36"), "36");
    EXPECT_EQ(show("36"), "3") << "the last byte is the terminator, whatever it is";
    EXPECT_EQ(show(""), "");
    EXPECT_EQ(show(std::string(1000, 'x')), "xxxxxxx");
    EXPECT_EQ(show("36", 9), "") << "no such interface";
    EXPECT_EQ(show("36", 0), "") << "no such index";
}

TEST(BssIdentity, MasksTheFirstOctetByTheCount) {
    const auto bssid = [](const std::string &base, int count, int bss, int rule = 1) -> std::string {
        write_file("settings/ZAV75024g.dat", "#\nBssidNum=" + std::to_string(count) + "\nMbssidByLAM=" +
                                                 std::to_string(rule) + "\nWL_MACADDR0=" + base + "\n");
        set_known_driver();
        std::array<char, 20> text{};
        return ZAV_GetBSSID(bss, text) == success ? text.data() : "failure";
    };
    start_with("8", "8");
    for (const auto &[count, bss, octet] : {std::tuple(2, 2, "FA"),
                                            {3, 2, "F2"},
                                            {3, 3, "F6"},
                                            {4, 4, "FA"},
                                            {5, 2, "E2"},
                                            {5, 5, "EE"},
                                            {8, 8, "FA"},
                                            {9, 2, "C2"},
                                            {9, 9, "DE"},
                                            {16, 16, "FA"}})
        EXPECT_EQ(bssid("FC:ff:0:01:0a:99", count, bss), std::string(octet) + ":FF:00:01:0A:99")
            << bss << " of " << count;
    for (const char *base : {"-1:-1:-1:-1:-1:-1", "0x:11:22:33:44:55", " 1:11:22:33:44:55",
                             "00:11:22:33:44:", "00:11:22:33:44", "00-11-22-33-44-55", "001:1:22:33:44:55"})
        for (const int rule : {0, 1})
            EXPECT_EQ(bssid(base, 8, 2, rule), "failure") << base << rule;
}

// Associates zvi00, with one BSS a band, and compares the VLAN file.
static void associate(std::uint16_t vlan, const std::string &before, Status result, const std::string &after,
                      const std::string &said = "") {
    constexpr char file[] = "/tmp/ZAV750vlan.dat";
    start_with("1", "1");
    set_vlan_file_is_reset(true);
    write_file("settings/ZAV75024g.dat", "#\nBssidNum=1\nWL_MACADDR0=00:00:5E:00:53:20\n");
    write_file(file, before);
    if (before.empty())
        std::remove(file);
    testing::internal::CaptureStderr();
    EXPECT_EQ(ZAV_AssocitaleVlan("00:00:5E:00:53:20", vlan), result);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              said.empty() ? "" : "[ZAV-API] Error ZAV_AssocitaleVlan " + said + "\n");
    EXPECT_EQ(read_file(file), after);
}

TEST(BssIdentity, AssociatesAVlanWholeOrNotAtAll) {
    const std::string zero = "VlanId1=0\nVlanId1Members=\"eth0\"\nVlanzvi00Pvid=0\n",
                      seven = "VlanId0=7\nVlanId0Members=\"eth0\"\nVlanzvi00Pvid=7\n",
                      gathering = "VlanId0=4095\nVlanId0Members=\"\"";
    associate(0, "#\nVlanId0=7\n", success, "#\nVlanId0=7\n" + zero);
    associate(9, "#\nVlanId0=7\nVlanId1=8\n", failure, "#\nVlanId0=7\nVlanId1=8\n",
              "search_vlan == entries ");
    associate(7, "", failure, "");
    ASSERT_EQ(std::system("echo >other; echo VlanId0=7 >>other; rm -f /tmp/ZAV750vlan.dat"), 0);
    for (const std::string make : {"ln -s $PWD/other", "mkfifo", "mkdir"}) {
        SCOPED_TRACE(make);
        int stored = 99;
        ASSERT_EQ(std::system((make + " /tmp/ZAV750vlan.dat").c_str()), 0);
        EXPECT_EQ(nvram_get_int(settings_vlan, "VlanId0", &stored), failure);
        EXPECT_EQ(nvram_set_str(settings_vlan, "VlanId0", "8"), failure);
        ASSERT_EQ(std::system("grep -qx VlanId0=7 other && rm -d /tmp/ZAV750vlan.dat"), 0);
    }
    struct Row {
        std::uint16_t vlan;
        std::string before, after;
        std::size_t above; // so much longer than in the end it is between two of the writes
    };
    const Row rows[] = {{7, "", seven, 0},
                        {7, seven, seven, 0},
                        {4095, gathering + "eth0 zv00\"\"\n", gathering + " zvi00\"\"\nVlanzvi00Pvid=\n", 0},
                        {7, "VlanId0=7\nVlanId0Members=\nVlanzvi00Pvid=1234\n", seven, 3}};
    for (const auto &[vlan, before, after, above] : rows)
        for (std::size_t length = 16320; length < 16390; ++length) {
            SCOPED_TRACE(before + std::to_string(length));
            const std::string head = std::string(length - before.size() - 1, '#') + '\n';
            const std::size_t longest = std::max(length, head.size() + after.size() + above);
            if (longest < 16384)
                associate(vlan, head + before, success, head + after);
            else
                associate(vlan, head + before, failure, head + before,
                          "settings file would pass 16383 bytes");
        }
}

// A switch for the pipe that the probe's output comes through.
static bool pipes_fail = false;
extern "C" int pipe2(int *ends, int flags) noexcept {
    errno = EMFILE;
    return pipes_fail ? -1 : static_cast<int>(syscall(SYS_pipe2, ends, flags));
}

// A loaded driver of four BSSes a band, without WPS, and its log from now on.
static void load_with(const std::string &wps_24g, Radios loaded) {
    start_with("4", "4\nWscEnable=0;", loaded);
    write_file("settings/ZAV75024g.dat", "#\nBssidNum=4\nWscEnable=" + wps_24g + "\n");
    for (const char *interface : {"interfaces/zvi00", "interfaces/zv00"})
        write_file(interface, "down");
    write_file("log", "");
    set_driver_state(DriverState::loaded);
}

static const std::string off_24g = "set zvi00 WscConfMode=0\n", off_5g = "set zv00 WscConfMode=0\n",
                         script = "script zv_host.sh ";

TEST(Lifecycle, InitGoesByTheLoadAndThenByTheProbe) {
    struct Row {
        Radios loaded;
        std::string wps_24g, probe; // without a probe it cannot be made
        std::string init, off, vlans;
    };
    for (const auto &[loaded, wps_24g, probe, init, off, vlans] :
         {Row{Radios::only_24g, "0;", "zvi00\n", "24g", off_24g, "24g"},
          Row{Radios::only_5g, "0;", "zv00\n", "5g", off_5g, "5g"},
          Row{Radios::both, "1;", "zvi00\nzv00\n", "dual", off_5g, "dual"},
          Row{Radios::both, "0;", "zvi00\nzv00\n", "dual", off_24g + off_5g, "dual"},
          Row{Radios::both, "0;", "zvi00\n", "dual", off_24g, "24g"},
          Row{Radios::both, "0;", "zv00\n", "dual", off_5g, "5g"},
          Row{Radios::only_24g, "0;", "", "24g", "", "dual"}}) {
        load_with(wps_24g, loaded);
        write_file("faults/tool.ifconfig.answer", probe);
        pipes_fail = probe.empty();
        EXPECT_EQ(ZAV_Init(), success);
        pipes_fail = false;
        EXPECT_EQ(ZAV_Init(), failure) << "is no second one";
        EXPECT_EQ(read_file("log"),
                  join({script, "init ", init, "\n", probe.empty() ? "" : "tool ifconfig\n", off, "sleep 4\n",
                        script, "addvlans ", vlans, " no_ipv6\n", script, "rtdot1xd ", vlans, "\n"}));
    }
    std::remove("faults/tool.ifconfig.answer");
}

TEST(Lifecycle, AnOvertakenInitLeavesTheNextRunAlone) {
    const unsigned overtaken = driver_run();
    EXPECT_EQ(ZAV_Stop(), success);
    load_with("0;", Radios::both);
    testing::internal::CaptureStderr();
    EXPECT_EQ(ZAV_Init(overtaken), failure);
    EXPECT_FALSE(driver_is(DriverState::initialised));
    EXPECT_EQ(testing::internal::GetCapturedStderr() + read_file("log"), "");
    EXPECT_EQ(ZAV_Init(), success);
}

TEST(Lifecycle, ARestartIsThatOfTheBand) {
    const std::string restart = script + "restart_interfaces ", of_24g = restart + "24g\n" + off_24g,
                      of_5g = restart + "5g\n" + off_5g;
    constexpr int all = 0;
    for (const auto &[loaded, index, expected] : {std::tuple(Radios::both, 4, of_24g),
                                                  {Radios::both, 6, of_5g},
                                                  {Radios::both, 8, of_5g},
                                                  {Radios::both, all, of_24g + of_5g},
                                                  {Radios::only_24g, 4, of_24g},
                                                  {Radios::only_24g, all, of_24g},
                                                  {Radios::only_5g, 4, of_5g},
                                                  {Radios::only_5g, all, of_5g},
                                                  {Radios::only_5g, 5, ""},
                                                  {Radios::both, 9, ""}}) {
        load_with("0;", loaded);
        set_driver_state(DriverState::initialised);
        EXPECT_EQ(index == all ? ZAV_RestartAll() : ZAV_Restart(index), expected.empty() ? failure : success);
        EXPECT_EQ(read_file("log"), expected) << static_cast<int>(loaded) << " " << index;
    }
}

TEST(BssEnable, CountsTheSixteenThatTheListHas) {
    for (const char *bss_count : {"16", "17", "64"}) {
        start_with(bss_count, std::string(bss_count) + "\nBssEnabled=1;0;2;1;0;0;0;0;0;0;0;0;0;0;0;1;1;1");
        EXPECT_EQ(getBssEnabledOnBand(std::stoi(bss_count) + 1), 3) << bss_count;
    }
}

TEST(RadiusDaemon, IsRestartedForTheRadiosThatRun) {
    write_file("log", "");
    set_driver_state(DriverState::stopped);
    EXPECT_EQ(restartRadiusDaemon(), failure) << "the driver is not loaded";
    for (const Radios loaded : {Radios::only_24g, Radios::only_5g, Radios::both}) {
        start_with("8", "8", loaded);
        set_driver_state(DriverState::loaded);
        EXPECT_EQ(restartRadiusDaemon(), success);
    }
    EXPECT_EQ(read_file("log"), "script zv_host.sh rtdot1xd 24g\nscript zv_host.sh rtdot1xd 5g\n"
                                "script zv_host.sh rtdot1xd dual\n");
}
