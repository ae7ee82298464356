#include "service/gateway.h"

#include "rpc/protocol.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <regex>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr std::uint32_t proc_unavailable = 3, garbage_arguments = 4;
constexpr std::uint32_t load = 1, reset = 3, set_max_bitrate = 15, get_ssid = 21, set_ssid = 22,
                        restore_defaults = 178, scan_status = 223;

#ifdef SANITIZED
constexpr long may_grow = 1L << 40; // a sanitizer's own memory does
#else
constexpr long may_grow = 50; // pages
#endif

std::string settings(const Gateway &gateway) {
    return read_file(gateway.path("settings/ZAV75024g.dat")) + read_file(gateway.path("settings/ZAV750.dat"));
}

bool registered() { return std::system("rpcinfo -u 127.0.0.1 538054928 1 >/dev/null 2>&1") == 0; }

// Sleeps of ten seconds last: the daemon does not look at its registration while the test goes on.
void look_rarely(const Gateway &gateway) { write_file(gateway.path("sleep_ms"), "60000"); }

TEST(StartUp, HelpAndVersionLeaveTheRunningDaemonRegistered) {
    Gateway gateway;
    for (const char *word : {"-h", "--help", "--version"}) {
        const Outcome ended = run("wlan-configd", {word});
        EXPECT_EQ(ended.status, 0);
        EXPECT_NE(ended.out.find("wlan-configd"), std::string::npos);
        EXPECT_TRUE(registered());
    }
}

TEST(StartUp, RefusesWhatItCannotBind) {
    const Outcome no_address = run("wlan-configd", {"999.1.1\n1", "ignored"});
    EXPECT_EQ(no_address.status, 1);
    EXPECT_EQ(no_address.out,
              "WLAN RPC Server IP addr 999.1.1\\x0A1\ninet_aton failed with IPv4 999.1.1\\x0A1\n");
    EXPECT_EQ(no_address.err, "");
    const Outcome not_local = run("wlan-configd", {"192.0.2.1"});
    EXPECT_EQ(not_local.status, 1);
    EXPECT_EQ(not_local.err, "bind: Cannot assign requested address\n");
    EXPECT_FALSE(registered());
}

TEST(StartUp, AnyOtherTextUnregistersFirst) {
    Gateway gateway;
    look_rarely(gateway);
    EXPECT_EQ(run("wlan-configd", {"--help-me"}).status, 1);
    EXPECT_FALSE(registered());
}

TEST(StartUp, RefusesAnEnvironmentThatIsWrongBeforeItUnregisters) {
    Gateway gateway;
    look_rarely(gateway);
    const std::string port = "WLAN_CONFIGD_PORT is not a port from 1 to 65535: ",
                      peers = "WLAN_CONFIGD_PEERS has a word that is no IPv4 address or network: ";
    for (const auto &[variable, message] : {std::pair{"WLAN_CONFIGD_PORT=", port},
                                            {"WLAN_CONFIGD_PORT=0", port + "0"},
                                            {"WLAN_CONFIGD_PORT=65536", port + "65536"},
                                            {"WLAN_CONFIGD_PORT=70\t", port + "70\\x09"},
                                            {"WLAN_CONFIGD_PEERS=10.0.0.1,lan", peers + "'lan'"}}) {
        const Outcome ended = run("wlan-configd", {"127.0.0.1"}, {variable});
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.out + ended.err, message + '\n');
        EXPECT_TRUE(registered());
    }
}

// Also of one that has forgotten everything, and of an entry that somebody has taken out.
TEST(StartUp, NeedsThePortmapperAndComesBackWithIt) {
    Gateway gateway;
    ASSERT_EQ(std::system("kill $(pidof rpcbind) && while pidof rpcbind; do sleep 0.02; done >/dev/null"), 0);
    const std::string away =
        "[ZAV-API] Error watch_registration the portmapper is away, clients do not find the daemon.\n";
    EXPECT_TRUE(await([&] { return read_file(gateway.path("err")) == away; }));
    const Outcome ended = run("wlan-configd", {"127.0.0.1"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_TRUE(
        ended.err.ends_with("unable to register (WLAN_CONFIG_RPC_PROG, WLAN_CONFIG_API_VERSION, udp)."))
        << ended.err;
    ASSERT_EQ(std::system("rpcbind; until rpcinfo -p 127.0.0.1 >/dev/null 2>&1; do sleep 0.02; done"), 0);
    EXPECT_TRUE(await(registered));
    ASSERT_EQ(std::system("rpcinfo -d 538054928 1"), 0);
    EXPECT_TRUE(await(registered));
    EXPECT_EQ(read_file(gateway.path("err")),
              away + "[ZAV-API] Error watch_registration the portmapper is back.\n");
}

void check_descriptors(pid_t daemon) {
    const std::string process = "/proc/" + std::to_string(daemon);
    for (const auto &entry : std::filesystem::directory_iterator(process + "/fdinfo")) {
        if (std::stoi(entry.path().filename()) <= 2)
            continue;
        const std::string info = read_file(entry.path());
        const auto flags = std::stoul(info.substr(info.find("flags:") + 6), nullptr, 8);
        EXPECT_TRUE(flags & 02000000) << entry.path() << '\n' << info;
    }
}

TEST(StartUp, AnswersQuietlyAndKeepsItsDescriptorsFromScripts) {
    for (const std::string form : {"", "0.0.0.0", "127.0.0.1"}) {
        Gateway gateway(form.empty() ? std::vector<std::string>{} : std::vector{form});
        // The client hears only the address that it asked.
        EXPECT_TRUE(Client(gateway.port(), form == "127.0.0.1" ? "127.0.0.1" : "127.0.0.9").answers());
        std::string told;
        for (const char *line : {"WLAN RPC Server IP addr ", "WLAN RPC server bind successfully to "})
            told.append(form.empty() ? "" : line + form + '\n');
        EXPECT_EQ(read_file(gateway.path("out")), told);
        EXPECT_EQ(read_file(gateway.path("err")), "");
        check_descriptors(gateway.daemon().id());
    }
}

// The parent leaves no standard descriptors, nobody who reads, no ends of children, no room in a file.
TEST(StartUp, StandsWhatItInherits) {
    const std::string name = xdr_text(std::string(600, 'n'));
    const std::tuple<const char *, std::uint32_t, std::string, int> rows[] = {
        {"exec \"$@\" <&- >&- 2>&-", load, word(245), 0},
        {"mkfifo /tmp/unread; exec \"$@\" 3<>/tmp/unread >/tmp/unread 3<&-", load, word(245), 0},
        {"exec env --ignore-signal=CHLD \"$@\"", reset, "", 0},
        {"ulimit -f 1; exec \"$@\"", set_ssid, word(1) + name, -1},
    };
    for (const auto &[start, procedure, arguments, code] : rows) {
        SCOPED_TRACE(start);
        Gateway gateway({"127.0.0.1"}, {}, start);
        const std::string descriptors = "/proc/" + std::to_string(gateway.daemon().id()) + "/fd/";
        for (const char *standard : {"0", "1", "2"})
            EXPECT_FALSE(
                std::filesystem::read_symlink(descriptors + standard).string().starts_with("socket"));
        EXPECT_EQ(gateway.call(procedure, arguments), word(static_cast<std::uint32_t>(code)));
        EXPECT_TRUE(gateway.answers());
    }
}

// A path so long needs more than the heap has left; so does the simulation, where a thread first sleeps.
TEST(StartUp, EndsWhenThereIsNoMemory) {
    if (may_grow > 50)
        GTEST_SKIP() << "a sanitizer needs address space itself";
    Gateway gateway({"127.0.0.1"}, {"zav_cfg_dir=/" + std::string(120'000, 'x')});
    ASSERT_TRUE(await([&] { return gateway.daemon().threads_asleep() == 2; }));
    const rlimit tight{4096, 4096};
    ASSERT_EQ(prlimit(gateway.daemon().id(), RLIMIT_AS, &tight, nullptr), 0);
    gateway.call(get_ssid, word(1), nullptr, 200);
    EXPECT_EQ(gateway.daemon().ended(), 1 << 8);
    EXPECT_EQ(read_file(gateway.path("err")), "out of memory\n");
}

TEST(StartUp, TheSecondOfTwoIsTheOneThatClientsFind) {
    Gateway first;
    look_rarely(first); // but not when the second has registered: then it must leave that alone
    Process second({BINARY_DIR "/bin/wlan-configd", "127.0.0.1"}, {}, "/tmp/out2", "/tmp/err2");
    while (read_file("/tmp/out2").find("successfully") == std::string::npos)
        ASSERT_FALSE(second.ended(std::chrono::milliseconds(20)));
    write_file(first.path("sleep_ms"), "20");
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    kill(first.daemon().id(), SIGKILL);
    EXPECT_TRUE(await([] { return std::system("rpcinfo -u 127.0.0.1 538054928 1 >/dev/null 2>&1") == 0; }));
}

// The name of a file, and one that is none.
TEST(StartUp, TellsTheServiceManagerOnceItIsRegistered) {
    for (const std::string name : {"/tmp/manager", "@manager"}) {
        sockaddr_un own{AF_UNIX, {}};
        std::strcpy(own.sun_path, name.c_str());
        own.sun_path[0] = name[0] == '@' ? '\0' : '/';
        const int manager = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        const auto length = static_cast<socklen_t>(sizeof own.sun_family + name.size());
        ASSERT_EQ(bind(manager, reinterpret_cast<sockaddr *>(&own), length), 0);
        ASSERT_FALSE(registered());
        Gateway gateway({"127.0.0.1"}, {"NOTIFY_SOCKET=" + name});
        std::array<char, 16> told{};
        EXPECT_TRUE(await([&] { return recv(manager, told.data(), told.size(), MSG_DONTWAIT) == 7; }));
        EXPECT_STREQ(told.data(), "READY=1");
        EXPECT_TRUE(registered());
        // What a daemon leaves that was killed goes, what one that serves has stays.
        EXPECT_EQ(run("wlan-configd", {"--unregister"}).status, 0);
        EXPECT_TRUE(registered());
        kill(gateway.daemon().id(), SIGKILL);
        EXPECT_TRUE(gateway.daemon().ended());
        EXPECT_EQ(std::system("rpcinfo -p | grep -q 538054928"), 0);
        EXPECT_EQ(run("wlan-configd", {"--unregister"}).status, 0);
        EXPECT_NE(std::system("rpcinfo -p | grep -q 538054928"), 0);
        close(manager);
    }
}

// One that does not fit an address, nobody's, and none; it serves all the same.
TEST(StartUp, SaysWhenItCannotTellTheServiceManager) {
    for (const auto &[name, reason] : {std::pair{std::string(109, 'n'), "File name too long (36)"},
                                       {"/tmp/nobody", "No such file or directory (2)"},
                                       {"", ""}}) {
        Gateway gateway({"127.0.0.1"}, {"NOTIFY_SOCKET=" + name});
        EXPECT_TRUE(gateway.answers());
        EXPECT_EQ(read_file(gateway.path("err")),
                  name.empty() ? "" : "[ZAV-API] Error notify_ready " + name + ": " + reason + ".\n");
    }
}

TEST(Debug, LinesComeAndGoWithTheFile) {
    Gateway gateway;
    std::filesystem::remove("/tmp/wlandbg");
    const std::string quiet = read_file(gateway.path("out"));
    gateway.call(get_ssid, word(99));
    EXPECT_EQ(read_file(gateway.path("out")), quiet);
    EXPECT_EQ(read_file(gateway.path("err")), "[ZAV-API] Error wlan_getSSID failed !!!\n");
    write_file("/tmp/wlandbg", "");
    gateway.call(get_ssid, word(1));
    std::filesystem::remove("/tmp/wlandbg");
    const std::string spoken = read_file(gateway.path("out"));
    EXPECT_TRUE(spoken.ends_with("[ssid Gateway-2.4G]\n")) << spoken;
    gateway.call(get_ssid, word(1));
    EXPECT_EQ(read_file(gateway.path("out")), spoken);
}

// What fails where a write fails, and prints more than a pipe takes.
std::string printing_scripts() {
    std::filesystem::create_directory("/tmp/printing");
    write_file("/tmp/printing/restore_defaults.sh", "echo said && echo said >&2 || exit 1\n"
                                                    "head -c 100000 /dev/zero | tee /dev/stderr; exit 0\n");
    std::filesystem::permissions("/tmp/printing/restore_defaults.sh", std::filesystem::perms::all);
    return "zav_install_dir=/tmp/printing";
}

TEST(Debug, AReaderThatStallsLosesLines) {
    mkfifo("/tmp/stalled", 0600);
    const int reader = open("/tmp/stalled", O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    Gateway gateway({"127.0.0.1"}, {printing_scripts()}, "", "/tmp/stalled");
    const auto lines_of_calls = [&](int calls, std::uint32_t procedure = get_ssid) {
        for (; calls > 0 && !HasFailure(); --calls)
            EXPECT_TRUE(gateway.call(procedure, word(1)).has_value());
        std::string text(1 << 20, '\0');
        text.resize(static_cast<std::size_t>(std::max<ssize_t>(read(reader, text.data(), text.size()), 0)));
        return text;
    };
    const auto count = [](const std::string &text) { return std::count(text.begin(), text.end(), '\n'); };
    write_file("/tmp/wlandbg", "");
    lines_of_calls(1); // counts the BSSes once
    const auto lines = count(lines_of_calls(1));
    const std::string first = lines_of_calls(1000), then = lines_of_calls(1);
    std::filesystem::remove("/tmp/wlandbg");
    int lost = 0;
    EXPECT_EQ(std::sscanf(then.c_str(), "[ZAV-API] %d lines of the log are lost.\n", &lost), 1) << then;
    EXPECT_EQ(count(first) + lost, 1000 * lines);
    EXPECT_TRUE(first.ends_with('\n'));
    EXPECT_EQ(count(then), lines + 1);
    EXPECT_LT(count(lines_of_calls(3000, scan_status)), 3000) << "lines that come without debugging";
    for (const char *output : {"that fills up", "full"})
        EXPECT_EQ(gateway.call(restore_defaults, word(1)), word(0)) << output;
}

TEST(Debug, ATerminalThatStallsLosesLines) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_EQ(grantpt(terminal) + unlockpt(terminal), 0);
    Gateway gateway({"127.0.0.1"}, {printing_scripts()}, "exec \"$@\" 2>&1", ptsname(terminal));
    write_file("/tmp/wlandbg", "");
    for (int call = 0; call < 2000; ++call)
        ASSERT_TRUE(gateway.call(get_ssid, word(1))) << call;
    std::filesystem::remove("/tmp/wlandbg");
    EXPECT_EQ(gateway.call(restore_defaults, word(1)), word(0));
    std::string text;
    EXPECT_TRUE(await([&] {
        std::array<char, 4096> piece;
        const bool answers = gateway.call(get_ssid, word(99)).has_value();
        const ssize_t length = read(terminal, piece.data(), piece.size());
        text.append(piece.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
        return answers && text.find("lines of the log are lost.") != text.npos;
    }));
    for (std::size_t at = 0; (at = text.find("[ZAV-API]", at + 1)) != text.npos;)
        EXPECT_EQ(text[at - 1], '\n') << "behind a cut line: " << text.substr(at, 100);
    close(terminal);
}

TEST(Transport, NumbersWithoutAProcedureAreUnavailable) {
    Gateway gateway;
    for (std::uint32_t number = 1; number < 300; ++number) {
        std::uint32_t status = 0;
        const bool known = std::any_of(std::begin(protocol), std::end(protocol),
                                       [&](const Procedure &row) { return row.number == number; });
        if (known)
            continue;
        ASSERT_TRUE(gateway.call(number, word(1), &status)) << number;
        EXPECT_EQ(status, proc_unavailable) << number;
    }
}

TEST(Transport, ABurstIsKeptWhileACallTakesItsTime) {
    Gateway gateway;
    kill(gateway.daemon().id(), SIGSTOP);
    for (int i = 0; i < 999; ++i)
        gateway.exchange(call_header(0), 0);
    std::thread later([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        kill(gateway.daemon().id(), SIGCONT);
    });
    EXPECT_TRUE(gateway.answers()); // the thousandth
    later.join();
}

// The client hears only the address that it asked.
TEST(Transport, AFixedPortServesListedPeersAndDebugLinesTellOfTheOthers) {
    Gateway gateway({}, {"WLAN_CONFIGD_PORT=4049", "WLAN_CONFIGD_PEERS=10.0.0.1,127.1.0.0/16"});
    ASSERT_EQ(gateway.port(), 4049U);
    Client listed(4049, "127.0.0.9", "127.1.2.3");
    const std::string header = call_header(0);
    EXPECT_FALSE(gateway.exchange(header, 50));
    EXPECT_TRUE(listed.answers()); // none of them writes a line
    write_file("/tmp/wlandbg", "");
    EXPECT_FALSE(gateway.exchange(header, 50));
    for (const std::string &datagram : {std::string(39, 'x'), header.substr(0, 36) + word(4)})
        EXPECT_FALSE(listed.exchange(datagram, 50));
    EXPECT_TRUE(listed.exchange(header.substr(0, 24) + word(6) + header.substr(28), 5000));
    EXPECT_TRUE(listed.answers());
    std::filesystem::remove("/tmp/wlandbg");
    const std::string line = "[ZAV-API] receive  WLAN RPC server : [refused ", from = " bytes from 127.";
    EXPECT_EQ(std::regex_replace(read_file(gateway.path("out")), std::regex(":[0-9]+:"), ":"),
              line + "40" + from + "0.0.1: not a listed peer]\n" + line + "39" + from +
                  "1.2.3: not as long as a call]\n" + line + "40" + from +
                  "1.2.3: not a call with a whole header]\n" + line + "40" + from +
                  "1.2.3: a credential of another flavor]\n");
}

TEST(Transport, ALostReplyComesAgainAndNothingRunsTwice) {
    Gateway gateway;
    const auto log = [&] { return read_file(gateway.path("log")); };
    const std::string first = "script restore_defaults.sh ZAV750 24\n",
                      other = "script restore_defaults.sh ZAV750 5\n";
    write_file(gateway.path("faults/reply.drop"), "2");
    write_file(gateway.path("faults/reply.delay"), "30");
    write_file(gateway.path("faults/request.dup"), "");
    const std::string header = call_header(restore_defaults), request = header + word(1);
    EXPECT_FALSE(gateway.exchange(request, 10)); // twice without reply
    EXPECT_EQ(gateway.exchange(request, 5000),
              header.substr(0, 4) + word(1) + std::string(16, '\0') + word(0));
    EXPECT_EQ(log(), first);
    EXPECT_TRUE(gateway.exchange(header + word(9), 5000)); // the number alone is no repetition
    EXPECT_TRUE(await([&] { return log() == first + other; }));
    write_file(gateway.path("faults/script.restore_defaults.sh.delay"), "10100");
    for (const std::string &datagram : {call_header(restore_defaults) + word(9), request})
        gateway.exchange(datagram, 0); // the repetition is read when the other is done
    EXPECT_TRUE(gateway.exchange(call_header(0), 20000));
    EXPECT_EQ(log(), first + other + other);
}

// A filter lets none of 28 bytes out, and would let an error out.
TEST(Transport, AReplyThatCannotBeSentIsLostAndNoError) {
    Gateway gateway;
    ASSERT_EQ(std::system(
                  "nft 'table ip t { chain c { type filter hook output priority 0; ip length 56 drop; }; }'"),
              0);
    EXPECT_FALSE(gateway.exchange(call_header(set_ssid) + word(1) + xdr_text("done"), 200));
    EXPECT_EQ(std::system("nft delete table ip t"), 0);
    EXPECT_NE(settings(gateway).find("\nSSID1=done\n"), std::string::npos);
}

// A cut call must never be completed by what an earlier one left in the library's buffer.
TEST(Hostile, NoTruncationSucceedsOrTellsASecret) {
    Gateway gateway;
    write_file("/tmp/wlandbg", "");
    const std::string secret = "SECRET0SECRET1SECRET2SECRET3SEC";
    gateway.call(set_ssid, word(2) + xdr_text(secret));
    const std::string before = settings(gateway);
    const std::size_t spoken = read_file(gateway.path("out")).size();
    for (const std::string &call :
         {call_header(set_ssid) + word(1) + xdr_text(secret), call_header(get_ssid) + word(1)}) {
        for (std::size_t length = 0; length < call.size(); ++length) {
            SCOPED_TRACE(length);
            gateway.call(get_ssid, word(2)); // the reply brings the secret back into the buffer
            const auto reply =
                gateway.exchange(std::string_view(call).substr(0, length), length < 40 ? 20 : 5000);
            EXPECT_EQ(reply ? reply->substr(20) : "none", length < 40 ? "none" : word(garbage_arguments));
        }
    }
    std::filesystem::remove("/tmp/wlandbg");
    EXPECT_EQ(settings(gateway), before);
    const std::string out = read_file(gateway.path("out")).substr(spoken);
    EXPECT_EQ(out.find("wlan_set_ssid"), std::string::npos);
}

TEST(Hostile, HeadersThatLieAreDroppedAndOtherCredentialsDenied) {
    Gateway gateway;
    const auto header = [](std::uint32_t flavor, std::uint32_t credential, std::uint32_t verifier) {
        return call_header(0).substr(0, 24) + word(flavor) + word(credential) + word(0) + word(verifier);
    };
    for (const std::string &datagram :
         {header(1, 400, 0), header(0, 8, 0), header(0, 0, 4), header(0, 0, 0xFFFFFFFF),
          header(0, 0xFFFFFFFD, 0), header(0, 401, 0) + std::string(404, '\0'),
          header(0, 0, 401) + std::string(404, '\0'), header(0, 0, 0) + std::string(8761, '\0')})
        EXPECT_FALSE(gateway.exchange(datagram, 50)) << datagram.size();
    EXPECT_TRUE(gateway.exchange(header(0, 400, 0) + std::string(400, '\0'), 5000));
    EXPECT_TRUE(gateway.exchange(header(0, 0, 0) + std::string(8760, '\0'), 5000));
    for (const std::uint32_t flavor : {2U, 3U, 6U, 0xFFFFFFFFU}) // denied: the credential is rejected
        EXPECT_EQ(gateway.exchange(header(flavor, 0, 0), 5000).value_or("").substr(4),
                  word(1) + word(1) + word(1) + word(2));
}

TEST(Hostile, AnnouncedLengthsAreNotBelieved) {
    Gateway gateway;
    std::vector<std::uint32_t> lengths;
    for (unsigned k = 3; k < 32; ++k)
        lengths.push_back(1U << k);
    for (std::uint32_t low = 0xFFFFFFF0; low != 0; ++low)
        lengths.push_back(low);
    const std::string before = settings(gateway);
    for (const std::uint32_t length : lengths) {
        std::uint32_t status = 0;
        ASSERT_TRUE(gateway.call(set_ssid, word(1) + word(length) + "abcd", &status));
        EXPECT_EQ(status, garbage_arguments) << length;
    }
    EXPECT_EQ(settings(gateway), before);
}

TEST(Hostile, LongTextsAreStoredOrRefusedWhole) {
    Gateway gateway;
    const std::string text(8000, 'x');
    const auto limit_files = [&](rlim_t longest) {
        const rlimit limit{longest, RLIM_INFINITY};
        prlimit(gateway.daemon().id(), RLIMIT_FSIZE, &limit, nullptr);
    };
    limit_files(4096);
    EXPECT_EQ(gateway.call(set_max_bitrate, word(1) + xdr_text(text)), word(0xFFFFFFFF)); // and goes on
    limit_files(RLIM_INFINITY);
    EXPECT_EQ(gateway.call(set_max_bitrate, word(1) + xdr_text(text)), word(0));
    EXPECT_NE(settings(gateway).find("\nMaxBitRate=" + text + "\n"), std::string::npos);
    const std::string before = settings(gateway);
    EXPECT_EQ(gateway.call(set_ssid, word(1) + xdr_text(text)), word(0xFFFFFFFF)); // would pass 16384 bytes
    EXPECT_EQ(settings(gateway), before);
}

long resident_pages(pid_t process) {
    std::ifstream statm("/proc/" + std::to_string(process) + "/statm");
    long size = 0, resident = 0;
    statm >> size >> resident;
    return resident;
}

// Not the actions that run the host's scripts; one whose replies are kept is among them.
constexpr std::uint32_t harmless[] = {4,  7,  11, 12, 13, 14,  21,  42,  49,
                                      51, 52, 54, 66, 70, 120, 160, 166, 174};

std::string random_datagram(std::mt19937 &random) {
    std::string datagram;
    switch (random() % 3) {
    case 0: // noise
        datagram.resize(random() % (random() % 50 == 0 ? 9000 : 120));
        break;
    case 1: // a harmless call with noise behind its header
        datagram = call_header(harmless[random() % std::size(harmless)]) + word(0x80000000);
        datagram.resize(44 + random() % 40);
        return datagram;
    default: // a call with one word of its header replaced, and no whole arguments
        datagram = call_header(set_ssid) + word(1) + word(static_cast<std::uint32_t>(random()) | 0x10000);
        datagram.replace(4 * (random() % 10), 4, word(static_cast<std::uint32_t>(random())));
        return datagram;
    }
    std::generate(datagram.begin(), datagram.end(), [&] { return static_cast<char>(random()); });
    return datagram;
}

TEST(Hostile, RandomDatagramsChangeNothing) {
    Gateway gateway;
    std::mt19937 random(20121110);
    const std::string before = settings(gateway);
    const char *more = std::getenv("HOSTILE_DATAGRAMS"); // a million, for an hour that has time for them
    const int hostile_datagrams = more == nullptr ? 50'000 : std::atoi(more);
    long resident = 0;
    for (int i = 0; i < hostile_datagrams; ++i) {
        gateway.exchange(random_datagram(random), 0);
        if (i % 100 == 0) {
            ASSERT_TRUE(gateway.answers()) << i;
        }
        if (i == hostile_datagrams / 10)
            resident = resident_pages(gateway.daemon().id());
    }
    EXPECT_EQ(settings(gateway), before);
    EXPECT_LE(resident_pages(gateway.daemon().id()), resident + may_grow);
}

} // namespace
