#include "service/golden.h"

#include "rpc/protocol.h"

#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>
#include <sys/wait.h>

namespace {

struct Outcome {
    int status;
    std::string out, err;
};

Outcome run(const std::string &program, const std::vector<std::string> &arguments) {
    std::filesystem::remove("/tmp/run.out");
    std::filesystem::remove("/tmp/run.err");
    std::vector<std::string> command{BINARY_DIR "/bin/" + program};
    command.insert(command.end(), arguments.begin(), arguments.end());
    Process process(command, {}, "/tmp/run.out", "/tmp/run.err");
    const auto status = process.ended(std::chrono::seconds(30));
    return {status && WIFEXITED(*status) ? WEXITSTATUS(*status) : -1, read_file("/tmp/run.out"),
            read_file("/tmp/run.err")};
}

std::vector<std::string> join(std::vector<std::string> words, const std::vector<std::string> &more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

std::string from_hex(const std::string &digits) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    return bytes;
}

// Both clients' words for the same answer: "code N", "code N numbers A,... data HEX" and wlanctl's JSON.
void compare(const Procedure &row, const std::string &words, const nlohmann::json &answer) {
    std::istringstream stream(words);
    std::string word, numbers, hex;
    int code = -100;
    stream >> word >> code;
    const std::string rest{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ(answer.at("code"), code);
    EXPECT_EQ(answer.contains("value"),
              code >= 0 && row.result != Result::code && row.result != Result::none);
    if (!answer.contains("value"))
        return;
    if (row.result == Result::text) {
        hex = rest.substr(rest.find(" data ") + 6);
        const std::string value =
            answer.contains("value_hex") ? from_hex(answer["value_hex"]) : answer["value"].get<std::string>();
        EXPECT_EQ(from_hex(hex), value + '\0');
    } else {
        const nlohmann::json &value = answer["value"];
        const auto number = (value.is_array() ? value.at(0) : value).get<long long>();
        const long long sent = std::stoll(rest.substr(rest.find(" numbers ") + 9)); // as it travels: unsigned
        EXPECT_EQ(row.result == Result::integer ? static_cast<int>(sent) : sent, number);
    }
}

TEST(Clients, TheGeneratedOneAndWlanctlAgree) {
    Gateway gateway;
    write_file("/tmp/wlandbg", ""); // a worker's end shows by its lines
    const std::string port = std::to_string(gateway.port());
    for (const GoldenCase &golden : read_golden(SOURCE_DIR "/tests/procedures.golden")) {
        SCOPED_TRACE(golden.name);
        std::vector<std::string> answers;
        prepare(golden);
        for (const GoldenCall &call : golden.calls) {
            News news(gateway);
            answers.push_back(
                run("rpcgen_client", join({"127.0.0.1", port, std::to_string(call.number)}, call.words)).out);
            news.await(call);
        }
        prepare(golden);
        for (std::size_t i = 0; i < golden.calls.size(); ++i) {
            const GoldenCall &call = golden.calls[i];
            SCOPED_TRACE(call.name);
            News news(gateway);
            const Outcome ran =
                run("wlanctl", join({"--json", "--port", port, "call", call.name, "--"}, call.words));
            compare(*find_procedure(call.name), answers[i], nlohmann::json::parse(ran.out));
            news.await(call);
        }
    }
}

struct Row {
    std::vector<std::string> words;
    int status;
    std::string out, err; // the one whole, the other in part
};

void play(const std::vector<Row> &rows) {
    for (const Row &row : rows) {
        const Outcome ran = run("wlanctl", row.words);
        EXPECT_EQ(ran.status, row.status) << testing::PrintToString(row.words) << ran.err;
        EXPECT_EQ(ran.out, row.out);
        EXPECT_NE(ran.err.find(row.err), std::string::npos) << ran.err;
    }
}

TEST(Wlanctl, SpeaksForPeopleAndPrograms) {
    Gateway gateway;
    prepare({});
    write_file("/tmp/name", "from a file\n");
    gateway.call(22, word(3) + xdr_text("\x1b[31m\xff\xc2\x9b"));
    play({
        {{"get", "ssid", "2"}, 0, "ssid: Gateway-2.4G-2\n", ""},
        {{"-r", "get", "ssid", "zvi01"}, 0, "Gateway-2.4G-2\n", ""},
        {{"set", "ssid", "zv00", "My Net"}, 0, "done\n", ""},
        {{"set", "ssid", "9", "My Net"}, 0, "unchanged\n", ""},
        {{"set", "ssid", "9", "@/tmp/name"}, 0, "done\n", ""},
        {{"get", "ssid", "9", "--json"},
         0,
         R"({"procedure":"wlan_get_ssid","status":"done","code":0,"value":"from a file"})"
         "\n",
         ""},
        {{"get", "ssid", "3"}, 0, "ssid: \\x1b[31m\\xff\\xc2\\x9b\n", ""},
        {{"call", "wlan_get_ssid", "-1"}, 1, "", "-1"},
        {{"set", "wps_model_name", "1", "x"}, 1, "", "wlan_set_wps_model_name"},
        {{"get", "ssid"}, 2, "", "index"},
        {{"get", "ssid", "2147483648"}, 2, "", "index"},
        {{"get", "ssid", "zvi99"}, 2, "", "zvi99"},
        {{"get", "sid", "1"}, 2, "", "ssid"},
        {{"set", "radio_enabled", "1", "maybe"}, 2, "", "bool"},
        {{"set", "ssid", "1", "@/tmp/none"}, 2, "", "/tmp/none"},
        {{"--port", "9", "get", "ssid", "1"}, 4, "", "refused"},
    });
    const Outcome hostile = run("wlanctl", {"--json", "get", "ssid", "3"});
    EXPECT_EQ(nlohmann::json::parse(hostile.out).at("value_hex"), "1b5b33316dffc29b");
    kill(gateway.daemon().id(), SIGSTOP);
    play({{{"--timeout", "0.2", "get", "ssid", "2"}, 3, "", "no reply"}});
}

TEST(Wlanctl, SaysThatNoDaemonIsRegistered) {
    { Gateway gone; }
    ASSERT_EQ(std::system("rpcinfo -d 538054928 1"), 0);
    play({{{"get", "ssid", "1"}, 4, "", "not running"}});
}

} // namespace
