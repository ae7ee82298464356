#include "service/golden.h"

#include "rpc/protocol.h"

#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace {

using Lines = std::vector<std::string>;

Lines lines_of(const std::string &text) {
    Lines lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

// A file that grows: its new lines since the last look.
class Tail {
public:
    explicit Tail(std::string path) : path_(std::move(path)) { (void)news(); }
    Lines news() {
        const std::string text = read_file(path_);
        const std::string fresh = text.size() < seen_ ? text : text.substr(seen_);
        seen_ = text.size();
        return lines_of(fresh);
    }

private:
    std::string path_;
    std::size_t seen_ = 0;
};

// Every line of both settings files, named after its band.
Lines all_settings(const Gateway &gateway) {
    Lines all;
    for (const auto &[band, file] : {std::pair{"24g ", "ZAV75024g.dat"}, {"5g ", "ZAV750.dat"}})
        for (const std::string &line : lines_of(read_file(gateway.path(std::string("settings/") + file))))
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

std::string hex(const std::optional<std::string> &bytes) {
    if (!bytes)
        return "no reply";
    std::string text;
    char digits[4];
    for (const char c : *bytes) {
        std::snprintf(digits, sizeof digits, "%02x ", static_cast<unsigned char>(c));
        text += digits;
    }
    return text;
}

class Golden : public testing::TestWithParam<GoldenCase> {
protected:
    static void SetUpTestSuite() { gateway = new Gateway; }
    static void TearDownTestSuite() { delete std::exchange(gateway, nullptr); }
    static inline Gateway *gateway = nullptr;
};

void play(Gateway &gateway, const GoldenCall &call) {
    SCOPED_TRACE("call " + call.name);
    Tail out(gateway.path("out")), err(gateway.path("err")), log(gateway.path("log"));
    const Lines before = all_settings(gateway);
    std::uint32_t status = 0;
    const auto reply = gateway.call(call.number, call.arguments, &status, call.reply ? 5000 : 300);
    EXPECT_EQ(status, 0U);
    EXPECT_EQ(hex(reply), hex(call.reply));
    EXPECT_EQ(out.news(), call.out);
    EXPECT_EQ(err.news(), call.err);
    EXPECT_EQ(changes(before, all_settings(gateway)), call.settings);
    EXPECT_EQ(log.news(), call.commands);
}

TEST_P(Golden, Answers) {
    prepare(GetParam());
    write_file("/tmp/wlandbg", "");
    for (const GoldenCall &call : GetParam().calls)
        play(*gateway, call);
}

const std::vector<GoldenCase> &golden_cases() {
    static const auto cases = read_golden(SOURCE_DIR "/tests/procedures.golden");
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Walk, Golden, testing::ValuesIn(golden_cases()), [](const auto &row) {
    std::string name = row.param.name;
    for (char &c : name)
        c = std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
    return std::to_string(row.index) + "_" + name;
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
