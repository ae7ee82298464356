#include "client/daemon_process.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <iterator>
#include <sstream>
#include <unistd.h>

namespace {

constexpr std::string_view name = "wlan-configd";

std::string text_of(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool is_number(const std::string &text) {
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

// Out of the program that runs, which an update may have replaced meanwhile. It is read, not run: anybody may
// call a program so.
std::string version_of(pid_t process) {
    const std::string program = text_of(fmt::format("/proc/{}/exe", process)),
                      before = fmt::format("{} ", name);
    for (std::size_t at = program.find(before); at != program.npos; at = program.find(before, at + 1)) {
        const std::size_t begin = at + before.size(), end = program.find_first_not_of("0123456789.", begin);
        if (end != program.npos && end > begin && program[end] == '\n')
            return program.substr(begin, end - begin);
    }
    return {};
}

// The machine's start and the process's own, counted from there in ticks, the twentieth word behind its name.
std::int64_t start_of(pid_t process) {
    std::istringstream words(text_of(fmt::format("/proc/{}/stat", process)));
    words.ignore(4096, ')');
    std::string skipped;
    for (int i = 0; i < 19; ++i)
        words >> skipped;
    const std::string machine = text_of("/proc/stat"), before = "\nbtime ";
    const std::size_t at = machine.find(before);
    std::int64_t ticks = 0, boot = 0;
    if (!(words >> ticks) || at == machine.npos)
        return 0;
    std::istringstream(machine.substr(at + before.size())) >> boot;
    return boot + ticks / sysconf(_SC_CLK_TCK);
}

} // namespace

std::optional<DaemonProcess> find_daemon_process() {
    std::optional<DaemonProcess> found;
    std::error_code error;
    for (const auto &entry : std::filesystem::directory_iterator("/proc", error)) {
        const std::string process = entry.path().filename();
        if (!is_number(process) || text_of(entry.path() / "comm") != fmt::format("{}\n", name))
            continue;
        if (found)
            return std::nullopt;
        found = {.id = std::stoi(process)};
    }
    if (found) {
        found->version = version_of(found->id);
        found->started = start_of(found->id);
    }
    return found;
}
