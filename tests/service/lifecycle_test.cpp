// Load, init, restart and reset under failing, hanging and overlapping scripts, with the real binary.

#include "service/golden.h"

#include <algorithm>
#include <arpa/inet.h>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <latch>
#include <sys/resource.h>
#include <thread>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::uint32_t load = 1, init = 2, reset = 3, get_status = 11, get_name = 12, get_ssid = 21,
                        set_ssid = 22, set_transmit_power = 53, restart_all = 206, restart = 207;
constexpr int in_progress = 3;

#ifdef SANITIZED
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif

void shell(const std::string &command) { ASSERT_EQ(std::system(command.c_str()), 0) << command; }

// A gateway with scripts of its own, which can be broken.
class Lifecycle : public testing::Test {
protected:
    Lifecycle() : client(gateway.port()) { std::filesystem::create_directory(gateway.path("run")); }
    ~Lifecycle() override {
        EXPECT_TRUE(client.answers());
        EXPECT_TRUE(await([&] { return children() == hanging; })) << "scripts are not waited for";
        EXPECT_EQ(gateway.count("err", "Sanitizer"), 0) << read_file(gateway.path("err"));
    }

    static std::vector<std::string> copy_scripts() {
        shell("rm -rf /tmp/sim /tmp/gateway/run && cp -R " SOURCE_DIR "/sim /tmp/sim");
        return {"zav_install_dir=/tmp/sim/host", "RUNTIME_DIRECTORY=/tmp/gateway/run:/tmp/other",
                "WLAN_CONFIGD_PORT=4000"};
    }
    int call(std::uint32_t procedure) { return client.code(procedure); }
    int call(std::uint32_t procedure, std::uint32_t argument) {
        return client.code(procedure, word(argument));
    }
    // What init ends with.
    int init_result() {
        int answer = in_progress;
        await([&] { return (answer = call(init)) != in_progress; });
        return answer;
    }
    void bring_up() {
        ASSERT_EQ(call(load, 245), 0);
        ASSERT_EQ(call(init), in_progress);
        ASSERT_EQ(init_result(), 0);
    }
    bool await_lines(const std::string &file, const std::string &text, long lines = 1) {
        return await([&] { return gateway.count(file, text) >= lines; });
    }
    // The host script's verbs since the log was emptied.
    std::string verbs() {
        std::string all;
        for (const std::string &line : lines_of(read_file(gateway.path("log"))))
            if (line.starts_with("script zv_host.sh "))
                all += line.substr(18) + '\n';
        return all;
    }
    void forget() { write_file(gateway.path("log"), ""); }
    // Running ones and zombies.
    long children() {
        const std::string task = "/proc/" + std::to_string(gateway.daemon().id()) + "/task/";
        long found = 0;
        for (const auto &thread : std::filesystem::directory_iterator(task)) {
            const std::string ids = read_file(thread.path() / "children");
            found += std::count(ids.begin(), ids.end(), ' ');
        }
        return found;
    }

    long hanging = 0; // scripts that outlive the test
    Gateway gateway{{"127.0.0.1"}, copy_scripts()};
    Client client;
};

struct Broken {
    const char *break_it, *repair_it;
    int status;
};
constexpr char repair[] = "rm -f /tmp/gateway/faults/script.zv_host.sh.*";
constexpr Broken broken_scripts[] = {
    {"mv /tmp/sim/host /tmp/sim/away", "mv /tmp/sim/away /tmp/sim/host", 127},
    {"chmod -x /tmp/sim/host/*", "chmod +x /tmp/sim/host/*", 126},
    {"echo 3 >/tmp/gateway/faults/script.zv_host.sh.fail", repair, 3},
    {"echo KILL >/tmp/gateway/faults/script.zv_host.sh.signal", repair, 137},
};

TEST_F(Lifecycle, AFailingScriptIsReportedAndLeavesTheStates) {
    for (const Broken &broken : broken_scripts) {
        SCOPED_TRACE(broken.break_it);
        write_file(gateway.path("err"), "");
        shell(broken.break_it);
        EXPECT_EQ(call(load, 245), -1);
        shell(broken.repair_it);
        EXPECT_EQ(call(load, 245), 0);
        shell(broken.break_it);
        EXPECT_EQ(call(init), in_progress);
        EXPECT_EQ(init_result(), -1);
        EXPECT_EQ(call(restart, 9), 0);
        EXPECT_TRUE(await_lines("err", "Error restart_thread_function failed !!!\n"));
        EXPECT_EQ(call(reset), -1);
        const std::string failed = " command failed (rc=" + std::to_string(broken.status * 256) +
                                   ",WEXITSTATUS=" + std::to_string(broken.status) + ").\n";
        for (const char *who : {"ZAV_Start", "ZAV_Init", "ZAV_Restart", "ZAV_Stop"})
            EXPECT_EQ(gateway.count("err", std::string("[ZAV-API] Error ") + who + failed), 1) << who;
        shell(broken.repair_it);
        forget();
        EXPECT_EQ(call(load, 245), 0) << "loaded still";
        EXPECT_EQ(call(init), -1) << "the failed reset has not armed it";
        EXPECT_EQ(client.call(get_status, word(1)), data_reply(0, {}, std::string("Disabled\0", 9)));
        EXPECT_EQ(verbs(), "");
        EXPECT_EQ(gateway.count("err", "init_thread_function failed"), 1);
        EXPECT_EQ(call(reset), 0);
        bring_up();
        forget();
        EXPECT_EQ(call(restart, 16), 0);
        EXPECT_TRUE(await_lines("log", "script zv_host.sh restart_interfaces 5g\nset zv00 WscConfMode=0"));
        EXPECT_EQ(call(reset), 0);
    }
}

// Each way ends at the step that fails.
TEST_F(Lifecycle, GoesNoFurtherThanTheFailedStep) {
    const std::string begin = "init dual\n", vlans = "addvlans dual no_ipv6\n", dot1x = "rtdot1xd dual\n";
    const std::string remove = "removevlans dual br0_remains\n", stop = "stop all\n";
    struct Row {
        std::string fault, content, of_init, of_reset;
    };
    const std::string vlans_too = begin + vlans, all = vlans_too + dot1x, stopped = remove + stop;
    const Row rows[] = {
        {"tool.ifconfig.answer", "lo\n", begin, stopped},
        {"tool.ifconfig.delay", "3600000", all, stopped}, // to its deadline: a probe that fails
        {"set.zv00.WscConfMode.fail", "5", begin, stopped},
        {"script.zv_host.sh.addvlans.fail", "1", vlans_too, stopped},
        {"script.zv_host.sh.rtdot1xd.signal", "TERM", all, stopped},
        {"script.zv_host.sh.removevlans.fail", "1", all, remove},
        {"script.zv_host.sh.stop.signal", "SEGV", all, stopped}};
    for (const auto &[name, content, of_init, of_reset] : rows) {
        SCOPED_TRACE(name);
        const bool of_stop = name.find("remove") != name.npos || name.find("stop") != name.npos;
        ASSERT_EQ(call(load, 245), 0);
        forget();
        gateway.fault(name, content);
        EXPECT_EQ(call(init), in_progress);
        EXPECT_EQ(init_result(), of_stop || name.ends_with("delay") ? 0 : -1);
        EXPECT_EQ(verbs(), of_init);
        forget();
        EXPECT_EQ(call(reset), of_stop ? -1 : 0);
        EXPECT_EQ(verbs(), of_reset);
        gateway.repair(name);
        EXPECT_EQ(call(reset), 0);
    }
    EXPECT_EQ(gateway.count("err", "Error GET_RUNNING_INTERFACES command took longer than 10 s.\n"), 1);
}

// Sorted, in milliseconds.
std::vector<double> latencies(Client &client) {
    std::vector<double> all;
    for (unsigned i = 0; i < 1000; ++i) {
        const std::string name = xdr_text("Net " + std::to_string(i));
        const auto begun = Clock::now();
        EXPECT_EQ(i % 2 == 0 ? client.code(get_ssid, word(9)) : client.code(set_ssid, word(2) + name), 0);
        all.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begun).count());
    }
    std::sort(all.begin(), all.end());
    return all;
}

// Both workers hang for as long as this program runs. Noise makes a request slow, a wait makes it seconds.
TEST_F(Lifecycle, HangingScriptsDelayNoRequest) {
    hanging = 2;
    ASSERT_EQ(call(load, 245), 0);
    const std::vector<double> idle = latencies(client);
    for (const char *verb : {"init", "restart_interfaces"})
        gateway.fault(std::string("script.zv_host.sh.") + verb + ".delay", "3600000");
    EXPECT_EQ(call(init), in_progress);
    EXPECT_EQ(call(restart, 9), 0);
    ASSERT_TRUE(await_lines("log", "init dual"));
    ASSERT_TRUE(await_lines("log", "restart_interfaces 5g"));
    const std::vector<double> busy = latencies(client);
    const auto begun = Clock::now();
    EXPECT_EQ(call(init), in_progress);
    EXPECT_EQ(call(restart, 1), 0);
    EXPECT_EQ(call(restart_all), 0);
    EXPECT_EQ(client.code(set_transmit_power, word(9) + word(50)), 0);
    EXPECT_EQ(client.call(get_status, word(1)), data_reply(0, {}, std::string("Disabled\0", 9)));
    EXPECT_LT(Clock::now() - begun, 1s);
    for (const auto &[what, place, least] :
         {std::tuple("median", 500U, 5.0), std::tuple("p99", 990U, 200.0)}) {
        const double before = idle.at(place), after = busy.at(place);
        RecordProperty(what, std::to_string(before) + " " + std::to_string(after));
        EXPECT_LT(after, std::max(10 * before, least)) << what << " was " << before << " ms";
    }
}

// What is asked for during a restart becomes one more, the 5 GHz radio first.
TEST_F(Lifecycle, RestartsAreMerged) {
    const std::string r24 = "restart_interfaces 24g\n", r5 = "restart_interfaces 5g\n";
    struct Row {
        std::vector<std::uint32_t> asked; // 0xFFFF: all of them
        std::string masks, scripts;
    };
    std::vector<std::uint32_t> thousand, each;
    for (std::uint32_t i = 0; i < 1000; ++i)
        thousand.push_back(i % 2 == 0 ? 3 : 10);
    for (std::uint32_t index = 1; index <= 16; ++index)
        each.push_back(index);
    bring_up();
    const std::string line = "=ww= Now restart wlan with mask:", first_lines = line + "0100\n" + line;
    for (const auto &[asked, masks, scripts] :
         {Row{{3, 10}, "0204\n", r5 + r24}, Row{thousand, "0204\n", r5 + r24}, Row{{8}, "0080\n", r24},
          Row{{16, 33, 0, 17, 32, 0x7FFFFFFF, 0x80000000}, "8001\n", r5 + r24},
          Row{{1, 0xFFFF}, "ffff\n", r24 + r5}, Row{{0xFFFF, 9}, "ffff\n", r24 + r5},
          Row{each, "ffff\n", r24 + r5}}) {
        SCOPED_TRACE(masks + std::to_string(asked.size()));
        forget();
        write_file(gateway.path("err"), "");
        const std::string hold = "script.zv_host.sh.restart_interfaces.5g.hold";
        gateway.fault(hold, "");
        EXPECT_EQ(call(restart, 9), 0);
        ASSERT_TRUE(await_lines("log", r5));
        for (const std::uint32_t index : asked)
            EXPECT_EQ(index == 0xFFFF ? call(restart_all) : call(restart, index), 0);
        EXPECT_EQ(verbs(), r5);
        gateway.repair(hold);
        const std::string expected = r5 + scripts;
        EXPECT_TRUE(await([&] { return verbs().size() >= expected.size(); }));
        std::this_thread::sleep_for(50ms); // for what must not come
        EXPECT_EQ(verbs(), expected);
        EXPECT_EQ(read_file(gateway.path("err")), first_lines + masks);
    }
}

// The first init, of one radio, ends while the second runs and must not show anywhere.
TEST_F(Lifecycle, AResetOvertakesARunningInit) {
    for (const bool second_succeeds : {true, false}) {
        SCOPED_TRACE(second_succeeds);
        shell(repair);
        for (const char *band : {"24g", "dual"})
            gateway.fault(std::string("script.zv_host.sh.init.") + band + ".hold", "");
        gateway.fault(
            second_succeeds ? "script.zv_host.sh.init.24g.fail" : "script.zv_host.sh.init.dual.fail", "1");
        ASSERT_EQ(call(load, 24), 0);
        EXPECT_EQ(call(init), in_progress);
        ASSERT_TRUE(await_lines("log", "init 24g"));
        EXPECT_EQ(call(reset), 0);
        ASSERT_EQ(call(load, 245), 0);
        forget();
        EXPECT_EQ(call(init), in_progress);
        ASSERT_TRUE(await_lines("log", "init dual"));
        gateway.repair("script.zv_host.sh.init.24g.hold");
        std::this_thread::sleep_for(400ms); // the first is over, with its wait
        EXPECT_EQ(call(init), in_progress);
        EXPECT_EQ(read_file(gateway.path("log")), "script zv_host.sh init dual\n");
        gateway.repair("script.zv_host.sh.init.dual.hold");
        EXPECT_EQ(init_result(), second_succeeds ? 0 : -1);
        EXPECT_EQ(call(init), second_succeeds ? 0 : -1);
        EXPECT_EQ(gateway.count("log", "addvlans"), second_succeeds ? 1 : 0);
        EXPECT_EQ(call(reset), 0);
    }
}

// Wherever a stop comes in between, init does not go on behind its back and reports no failure; a stop that
// fails does it no harm.
TEST_F(Lifecycle, AStopKeepsARunningInitOut) {
    const std::string begin = "init dual\n", stop = "removevlans dual br0_remains\nstop all\n";
    const std::string vlans = "addvlans dual no_ipv6\nrtdot1xd dual\n";
    struct Row {
        const char *init_delay, *sleep, *stop_delay, *until;
        bool stop_fails;
    };
    const Row rows[] = {{"600", "20", "0", "init dual", false},       // a stop within the init script
                        {"300", "20", "600", "init dual", false},     // and around its end
                        {"0", "600", "0", "zv00 WscConfMode", false}, // within the wait that follows
                        {"0", "300", "600", "zv00 WscConfMode", false},
                        {"300", "20", "600", "init dual", true},
                        {"0", "300", "600", "zv00 WscConfMode", true}};
    for (const auto &[init_delay, sleep, stop_delay, until, stop_fails] : rows) {
        SCOPED_TRACE(std::string(init_delay) + " " + sleep + " " + stop_delay + " " + until);
        shell(repair);
        write_file(gateway.path("err"), "");
        write_file(gateway.path("sleep_ms"), sleep);
        gateway.fault("script.zv_host.sh.init.delay", init_delay);
        gateway.fault("script.zv_host.sh.removevlans.delay", stop_delay);
        if (stop_fails)
            gateway.fault("script.zv_host.sh.stop.fail", "1");
        ASSERT_EQ(call(load, 245), 0);
        forget();
        EXPECT_EQ(call(init), in_progress);
        ASSERT_TRUE(await_lines("log", until));
        EXPECT_EQ(call(reset), stop_fails ? -1 : 0);
        if (stop_fails) {
            EXPECT_EQ(init_result(), 0);
        } else {
            std::this_thread::sleep_for(800ms); // for what must not come
            EXPECT_FALSE(std::filesystem::exists(gateway.path("daemons/vlans")));
        }
        EXPECT_EQ(verbs(), begin + stop + (stop_fails ? vlans : ""));
        EXPECT_EQ(gateway.count("err", "init_thread_function"), 0);
        shell(repair);
        EXPECT_EQ(call(reset), 0);
    }
}

// Where a record is damaged, the daemon begins as if there were none.
TEST_F(Lifecycle, AKilledDaemonIsFollowedByOneThatKnowsTheDriver) {
    struct Row {
        std::string name, damage;
        std::function<void()> reach;
        bool initialised;
        int result;
        std::string verb;
    };
    const std::string record = gateway.path("run/driver"), settings = gateway.path("settings/ZAV75024g.dat");
    const auto up = [&] { bring_up(); };
    const auto hang = [&](const std::string &verb, std::uint32_t procedure, std::uint32_t argument = 9) {
        gateway.fault("script.zv_host.sh." + verb + ".delay", "3600000"); // it outlives the test
        (void)client.call(procedure, word(argument), nullptr, 500);
        ASSERT_TRUE(await_lines("log", "zv_host.sh " + verb));
    };
    std::vector<Row> rows{
        {"not loaded", "", [] {}, false, -1, ""},
        {"loaded", "", [&] { EXPECT_EQ(call(load, 5), 0); }, false, 0, "init 5g"},
        {"in a load", "", [&] { hang("load", load, 245); }, false, -1, ""},
        {"in an init", "", [&] { call(load, 245), hang("init", init); }, true, -1, ""},
        {"not told", "", [&] { call(load, 245), call(init), await_lines("run/driver", "init 1 0"); }, true, 0,
         ""},
        {"initialised", "", up, true, 0, ""},
        {"in a restart", "", [&] { up(), hang("restart_interfaces", restart); }, true, 0, ""},
        {"in a stop", "", [&] { up(), hang("removevlans", reset); }, true, 0, ""},
        {"stopped", "", [&] { up(), call(reset); }, false, -1, ""}};
    for (const char *damage : {"sed -i '2s/[0-9]/x/'", "sed -i '1s/1/2/'", "sed -i 's/BSSes 8/BSSes 65/'",
                               "sed -i 's/init 2 0/init 2 3/'", "truncate -s 0", "truncate -s 90",
                               "truncate -s -1", "truncate -s +1", "ln -sf /", "rm -f interfaces/zv*; :"})
        rows.push_back({damage, damage, up, false, -1, ""});
    for (const auto &[name, damage, reach, initialised, result, verb] : rows) {
        SCOPED_TRACE(name);
        reach();
        (void)client.call(get_name, word(1), nullptr, 2000); // so that the counts are known
        shell("cd /tmp/gateway; " + (damage.empty() ? "" : damage + " run/driver"));
        write_file(gateway.path("err"), "");
        gateway.restart();
        EXPECT_EQ(gateway.count("err", "\n"), damage.empty() ? 0 : 1) << read_file(gateway.path("err"));
        EXPECT_EQ(std::filesystem::exists(record), initialised || !verb.empty());
        forget();
        shell("sed -i s/BssidNum=8/BssidNum=4/ " + settings); // the old count is known
        (void)client.code(set_transmit_power, word(9) + word(50));
        EXPECT_EQ(gateway.count("log", "set zv00 TxPower="), initialised ? 1 : 0);
        EXPECT_EQ(client.call(get_status, word(1)) != data_reply(0, {}, std::string(1, '\0')), initialised);
        EXPECT_EQ(call(init), initialised ? result : in_progress);
        EXPECT_EQ(init_result(), result);
        EXPECT_EQ(verbs().substr(0, 7), verb);
        shell(std::string(repair) + "; cp /tmp/sim/factory/*24g.dat " + settings);
        EXPECT_EQ(call(reset), 0);
        EXPECT_FALSE(std::filesystem::exists(record));
    }
}

// Short of descriptors while the driver comes up, and not any more.
TEST_F(Lifecycle, TheRecordIsWrittenAgainAsSoonAsItCanBe) {
    gateway.fault("script.zv_host.sh.load.delay", "500");
    std::jthread loading([&] { EXPECT_EQ(call(load, 245), 0); });
    ASSERT_TRUE(await_lines("log", "zv_host.sh load"));
    rlimit usual{};
    ASSERT_EQ(prlimit(gateway.daemon().id(), RLIMIT_NOFILE, nullptr, &usual), 0);
    const rlimit none{3, usual.rlim_max};
    ASSERT_EQ(prlimit(gateway.daemon().id(), RLIMIT_NOFILE, &none, nullptr), 0);
    loading.join();
    EXPECT_EQ(gateway.count("err", "write_driver_record write failed No data available (61).\n"), 1);
    ASSERT_EQ(prlimit(gateway.daemon().id(), RLIMIT_NOFILE, &usual, nullptr), 0);
    EXPECT_EQ(call(get_name, 1), 0); // which looks the counts up
    EXPECT_TRUE(std::filesystem::exists(gateway.path("run/driver")));
    EXPECT_EQ(call(reset), 0);
}

// A limit on the address space leaves no room for a thread's stack.
TEST_F(Lifecycle, AThreadThatCannotBeHadIsReported) {
    if (sanitized)
        GTEST_SKIP() << "a sanitizer needs address space itself";
    ASSERT_EQ(call(load, 245), 0);
    const pid_t daemon = gateway.daemon().id();
    rlimit usual{};
    const rlimit tight{4096, RLIM_INFINITY};
    ASSERT_EQ(prlimit(daemon, RLIMIT_AS, &tight, &usual), 0);
    EXPECT_EQ(call(init), -1);
    EXPECT_EQ(call(init), 0) << "nothing ran, so the result is that of the start";
    EXPECT_EQ(call(restart, 3), 0);
    EXPECT_EQ(call(restart, 10), 0);
    const std::string refused = " thread creation failed Resource temporarily unavailable (11).\n";
    EXPECT_EQ(read_file(gateway.path("err")), "[ZAV-API] Error wlan_init" + refused +
                                                  "[ZAV-API] Error wlan_restart_thread_start" + refused +
                                                  "[ZAV-API] Error wlan_restart_thread_start" + refused);
    ASSERT_EQ(prlimit(daemon, RLIMIT_AS, &usual, nullptr), 0);
    EXPECT_EQ(call(restart, 3), 0); // once more: the thread may have taken the mask before
    EXPECT_TRUE(await_lines("err", "mask:0204\n"));
    EXPECT_EQ(call(init), 0);
    EXPECT_EQ(call(reset), 0);
    bring_up();
}

} // namespace
