#include "service/golden.h"

#include "rpc/protocol.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <utility>

namespace {

// Every line of the settings files, named after its band.
Lines all_settings(const Gateway &gateway) {
    Lines all;
    for (const auto &[band, file] : {std::pair{"24g ", "settings/ZAV75024g.dat"},
                                     {"5g ", "settings/ZAV750.dat"},
                                     {"vlan ", "../ZAV750vlan.dat"}})
        for (const std::string &line : lines_of(read_file(gateway.path(file))))
            all.push_back(band + line);
    return all;
}

std::string key_of(const std::string &line) { return line.substr(0, line.find('=')); }

// The lines that `after` has instead of, or in addition to, those of `before`. A line that vanished or moved
// shows as a change too.
Lines changes(const Lines &before, const Lines &after) {
    Lines changed;
    std::size_t at = 0;
    for (const std::string &line : after) {
        if (at < before.size() && line == before[at]) {
            ++at;
            continue;
        }
        changed.push_back(line);
        if (at < before.size() && key_of(line) == key_of(before[at]))
            ++at;
    }
    for (; at < before.size(); ++at)
        changed.push_back("lost " + before[at]);
    return changed;
}

// Of 16 bytes.
Lines hex(const std::optional<std::string> &bytes) {
    if (!bytes)
        return {"no reply"};
    Lines lines;
    char digits[4];
    for (std::size_t i = 0; i < bytes->size(); ++i) {
        std::snprintf(digits, sizeof digits, "%02x ", static_cast<unsigned char>((*bytes)[i]));
        (i % 16 == 0 ? lines.emplace_back() : lines.back()) += digits;
    }
    return lines;
}

// The line, marked, with three before and behind it.
std::string around(const Lines &lines, std::size_t at) {
    std::string text;
    for (std::size_t i = std::max<std::size_t>(at, 3) - 3; i <= at + 3 && i <= lines.size(); ++i)
        text += (i == at ? "\n  > " : "\n    ") + (i < lines.size() ? lines[i] + '$' : "(end)");
    return text;
}

void compare(const char *what, const Lines &came, const Lines &expected) {
    const auto at = static_cast<std::size_t>(std::ranges::mismatch(came, expected).in1 - came.begin());
    if (came != expected)
        ADD_FAILURE() << what << ", line " << at + 1 << "\nexpected:" << around(expected, at)
                      << "\ncame:" << around(came, at);
}

class Golden : public testing::TestWithParam<GoldenCase> {};

// The expected lines, a worker's between the others as they came.
Lines woven(Lines out, Lines later, const Lines &came) {
    Lines expected;
    for (const std::string &line : came) {
        Lines &from = (out.empty() || line != out.front()) && !later.empty() ? later : out;
        if (from.empty())
            break;
        expected.push_back(from.front());
        from.erase(from.begin());
    }
    for (const Lines &rest : {out, later})
        expected.insert(expected.end(), rest.begin(), rest.end());
    return expected;
}

// What must not run twice is sent three times: it must answer alike, and leave no more than one call would.
constexpr unsigned run_once[] = {3, 8, 10, 92, 110, 111, 120, 176, 177, 178, 181, 206, 207, 219, 220};

void play(Gateway &gateway, const GoldenCall &call) {
    SCOPED_TRACE("call " + call.name);
    News news(gateway);
    const Lines before = all_settings(gateway);
    const std::string request = call_header(call.number) + call.arguments;
    const int times = std::count(std::begin(run_once), std::end(run_once), call.number) != 0 ? 3 : 1;
    for (int i = 0; i < times; ++i) {
        const auto reply = gateway.exchange(request, call.reply ? 5000 : 300);
        compare("reply", hex(reply ? reply->substr(20) : reply),
                hex(call.reply ? word(0) + *call.reply : call.reply));
    }
    news.await(call);
    compare("standard output", news.out, woven(call.out, call.later, news.out));
    compare("standard error", news.err, call.err);
    compare("settings", changes(before, all_settings(gateway)), call.settings);
    compare("commands", news.log, call.commands);
}

TEST_P(Golden, Answers) {
    static Gateway gateway;
    const Played played(gateway, GetParam());
    write_file("/tmp/wlandbg", "");
    for (const GoldenCall &call : GetParam().calls)
        play(gateway, call);
}

const std::vector<GoldenCase> &golden_cases() {
    static const auto cases = read_golden();
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Walk, Golden, testing::ValuesIn(golden_cases()), [](const auto &row) {
    std::string name = row.param.name;
    for (char &c : name)
        c = std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
    return name;
});

TEST(GoldenTable, HasEveryProcedureByNumberAndName) {
    std::set<std::pair<unsigned, std::string>> played, wanted;
    for (const GoldenCase &golden : golden_cases())
        for (const GoldenCall &call : golden.calls)
            played.emplace(call.number, call.name);
    for (const Procedure &procedure : protocol)
        wanted.emplace(procedure.number, procedure.name);
    EXPECT_EQ(played, wanted);
}

} // namespace
