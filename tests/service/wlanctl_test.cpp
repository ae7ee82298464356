#include "service/golden.h"

#include <arpa/inet.h>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <regex>
#include <rpc/pmap_clnt.h>
#include <rpc/rpc.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

struct Row {
    std::vector<std::string> words;
    int status;
    std::string out, err{}; // the one whole, the other in part
};

void play(const std::vector<Row> &rows) {
    for (const Row &row : rows) {
        const Outcome ran = run("wlanctl", row.words);
        EXPECT_EQ(ran.status, row.status) << testing::PrintToString(row.words) << ran.err;
        const bool explained = row.out.ends_with("[{");
        EXPECT_EQ(explained ? ran.out.substr(0, row.out.size()) : ran.out, row.out);
        EXPECT_NE(ran.err.find(row.err), std::string::npos) << ran.err;
    }
}

// As a shell tells it, and at once.
int how_it_ended(Process &process) {
    const auto status = process.ended(std::chrono::seconds(2));
    if (!status)
        return -1;
    return WIFSIGNALED(*status) ? 128 + WTERMSIG(*status) : WEXITSTATUS(*status);
}

std::string json(const std::string &procedure, const std::string &status, const std::string &answer) {
    if (answer.starts_with('-')) // the causes follow
        return R"({"error":{"kind":")" + status + R"(","message":")" + procedure +
               ": the daemon answered failure (" + answer + R"x()","procedure":")x" + procedure +
               R"(","code":)" + answer + R"(,"causes":[{)";
    return R"({"procedure":")" + procedure + R"(","status":")" + status + R"(","code":)" + answer + "}\n";
}

// Its standard error, as a terminal.
std::string run_on_terminal(const std::string &words, int status = 0) {
    const std::string command =
        "script -qec '" BINARY_DIR "/bin/wlanctl " + words + "' /dev/null </dev/null >/tmp/up.out";
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), status);
    return read_file("/tmp/up.out");
}

TEST(Wlanctl, SpeaksForPeopleAndPrograms) {
    Gateway gateway;
    make_afresh();
    write_file("/tmp/name", "from a file\n");
    gateway.call(22, word(3) + xdr_text("\x1b[31m\xff\xc2\x9b"));
    play({
        {{"get", "ssid", "2"}, 0, "ssid: Gateway-2.4G-2\n"},
        {{"-r", "get", "ssid", "zvi01"}, 0, "Gateway-2.4G-2\n"},
        {{"set", "ssid", "zv00", "My Net"}, 0, "stored; acts at the next restart (wlanctl restart zv00)\n"},
        {{"set", "ssid", "9", "My Net"}, 0, "unchanged\n"},
        {{"--json", "set", "ssid", "9", "@/tmp/name"},
         0,
         R"({"procedure":"wlan_set_ssid","status":"done","code":0,"index":9,"interface":"zv00",)"
         R"("acts":"at the next restart","by":"wlanctl restart zv00"})"
         "\n"},
        {{"get", "ssid", "9", "--json"},
         0,
         R"({"procedure":"wlan_get_ssid","status":"done","code":0,"index":9,"interface":"zv00","value":"from a file"})"
         "\n"},
        {{"get", "ssid", "3"}, 0, "ssid: \\x1b[31m\\xff\\xc2\\x9b\n"},
        {{"call", "wlan_get_ssid", "--force", "-1"}, 1, "", "-1"},
        {{"set", "wps_model_name", "1", "x"}, 1, "", "wlan_set_wps_model_name"},
        {{"set", "wps_model_name", "1", "x", "--dry-run"}, 0, "wlan_set_wps_model_name index=1 value='x'\n"},
        {{"--json", "set", "ssid", "1", "\xff", "--dry-run"},
         0,
         R"({"procedure":"wlan_set_ssid","status":"not sent","arguments":{"index":1,"value":"�","value_hex":"ff"}})"
         "\n"},
        {{"get", "ssid"}, 2, "", "index"},
        {{"get", "ssid", "2147483648"}, 2, "", "index"},
        {{"get", "ssid", "zvi99"}, 2, "", "zvi99"},
        {{"get", "sid", "1"}, 2, "", "ssid"},
        {{"set", "radio_enabled", "1", "maybe"}, 2, "", "bool"},
        {{"set", "ssid", "1", "@/tmp/none"}, 2, "", "/tmp/none"},
        {{"set", "ssid", "1", "@/dev/zero"}, 2, "", "/dev/zero has more than "},
        {{"--port", "9", "get", "ssid", "1"}, 4, "", "refused"},
    });
    for (const char *command :
         {"restart", "describe", "diff", "import", "restore-defaults", "wps-oob", "batch", "up", "export"})
        play({{{command, ""}, 2, "", " is empty"}});
    const Outcome hostile = run("wlanctl", {"--json", "get", "ssid", "3"});
    EXPECT_EQ(nlohmann::json::parse(hostile.out).at("value_hex"), "1b5b33316dffc29b");
    kill(gateway.daemon().id(), SIGSTOP);
    play({{{"--timeout", "0.2", "get", "ssid", "2"}, 3, "", "no reply"}});
}

TEST(Wlanctl, ChecksValuesBeforeTheyAreSent) {
    Gateway gateway;
    const std::string sent = "; --force sends it all the same\n";
    play({
        {{"set", "channel", "zv00", "4294967295"}, 2, "", "channel number: 0 to 177" + sent},
        {{"set", "beacon_interval", "1", "0"}, 2, "", ": 20 to 1000 time units of 1024 us" + sent},
        {{"set", "radius_server_port", "1", "0"}, 2, "", "UDP port of the server: 1 to 65535" + sent},
        {{"set", "transmit_power", "1", "101"}, 2, "", "highest: 0 to 100 %" + sent},
        {{"set", "radius_server_address", "1", "999.0.0.1"}, 2, "", "no host names, no IPv6" + sent},
        {{"set", "ssid", "1", std::string(33, 'x')}, 2, "", ": 1 to 32 bytes" + sent},
        {{"set", "transmit_power", "1", "101", "--force"},
         0,
         "stored; acts when the driver comes up (wlanctl up)\n"},
        {{"set", "radius_server_address", "1", "999.0.0", "--force"}, 1, "", "(-1)\n"},
    });
    EXPECT_EQ(WEXITSTATUS(std::system(": | " BINARY_DIR "/bin/wlanctl set ssid 1 - 2>/tmp/err")), 2);
    EXPECT_NE(read_file("/tmp/err").find("'value': standard input is empty" + sent), std::string::npos);
}

TEST(Wlanctl, ResetsOnATerminalOnlyWithConsentAndTellsWhat) {
    Gateway gateway;
    const std::string all = "all settings of the radio and of all its BSSes to those of the factory";
    EXPECT_EQ(run_on_terminal("restore-defaults 1", 2),
              "wlanctl: wlan_set_restore_defaults resets " + all + "; --yes does it\r\n");
    EXPECT_NE(run_on_terminal("wps-oob 1", 2).find("resets WPS of the radio, and SSID,"), std::string::npos);
    EXPECT_EQ(gateway.count("log", "script"), 0);
    EXPECT_TRUE(run_on_terminal("restore-defaults 1 --yes").ends_with("; reset: " + all + "\r\n"));
    EXPECT_EQ(gateway.count("log", "script restore_defaults.sh ZAV750 24"), 1);
}

TEST(Wlanctl, AsksForNamesOnceInABatch) {
    Gateway gateway;
    std::string lines;
    for (int i = 0; i < 10; ++i)
        lines += "get ssid zvi01\nset channel zv00 " + std::to_string(36 + i % 2 * 4) + "\n";
    write_file("/tmp/commands", lines);
    write_file("/tmp/wlandbg", ""); // the daemon writes a line a request
    EXPECT_EQ(run("wlanctl", {"batch", "/tmp/commands"}).status, 0);
    std::filesystem::remove("/tmp/wlandbg");
    for (const auto &[name, times] : {std::pair{"SSID", 10}, {"NumberOfEntries", 1}, {"Name", 16}})
        EXPECT_EQ(gateway.count("out", std::string("wlan_get") + name + " entry"), times) << name;
}

// The daemon would answer a second send from the replies that it keeps.
TEST(Wlanctl, SendsAgainWhatDoesNoHarmAlone) {
    Gateway gateway;
    const std::string unknown = "(1.6 s); whether it was done is not known, and it is not sent again; ",
                      look = "look with: wlanctl get wps_result_status 2\n", nothing = "no command shows";
    for (const Row &row :
         {Row{{"get", "ssid", "2"}, 0, "ssid: Gateway-2.4G-2\n"},
          Row{{"set", "wps_pushbutton", "2"}, 3, "", unknown + look},
          Row{{"call", "associate_vlan", "00:00:5E:00:53:20", "7"}, 3, "", unknown + nothing}}) {
        gateway.fault("reply.drop", "1");
        play({{join(row.words, {"--timeout", "1.6", "--force"}), row.status, row.out, row.err}});
    }
}

TEST(Wlanctl, ScansAndWaitsForTheEnd) {
    Gateway gateway;
    make_afresh();
    play({
        {{"scan", "1"}, 1, "", "wlan_ap_scan: the daemon answered failure"}, // no driver yet
        {{"scan", "1", "--columns", "ssid,typo"}, 2, "", "no column 'typo'; there are bssid, "},
        {{"up"}, 0, "done\n"},
        {{"scan", "zvi07"},
         0,
         "BSSID\tSSID\tCHANNEL\tNETWORK TYPE\tSECURITY\tSTANDARDS\tSIGNAL (dBm)\n"
         "00:00:5E:00:53:C1\tCafe\t1\tESS\tWPA2\t11bgn\t-40\n"
         "00:00:5E:00:53:C2\tNeighbour upstairs\t6\tESS\tWPA2\t11bgn\t-63\n"
         "00:00:5E:00:53:C3\t\t11\tESS\tWPA2\t11bgn\t-80\n"},
        {{"scan", "99", "--force"}, 1, "", "wlan_ap_scan"},
        {{"scan"}, 2, "", "INDEX"},
        {{"scan", "zvi99"}, 2, "", "zvi99"},
    });
    const Outcome hostile = run("wlanctl", {"--json", "scan", "9"});
    const auto answer = nlohmann::json::parse(hostile.out);
    EXPECT_EQ(answer.at("/value/count"_json_pointer), 2);
    EXPECT_EQ(answer.at("/value/entries/1/ssid"_json_pointer), "Office\t\x1b[31m");
    EXPECT_EQ(hostile.out.find('\x1b'), std::string::npos);
    gateway.fault("survey.zv00.fail", "5");
    gateway.fault("survey.zvi00.delay", "5000");
    play(
        {{{"scan", "9"}, 1, "", "the scan failed"},
         {{"--json", "scan", "9"},
          1,
          R"({"error":{"kind":"failed","message":"the scan failed","procedure":null,"code":null,"causes":[]}})"
          "\n"}});
    Process waiting({BINARY_DIR "/bin/wlanctl", "scan", "1"}, {}, "/tmp/wait.out", "/tmp/wait.err");
    EXPECT_TRUE(await([&] { return gateway.count("log", "survey zvi00") == 1; }));
    play({{{"scan", "2"}, 1, "", "scanned already"}});
    kill(waiting.id(), SIGINT);
    EXPECT_EQ(how_it_ended(waiting), 130);
    EXPECT_EQ(read_file("/tmp/wait.err"), "wlanctl: no longer waiting; the scan goes on\n");
}

TEST(Wlanctl, ShowsStationsAndCounters) {
    Gateway gateway;
    make_afresh();
    const Row no_stations{{"stations", "1"}, 1, "", "wlan_get_assoc_devices_table: the daemon answered"};
    const Row no_basic_stats{{"stats", "1"}, 1, "", "wlan_get_basic_stats: the daemon answered"};
    play({
        no_stations, // no driver yet
        {{"--json", "stations", "9"}, 1, json("wlan_get_assoc_devices_table", "failed", "-1")},
        no_basic_stats,
        {{"up"}, 0, "done\n"},
        {{"--no-header", "stations", "zvi01"}, // of the whole radio
         0,
         "zvi00\t00:00:5E:00:53:A1\t\t-50\tstation-1\t3\t0000000000000011\t00-50-f2;00-10-18\n"
         "zvi01\t00:00:5E:00:53:A2\t\t-61\tstation-2\t3\t0000000000000011\t\n"
         "zvi00\t00:00:5E:00:53:A3\t\t-72\tstation-3\t3\t0000000000000011\t\n"},
        {{"stats", "1"},
         0,
         "bytes_sent: 120000 bytes\nbytes_received: 110000 bytes\npackets_sent: 1200 packets\n"
         "packets_received: 1100 packets\nassociations: 2 stations\nerrors_sent: 24005 errors\n"
         "errors_received: 24006 errors\nunicast_packets_sent: 24001 packets\n"
         "unicast_packets_received: 24002 packets\ndiscard_packets_sent: 24007 packets\n"
         "discard_packets_received: 24008 packets\nmulticast_packets_sent: 24009 packets\n"
         "multicast_packets_received: 24010 packets\nbroadcast_packets_sent: 24011 packets\n"
         "broadcast_packets_received: 24012 packets\n"
         "unknown_protocol_packets_received: 24013 packets\n"},
        {{"-r", "stats", "zv02"},
         0,
         "120002\n110002\n1202\n1102\n1\n5005\n5006\n5001\n5002\n5007\n5008\n5009\n5010\n5011\n5012\n5013\n"},
        {{"stats", "17"}, 2, "", "17 is not 1 to 16"},
        {{"call", "get_assoc_device", "1", "2"}, 1, "", "wlan_get_assoc_device: the daemon answered"},
        {{"stations"}, 2, "", "INDEX"},
        {{"stats", "zvi99"}, 2, "", "zvi99"},
    });
    const auto value = [](const std::vector<std::string> &words) {
        return nlohmann::json::parse(run("wlanctl", join({"--json"}, words)).out).at("value");
    };
    const nlohmann::json station = value({"stations", "9"}).at("/devices/1"_json_pointer);
    EXPECT_EQ(station.at("mac_address").get<std::string>() + station.at("interface").get<std::string>(),
              "00:00:5E:00:53:B2zv02");
    EXPECT_EQ(value({"stats", "9"}).at("unknown_protocol_packets_received"), 5013);
    const nlohmann::json second = value({"get", "assoc_device", "1", "1"}); // of the BSS
    EXPECT_EQ(second.at("mac_address"), "00:00:5E:00:53:A3");
    EXPECT_EQ(second.at("rssi"), -69);
    write_file(gateway.path("24g/stations"), "");
    play({{{"stations", "1", "--columns", "rssi,MAC"}, 0, "RSSI (dBm)\tMAC\n"},
          {{"stations", "1", "--columns", "mac,ip,speed"},
           2,
           "",
           "no column 'speed'; there are interface, mac, ip, "}});
    gateway.fault("show.zvi00.pkt_counters.fail", "5");
    play({{{"stats", "1"}, 1, "", "wlan_get_stats: the daemon answered"},
          {{"--json", "stats", "1"}, 1, json("wlan_get_stats", "failed", "-1")}});
    gateway.fault("stations.fail", "5");
    play({no_stations, no_basic_stats});
}

int open_server(unsigned *ret_port) {
    const int server = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{AF_INET, 0, {htonl(INADDR_LOOPBACK)}, {}};
    socklen_t length = sizeof address;
    auto *const name = reinterpret_cast<sockaddr *>(&address);
    EXPECT_EQ(bind(server, name, length), 0);
    EXPECT_EQ(getsockname(server, name, &length), 0);
    const timeval patience{10, 0};
    EXPECT_EQ(setsockopt(server, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience), 0);
    *ret_port = ntohs(address.sin_port);
    return server;
}

// Answers one call: first under a number that is not the call's, then with the body.
void answer_once(int server, const std::string &body) {
    sockaddr_in from{};
    socklen_t length = sizeof from;
    auto *const client = reinterpret_cast<sockaddr *>(&from);
    std::string number(4, '~');
    if (recvfrom(server, number.data(), number.size(), 0, client, &length) < 0)
        return;
    const std::string accepted = word(1) + word(0) + word(0) + word(0) + word(0);
    const std::string wrong = word(~0U) + accepted + data_reply(0, {99, 99}, std::string("wrong\0", 6));
    const std::string right = number + accepted + body;
    sendto(server, wrong.data(), wrong.size(), 0, client, length);
    sendto(server, right.data(), right.size(), 0, client, length);
}

TEST(Wlanctl, TakesAWholeReplyToItsOwnCall) {
    Gateway registered; // so that the portmapper names another port
    unsigned own_port = 0;
    const int server = open_server(&own_port);
    const std::vector<std::string> port{"--port", std::to_string(own_port), "--timeout", "2"};
    const char lacking[] = "the reply of the daemon lacks the value";
    const std::pair<std::string, Row> rows[] = {
        {data_reply(0, {}, std::string("right\0", 6)), {{"get", "ssid", "1"}, 0, "ssid: right\n"}},
        {data_reply(0, {}, ""), {{"get", "ssid", "1"}, 5, "", lacking}},
        {data_reply(0, {}, ""), {{"get", "number_of_entries"}, 5, "", lacking}},
        {data_reply(0, {1, 2, 3, 4}, ""), {{"get", "basic_stats", "1"}, 5, "", lacking}},
        {data_reply(0, {}, std::string(235, '\0')), {{"get", "assoc_device", "1", "1"}, 5, "", lacking}},
        {data_reply(0, {}, std::string(237, '\0')), {{"get", "assoc_device", "1", "1"}, 5, "", lacking}},
    };
    for (const auto &[body, row] : rows) {
        const std::jthread daemon(answer_once, server, body);
        play({{join(port, join(row.words, {"--force"})), row.status, row.out, row.err}});
    }
    play({{join(port, {"get", "ssid", "1", "--force"}), 3, "",
           "no reply from the daemon of 127.0.0.1 in time (2 s)"}});
    close(server);
}

bool move_daemon(unsigned port) {
    pmap_unset(0x20121110, 1);
    return pmap_set(0x20121110, 1, IPPROTO_UDP, static_cast<u_short>(port)) != 0;
}

// A call that is lost because the daemon has begun anew at another port.
TEST(Wlanctl, AsksAgainAtAnotherPortOnlyWhatMayBeRepeated) {
    const Gateway gateway;
    const std::string unknown =
        "no reply from the daemon of 127.0.0.1 in time (0.5 s); whether it was done is not "
        "known, and it is not sent again; look with: wlanctl status\n";
    for (const Row &row :
         {Row{{"get", "ssid", "1"}, 0, "ssid: Gateway-2.4G\n"}, Row{{"restart", "1"}, 3, "", unknown}}) {
        unsigned old_port = 0;
        const int server = open_server(&old_port);
        ASSERT_TRUE(move_daemon(old_port));
        const std::jthread moving([&] {
            char byte = 0;
            EXPECT_EQ(recv(server, &byte, sizeof byte, 0), 1);
            EXPECT_TRUE(move_daemon(gateway.port()));
        });
        play({{join(row.words, {"--timeout", "0.5", "--force"}), row.status, row.out, row.err}});
        close(server);
    }
}

TEST(Wlanctl, SaysThatNoDaemonIsRegistered) {
    { Gateway gone; }
    ASSERT_EQ(std::system("rpcinfo -d 538054928 1"), 0);
    play({{{"get", "ssid", "1"}, 4, "", "not running"}});
}

const std::string log_file = "/tmp/gateway/log", script_fault = "/tmp/gateway/faults/script.zv_host.sh.";

TEST(Wlanctl, BringsTheDriverUpAndDown) {
    Gateway gateway;
    const Row down{{"down"}, 0, "done\n"};
    play({
        {{"--json", "restart", "zv01"},
         0,
         json("wlan_restart", "done", R"(0,"index":10,"interface":"zv01")")},
        {{"restart", "zv99"}, 2, "", "zv99"},
        {{"restart"}, 2, "", "INDEX"},
        {{"up", "2.4"}, 2, "", "'2.4' is not dual, 24 or 5"},
        {{"up", "24", "5"}, 2, "", "too much"},
        {{"up", "24"}, 0, "done\n"},
        down,
        {{"up", "5"}, 0, "done\n"},
        {{"--json", "down"}, 0, json("wlan_reset", "done", "0")},
        {{"up"}, 0, "done\n"},
        {{"up", "dual"}, 0, "done\n"}, // it is up already
        {{"--json", "up"}, 0, json("wlan_init", "done", "0")},
        {{"up", "5"}, 1, "", "2.4 GHz and 5 GHz are up; wlanctl down first"},
        {{"restart", "77"}, 2, "", "77 is not 1 to 16"},
        {{"restart", "all"}, 0, "restart of the 2.4 GHz and 5 GHz radios asked for\n"},
    });
    const std::regex lines(
        "load 24g\n[^]*init 24g\n[^]*load 5g\n[^]*init 5g\n[^]*load dual\n[^]*init dual\n[^]*"
        "restart_interfaces 24g\n[^]*restart_interfaces 5g\nset zv00 WscConfMode=0\n");
    EXPECT_TRUE(await([&] { return std::regex_search(read_file(log_file), lines); })) << read_file(log_file);
    for (const char *verb : {"load", "init", "removevlans"})
        write_file(script_fault + verb + ".fail", "1");
    play({{{"down"}, 1, "", "wlan_reset: the daemon answered failure"},
          {{"--json", "down"}, 1, json("wlan_reset", "failed", "-1")}});
    std::filesystem::remove(script_fault + "removevlans.fail");
    play({down,
          {{"up"}, 1, "", "wlan_load: the daemon answered failure"},
          {{"--json", "up"}, 1, json("wlan_load", "failed", "-1")}});
    std::filesystem::remove(script_fault + "load.fail");
    play({{{"up"}, 1, "", "wlanctl down, then wlanctl up"},
          {{"--json", "up"}, 1, json("wlan_init", "failed", "-1")}});
}

TEST(Wlanctl, StopsWaitingAtCtrlCAndTheInitGoesOn) {
    Gateway gateway;
    write_file(script_fault + "init.delay", "5000");
    const std::string wlanctl = BINARY_DIR "/bin/wlanctl";
    Process waiting({wlanctl, "up"}, {}, "/tmp/up.out", "/tmp/up.err");
    ASSERT_TRUE(await([&] { return gateway.count("log", "init dual") == 1; }));
    kill(waiting.id(), SIGINT);
    EXPECT_EQ(how_it_ended(waiting), 130);
    EXPECT_EQ(read_file("/tmp/up.err"), "wlanctl: no longer waiting; the initialisation goes on\n");
    write_file("/tmp/wlandbg", "");
    Process deaf({"/bin/sh", "-c", "trap '' INT; exec " + wlanctl + " --timeout 1 up"}, {}, "/tmp/deaf.out",
                 "/tmp/deaf.err");
    EXPECT_TRUE(await([&] { return gateway.count("out", "wlan_init wlan init - still processing") > 0; }));
    std::filesystem::remove("/tmp/wlandbg");
    kill(deaf.id(), SIGINT);
    kill(gateway.daemon().id(), SIGSTOP); // its polls are not answered in time
    std::this_thread::sleep_for(std::chrono::milliseconds(1500));
    kill(gateway.daemon().id(), SIGCONT);
    // The next one waits for the same init, on a terminal with a line that lives.
    const std::string seen = run_on_terminal("up");
    EXPECT_NE(seen.find("\rinitialising ... 0 s\x1b[K\rinitialising"), std::string::npos) << seen;
    EXPECT_NE(seen.find(" 1 s\x1b[K"), std::string::npos) << seen;
    EXPECT_TRUE(seen.ends_with(" s\x1b[K\r\x1b[Kdone\r\n")) << seen;
    EXPECT_EQ(how_it_ended(deaf), 0);
    EXPECT_EQ(read_file("/tmp/deaf.out") + read_file("/tmp/deaf.err"), "done\n");
    EXPECT_EQ(gateway.count("log", "init dual"), 1);
}

TEST(Wlanctl, WaitsForSlowScripts) {
    Gateway gateway;
    for (const char *verb : {"load", "stop"}) // longer than other calls may take
        write_file(script_fault + verb + ".delay", "5300");
    const std::string seen = run_on_terminal("up 24");
    EXPECT_NE(seen.find("\rloading ... 5 s\x1b[K\r\x1b[K"), std::string::npos) << seen;
    EXPECT_TRUE(seen.ends_with("done\r\n")) << seen;
    play({{{"down"}, 0, "done\n"}});
}

// Whether the process is wlanctl by now and sleeps, with its own handler of Ctrl-C where it is to have one.
bool waits(pid_t process, bool with_handler) {
    const std::string status = read_file("/proc/" + std::to_string(process) + "/status");
    const std::size_t caught = status.find("SigCgt:");
    return caught != status.npos && status.starts_with("Name:\twlanctl\n") &&
           status.find("State:\tS") != status.npos &&
           (std::stoull(status.substr(caught + 7), nullptr, 16) >> (SIGINT - 1) & 1) ==
               (with_handler ? 1U : 0U);
}

TEST(Wlanctl, EndsAtCtrlCThoughTheDaemonIsSilent) {
    Gateway gateway;
    kill(gateway.daemon().id(), SIGSTOP);
    play({{{"--timeout", "0.2", "down"},
           3,
           "",
           "wlan_reset: no reply from the daemon of 127.0.0.1 in time (0.2 s)"}});
    const std::string load = "no longer waiting; the driver was not touched";
    const std::string stop = "no longer waiting; the stop goes on",
                      scan = "no longer waiting; the scan goes on";
    const auto object = [](const std::string &message, const std::string &procedure) {
        return R"({"error":{"kind":"interrupted","message":")" + message + R"(","procedure":")" + procedure +
               R"(","code":null,"causes":[]}})" + "\n";
    };
    const Row rows[] = {
        {{"get", "ssid", "1"}, 128 + SIGINT, ""},
        {{"up"}, 130, "", "wlanctl: " + load + "\n"},
        {{"--json", "up"}, 130, object(load, "wlan_load"), "wlanctl: " + load + "\n"},
        {{"--json", "down"}, 130, object(stop, "wlan_reset"), "wlanctl: " + stop + "\n"},
        {{"--json", "scan", "1", "--force"}, 130, object(scan, "wlan_ap_scan"), "wlanctl: " + scan + "\n"},
    };
    for (const Row &row : rows) {
        Process waiting(join({BINARY_DIR "/bin/wlanctl"}, row.words), {}, "/tmp/up.out", "/tmp/up.err");
        EXPECT_TRUE(await([&] { return waits(waiting.id(), row.words.front() != "get"); }));
        kill(waiting.id(), SIGINT);
        EXPECT_EQ(how_it_ended(waiting), row.status) << testing::PrintToString(row.words);
        EXPECT_EQ(read_file("/tmp/up.out"), row.out);
        EXPECT_EQ(read_file("/tmp/up.err"), row.err);
    }
}

} // namespace
