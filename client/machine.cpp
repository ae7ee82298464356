#include "client/machine.h"

#include "client/file.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fmt/format.h>
#include <sstream>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

namespace fs = std::filesystem;

constexpr char program[] = "wlan-configd";

// Nothing where it cannot be read, as when a process ends meanwhile. The largest is a daemon's program;
// anybody may call another so, of whatever size.
std::optional<std::string> content_of(const std::string &path) {
    constexpr std::size_t longest = 64 << 20;
    std::string content;
    return read_file(path, longest, content) ? std::nullopt : std::optional(std::move(content));
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find(separator, begin), text.size());
        parts.emplace_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return parts;
}

// Nothing where it is not told.
std::string target_of(const fs::path &link) {
    std::error_code ignored;
    return fs::read_symlink(link, ignored).string();
}

bool is_daemon(const fs::path &process) {
    return content_of(process / "comm").value_or("") == fmt::format("{}\n", program);
}

// The parent of a process; empty where it has ended, though perhaps nobody has asked for it.
std::string parent_of(const fs::path &process) {
    const std::string told = content_of(process / "stat").value_or("");
    const std::vector<std::string> words = split(told.substr(std::min(told.rfind(')'), told.size())), ' ');
    constexpr std::size_t state = 1, parent = 2; // behind the name
    return words.size() <= parent || words[state] == "Z" ? "" : words[parent];
}

// A daemon that is about to run a command is two for a moment.
bool is_dead_or_child(const fs::path &process) {
    const std::string parent = parent_of(process);
    return parent.empty() || is_daemon(fs::path("/proc") / parent);
}

std::vector<fs::path> processes() {
    std::vector<fs::path> found;
    std::error_code ended;
    for (fs::directory_iterator at("/proc", ended), end; !ended && at != end; at.increment(ended))
        if (std::isdigit(static_cast<unsigned char>(at->path().filename().c_str()[0])) != 0)
            found.push_back(at->path());
    return found;
}

// One in another network belongs to a container.
bool is_elsewhere(const fs::path &process) {
    const std::string network = target_of(process / "ns/net");
    return !network.empty() && network != target_of("/proc/self/ns/net");
}

std::optional<Daemon> daemon_in(const fs::path &process) {
    const std::string name = process.filename();
    pid_t id = 0;
    if (std::from_chars(name.data(), name.data() + name.size(), id).ec != std::errc{} ||
        !is_daemon(process) || is_dead_or_child(process) || is_elsewhere(process))
        return std::nullopt;
    Daemon daemon{id, target_of(process / "exe").ends_with(" (deleted)"), target_of(process / "cwd"), {}};
    if (const auto environment = content_of(process / "environ"))
        daemon.environment = split(*environment, '\0');
    return daemon;
}

} // namespace

bool is_this_machine(const Connection &connection) {
    sockaddr_in address = connection.address;
    address.sin_port = 0;
    if (address.sin_family != AF_INET)
        return false;
    // Only an address of the machine itself can be bound to.
    const int descriptor = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const bool is_own = bind(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0;
    if (descriptor >= 0)
        close(descriptor);
    return is_own;
}

std::optional<std::string> Daemon::variable(std::string_view name) const {
    if (environment)
        for (const std::string &each : *environment)
            if (each.size() > name.size() && each[name.size()] == '=' && each.starts_with(name))
                return each.substr(name.size() + 1);
    return std::nullopt;
}

std::vector<Daemon> find_daemons() {
    std::vector<Daemon> daemons;
    for (const fs::path &process : processes())
        if (auto daemon = daemon_in(process))
            daemons.push_back(std::move(*daemon));
    std::sort(daemons.begin(), daemons.end(), [](auto &a, auto &b) { return a.process < b.process; });
    return daemons;
}

std::optional<Daemon> find_only_daemon() {
    std::vector<Daemon> daemons = find_daemons();
    return daemons.size() == 1 ? std::optional(std::move(daemons.front())) : std::nullopt;
}

// Out of the program that runs, which an update may have replaced meanwhile. It is read, not run: anybody may
// call a program so.
std::string version_of(const Daemon &daemon) {
    const std::string image = content_of(fmt::format("/proc/{}/exe", daemon.process)).value_or(""),
                      before = fmt::format("{} ", program);
    for (std::size_t at = image.find(before); at != image.npos; at = image.find(before, at + 1)) {
        const std::size_t begin = at + before.size(), end = image.find_first_not_of("0123456789.", begin);
        if (end != image.npos && end > begin && image[end] == '\n')
            return image.substr(begin, end - begin);
    }
    return {};
}

// The machine's start and the process's own, counted from there in ticks, the twentieth word behind its name.
std::int64_t start_of(const Daemon &daemon) {
    std::istringstream words(content_of(fmt::format("/proc/{}/stat", daemon.process)).value_or(""));
    words.ignore(4096, ')');
    std::string skipped;
    for (int i = 0; i < 19; ++i)
        words >> skipped;
    const std::string machine = content_of("/proc/stat").value_or(""), before = "\nbtime ";
    const std::size_t at = machine.find(before);
    std::int64_t ticks = 0, boot = 0;
    if (!(words >> ticks) || at == machine.npos)
        return 0;
    std::istringstream(machine.substr(at + before.size())) >> boot;
    return boot + ticks / sysconf(_SC_CLK_TCK);
}

bool has_child(const Daemon &daemon) {
    const std::string id = fmt::format("{}", daemon.process);
    const std::vector<fs::path> all = processes();
    return std::any_of(all.begin(), all.end(), [&](const fs::path &each) { return parent_of(each) == id; });
}

std::vector<in_addr_t> addresses_of_port(std::uint16_t port) {
    std::vector<in_addr_t> addresses;
    std::istringstream sockets(content_of("/proc/net/udp").value_or(""));
    for (std::string line; std::getline(sockets, line);) {
        unsigned number = 0, address = 0, bound = 0;
        if (std::sscanf(line.c_str(), " %u: %8X:%4X", &number, &address, &bound) == 3 && bound == port)
            addresses.push_back(address);
    }
    return addresses;
}

Finding find_lock(long *ret_seconds) {
    struct stat status {};
    if (stat(lock_file, &status) != 0)
        return {false};
    const auto age =
        std::chrono::system_clock::now() - std::chrono::system_clock::from_time_t(status.st_mtime);
    const auto seconds = static_cast<long>(std::chrono::duration_cast<std::chrono::seconds>(age).count());
    if (ret_seconds != nullptr)
        *ret_seconds = seconds;
    return {true, fmt::format("for {} s", seconds)};
}

std::optional<std::string> settings_folder() {
    const std::vector<Daemon> daemons = find_daemons();
    if (!daemons.empty() && daemons.front().environment) {
        const auto folder = daemons.front().variable("zav_cfg_dir");
        const bool is_relative = folder && !folder->empty() && folder->front() != '/';
        return is_relative ? fmt::format("{}/{}", daemons.front().directory, *folder) : folder;
    }
    const char *own = std::getenv("zav_cfg_dir");
    return own == nullptr ? std::nullopt : std::optional<std::string>(own);
}

Finding check_folder() {
    const std::vector<Daemon> daemons = find_daemons();
    const auto folder = settings_folder();
    if (!folder && !daemons.empty() && daemons.front().environment)
        return {true, "the daemon was started without zav_cfg_dir"};
    for (const char *name : settings_names) {
        const std::string path = fmt::format("{}/{}", folder.value_or(""), name);
        if (!folder || access(path.c_str(), R_OK | W_OK) == 0)
            continue;
        if (errno == EACCES && geteuid() != 0) // the daemon may
            return {};
        return {true, fmt::format("{} cannot be read and written: {}", path, std::strerror(errno))};
    }
    return {};
}
