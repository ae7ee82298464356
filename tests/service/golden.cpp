#include "service/golden.h"

#include <algorithm>
#include <cstdlib>
#include <set>
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
    for (std::uint32_t number = 0; line >> number; line >> mark)
        numbers.push_back(number);
    line.clear();
    if (numbers.empty())
        line >> mark;
    std::string data = read_quoted(line);
    if (std::size_t size = 0; line >> size)
        data.resize(size);
    return data_reply(code, numbers, data);
}

// A row that stands for a line, with what the row leaves out.
void read_line(const std::string &keyword, std::istream &row, GoldenCall &call) {
    std::string rest;
    std::getline(row, rest);
    if (rest.ends_with('$')) // shows the blanks before it
        rest.pop_back();
    const std::string text = rest.empty() ? "" : rest.substr(1);
    const std::string log = "[ZAV-API] ", server = log + call.name + "_1_svc";
    const struct {
        std::string_view keyword;
        Lines GoldenCall::*lines;
        std::string line;
    } kinds[] = {{"rpc", &GoldenCall::out, server + "  WLAN RPC server :" + rest},
                 {"rpc1", &GoldenCall::out, server + " WLAN RPC server :" + rest},
                 {"entry", &GoldenCall::out, log + text.substr(0, text.find(' ')) + ' ' + text},
                 {"log", &GoldenCall::out, log + text},
                 {"later", &GoldenCall::later, log + text},
                 {"error", &GoldenCall::err, log + "Error " + text},
                 {"out", &GoldenCall::out, text},
                 {"err", &GoldenCall::err, text},
                 {"stored", &GoldenCall::settings, text},
                 {"command", &GoldenCall::commands, text}};
    const auto *const kind = std::ranges::find(kinds, keyword, [](const auto &each) { return each.keyword; });
    if (kind == std::end(kinds))
        throw std::runtime_error("no such keyword: " + keyword);
    (call.*kind->lines).push_back(kind->line);
}

void read_expectation(const std::string &keyword, std::istream &row, GoldenCall &call) {
    int number = 0;
    if (keyword == "code" && row >> number)
        call.reply = word(static_cast<std::uint32_t>(number));
    else if (keyword == "data")
        call.reply = read_data(row);
    else if (keyword == "none")
        call.reply = std::nullopt;
    else if (keyword == "wait" && row >> number)
        call.wait = std::chrono::milliseconds(number);
    else
        read_line(keyword, row, call);
}

void read_row(const std::string &text, const std::string &area, std::vector<GoldenCase> &cases) {
    std::istringstream row(text);
    std::string keyword;
    row >> keyword;
    if (keyword == "case") {
        cases.push_back({area + ':' + text.substr(keyword.size()), {}, false, {}});
    } else if (keyword == "running") {
        cases.back().running = true;
    } else if (keyword == "given") {
        std::string file;
        row >> file;
        cases.back().given.emplace_back(file, read_quoted(row));
    } else if (keyword == "call") {
        GoldenCall call;
        row >> call.number >> call.name;
        read_arguments(row, call);
        cases.back().calls.push_back(call);
    } else {
        read_expectation(keyword, row, cases.back().calls.back());
    }
}

void read_rows(const std::filesystem::path &path, std::vector<GoldenCase> &cases) {
    for (const std::string &row : lines_of(read_file(path)))
        try {
            if (!row.empty())
                read_row(row, path.stem(), cases);
        } catch (const std::exception &error) {
            throw std::runtime_error(path.string() + ": " + row + ": " + error.what());
        }
}

void start_driver(Gateway &gateway) {
    constexpr std::uint32_t load = 1, init = 2, in_progress = 3;
    gateway.call(load, word(245));
    if (gateway.settled(init, "", word(in_progress)) != word(0))
        throw std::runtime_error("the driver does not come up");
}

} // namespace

std::vector<GoldenCase> read_golden() {
    std::vector<GoldenCase> cases;
    const std::filesystem::directory_iterator files(SOURCE_DIR "/tests/golden");
    for (const auto &file : std::set(begin(files), end(files)))
        if (file.path().extension() == ".golden")
            read_rows(file, cases);
    return cases;
}

// The files of the case: those that are faults, or all others.
static void give(const GoldenCase &golden, bool faults) {
    for (const auto &[file, content] : golden.given)
        if (file.starts_with("faults/") == faults)
            write_file(std::string(Gateway::directory) + "/" + file, content);
}

// What the simulation's script makes is copied: its processes take longer than a case.
void make_afresh() {
    const std::filesystem::path gateway = Gateway::directory, fresh = "/tmp/fresh_gateway";
    if (!exists(fresh) && std::system((SOURCE_DIR "/sim/setup " + fresh.string()).c_str()) != 0)
        throw std::runtime_error("sim/setup failed");
    for (const auto &made : std::filesystem::directory_iterator(fresh)) {
        const std::filesystem::path place = gateway / made.path().filename();
        if (place.filename() == "env") // it names its own directory
            continue;
        remove_all(place);
        copy(made, place, std::filesystem::copy_options::recursive);
    }
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

Lines lines_of(const std::string &text) {
    Lines lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

News::News(const Gateway &gateway)
    : tails_{{gateway.path("out"), 0, out}, {gateway.path("err"), 0, err}, {gateway.path("log"), 0, log}} {
    for (Tail &tail : tails_)
        if (std::filesystem::exists(tail.path))
            tail.seen = std::filesystem::file_size(tail.path);
}

void News::look() {
    for (Tail &tail : tails_) {
        std::ifstream file(tail.path);
        file.seekg(static_cast<std::streamoff>(tail.seen)); // a case leaves much behind
        tail.lines = lines_of({std::istreambuf_iterator<char>(file), {}});
    }
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
