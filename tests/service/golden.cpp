#include "service/golden.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace {

// A quoted text with the escapes \\ \" \n \t \0 and \xNN.
std::string read_quoted(std::istream &line) {
    std::string text;
    line >> std::ws;
    if (line.get() != '"')
        throw std::runtime_error("a quoted text is missing");
    for (int c = line.get(); c != '"'; c = line.get()) {
        if (c == EOF)
            throw std::runtime_error("a quoted text has no end");
        if (c != '\\') {
            text += static_cast<char>(c);
            continue;
        }
        c = line.get();
        const std::string_view names = "nt0\\\"", values("\n\t\0\\\"", 5);
        char digits[3] = {};
        if (c == 'x' && line.read(digits, 2))
            text += static_cast<char>(std::strtol(digits, nullptr, 16));
        else
            text += values.at(names.find(static_cast<char>(c)));
    }
    return text;
}

void read_arguments(std::istream &line, GoldenCall &call) {
    for (std::string kind; line >> kind;) {
        if (kind == "text") {
            call.words.push_back(read_quoted(line));
            call.arguments += xdr_text(call.words.back());
        } else {
            long long value = 0;
            line >> value;
            call.words.push_back(std::to_string(value));
            call.arguments += word(static_cast<std::uint32_t>(value));
        }
    }
}

std::string read_data(std::istream &line) {
    int code = 0;
    char mark = 0;
    std::vector<std::uint32_t> numbers;
    line >> code >> mark;
    for (std::uint32_t number = 0; line >> number;) {
        numbers.push_back(number);
        line >> std::ws;
        if (line.peek() == ',')
            line.get();
    }
    line.clear();
    line >> mark;
    std::string data = read_quoted(line);
    if (std::size_t size = 0; line >> size)
        data.resize(size);
    return data_reply(code, numbers, data);
}

std::string rest_of(std::istream &line) {
    std::string rest;
    line.get();
    std::getline(line, rest);
    if (rest.ends_with('$')) // shows the blanks before it
        rest.pop_back();
    return rest;
}

void read_expectation(const std::string &keyword, std::istream &line, GoldenCall &call) {
    int code = 0;
    if (keyword == "code" && line >> code)
        call.reply = word(static_cast<std::uint32_t>(code));
    else if (keyword == "data")
        call.reply = read_data(line);
    else if (keyword == "none")
        call.reply = std::nullopt;
    else if (keyword == "wait" && line >> code)
        call.wait = std::chrono::milliseconds(code);
    else if (keyword == "out")
        call.out.push_back(rest_of(line));
    else if (keyword == "later")
        call.later.push_back(rest_of(line));
    else if (keyword == "err")
        call.err.push_back(rest_of(line));
    else if (keyword == "stored")
        call.settings.push_back(rest_of(line));
    else if (keyword == "command")
        call.commands.push_back(rest_of(line));
    else
        throw std::runtime_error("no such keyword: " + keyword);
}

void read_line(const std::string &text, std::vector<GoldenCase> &cases) {
    std::istringstream line(text);
    std::string keyword;
    line >> keyword;
    if (keyword == "case") {
        cases.push_back({rest_of(line), {}, false, {}});
    } else if (keyword == "running") {
        cases.back().running = true;
    } else if (keyword == "given") {
        std::string file;
        line >> file;
        cases.back().given.emplace_back(file, read_quoted(line));
    } else if (keyword == "call") {
        GoldenCall call;
        line >> call.number >> call.name;
        read_arguments(line, call);
        cases.back().calls.push_back(call);
    } else {
        read_expectation(keyword, line, cases.back().calls.back());
    }
}

void start_driver(Gateway &gateway) {
    constexpr std::uint32_t load = 1, init = 2, in_progress = 3;
    gateway.call(load, word(245));
    std::optional<std::string> answer;
    await([&] { return (answer = gateway.call(init, "")) != word(in_progress); });
    if (answer != word(0))
        throw std::runtime_error("the driver does not come up");
}

} // namespace

std::vector<GoldenCase> read_golden(const std::string &path) {
    std::vector<GoldenCase> cases;
    std::ifstream file(path);
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        if (line.empty() || line.starts_with('#'))
            continue;
        try {
            read_line(line, cases);
        } catch (const std::exception &error) {
            throw std::runtime_error(path + ":" + std::to_string(number) + ": " + error.what());
        }
    }
    return cases;
}

// The files of the case: those that are faults, or all others.
static void give(const GoldenCase &golden, bool faults) {
    for (const auto &[file, content] : golden.given)
        if (file.starts_with("faults/") == faults)
            write_file(std::string(Gateway::directory) + "/" + file, content);
}

void make_afresh() {
    if (std::system(SOURCE_DIR "/sim/setup /tmp/gateway") != 0)
        throw std::runtime_error("sim/setup failed");
    std::filesystem::remove("/tmp/nvram_set_lock");
    write_file("/tmp/ZAV750vlan.dat", read_file(SOURCE_DIR "/sim/factory/ZAV750vlan.dat"));
}

// Whether the case leaves something of the driver's behind.
static bool touches_driver(const GoldenCase &golden) {
    constexpr unsigned load = 1, init = 2;
    return golden.running ||
           std::any_of(golden.calls.begin(), golden.calls.end(),
                       [](const GoldenCall &call) { return call.number == load || call.number == init; });
}

Played::Played(Gateway &gateway, const GoldenCase &golden)
    : gateway_(gateway), needs_reset_(touches_driver(golden)) {
    constexpr std::uint32_t count = 4;
    make_afresh();
    std::filesystem::remove("/tmp/wlandbg");
    gateway.call(count, ""); // so that a case does not begin with looking that up
    give(golden, false);
    if (golden.running)
        start_driver(gateway);
    give(golden, true); // not before: they are faults of the case, not of its beginning
}

Played::~Played() {
    constexpr std::uint32_t reset = 3;
    if (needs_reset_)
        gateway_.call(reset, "");
}

std::vector<std::string> lines_of(const std::string &text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

News::News(const Gateway &gateway)
    : tails_{{gateway.path("out"), 0, out}, {gateway.path("err"), 0, err}, {gateway.path("log"), 0, log}} {
    for (Tail &tail : tails_)
        tail.seen = read_file(tail.path).size();
}

void News::look() {
    for (Tail &tail : tails_)
        tail.lines = lines_of(read_file(tail.path).substr(tail.seen));
}

void News::await(const GoldenCall &call) {
    constexpr std::chrono::milliseconds step(10);
    const std::size_t expected = call.out.size() + call.later.size() + call.err.size() + call.commands.size();
    look();
    for (auto left = call.wait; left > step && out.size() + err.size() + log.size() < expected;
         left -= step) {
        std::this_thread::sleep_for(step);
        look();
    }
}
