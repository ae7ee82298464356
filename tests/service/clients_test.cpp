#include "service/golden.h"

#include "rpc/protocol.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

namespace {

std::string from_hex(const std::string &digits) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    return bytes;
}

// Both clients' words for the same answer: "code N", "code N numbers A,... data HEX" and wlanctl's JSON.
void compare(const Procedure &row, const std::string &words, const nlohmann::ordered_json &answer) {
    std::istringstream stream(words);
    std::string word, numbers, hex;
    int code = -100;
    stream >> word >> code;
    const std::string rest{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ((code < 0 ? answer.at("error") : answer).at("code"), code);
    EXPECT_EQ(answer.contains("value"),
              code >= 0 && row.result != Result::code && row.result != Result::none);
    if (!answer.contains("value"))
        return;
    if (row.result == Result::text) {
        hex = rest.substr(rest.find(" data ") + 6);
        const std::string value =
            answer.contains("value_hex") ? from_hex(answer["value_hex"]) : answer["value"].get<std::string>();
        EXPECT_EQ(from_hex(hex), value + '\0');
    } else if (const auto at = rest.find(" numbers "); at != rest.npos && rest[at + 9] != ' ') {
        const nlohmann::ordered_json &value = answer["value"]; // of several numbers, the first word
        const nlohmann::ordered_json &first = value.is_object() ? value.front() : value;
        EXPECT_EQ(std::stoul(rest.substr(at + 9)),
                  static_cast<std::uint32_t>((first.is_array() ? first.front() : first).get<long long>()));
    } else {
        EXPECT_TRUE(answer["value"].is_object()); // what is in a record is for the tests of its parts
    }
}

std::string ask_generated_client(const Gateway &gateway, const GoldenCall &call) {
    return run("rpcgen_client",
               join({"127.0.0.1", std::to_string(gateway.port()), std::to_string(call.number)}, call.words))
        .out;
}

nlohmann::ordered_json ask_wlanctl(const Gateway &gateway, const GoldenCall &call) {
    const Outcome ran = run("wlanctl", join({"--json", "--port", std::to_string(gateway.port()),
                                             "--show-secrets", "call", call.name, "--force", "--"},
                                            call.words));
    return nlohmann::ordered_json::parse(ran.out);
}

// Plays the case and hands over each call's answer, once a worker's lines have come.
template <class Ask>
auto play(Gateway &gateway, const GoldenCase &golden, Ask ask) {
    const Played played(gateway, golden);
    write_file("/tmp/wlandbg", ""); // a worker's end shows by its lines
    std::vector<decltype(ask(gateway, golden.calls[0]))> answers;
    for (const GoldenCall &call : golden.calls) {
        News news(gateway);
        answers.push_back(ask(gateway, call));
        news.await(call);
    }
    return answers;
}

TEST(Clients, TheGeneratedOneAndWlanctlAgree) {
    Gateway gateway;
    std::set<unsigned> seen;
    for (GoldenCase &golden : read_golden()) {
        std::erase_if(golden.calls, [](const GoldenCall &call) { return !call.reply; }); // nothing to compare
        std::size_t needed = 0; // what comes behind brings nothing that the clients have not agreed on
        for (std::size_t i = 0; i < golden.calls.size(); ++i)
            if (seen.insert(golden.calls[i].number).second)
                needed = i + 1;
        if (needed == 0)
            continue;
        golden.calls.resize(needed);
        SCOPED_TRACE(golden.name);
        const auto generated = play(gateway, golden, ask_generated_client);
        const auto answers = play(gateway, golden, ask_wlanctl);
        for (std::size_t i = 0; i < answers.size(); ++i) {
            SCOPED_TRACE(golden.calls[i].name);
            compare(*find_procedure(golden.calls[i].name), generated[i], answers[i]);
        }
    }
}

} // namespace
