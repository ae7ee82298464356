#include "state.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

namespace sim {
namespace {

constexpr std::size_t longest_answer = 65535; // what the length of a driver request can say
constexpr std::size_t longest_name = 100;     // of one word in the name of a fault

// The state directory, or null. Set while the library is loaded, when there is one thread, and never freed:
// detached threads may still come here while the process exits.
const std::string *directory = nullptr;

[[gnu::constructor]] void find_directory() {
    const char *value = std::getenv("ZAV_SIM_DIR");
    if (value != nullptr && *value != '\0') {
        directory = new std::string(value);
    }
}

std::string path(const std::string &name) { return *directory + '/' + name; }

bool write_all(int fd, std::string_view text) {
    while (!text.empty()) {
        const ssize_t done = ::write(fd, text.data(), text.size());
        if (done < 0 && errno == EINTR) {
            continue;
        }
        if (done <= 0) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(done));
    }
    return true;
}

bool is_plain(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' || c == '.';
}

// A word as part of a file name: it comes from the daemon, so it may hold anything.
std::string file_word(std::string_view word) {
    std::string name(word.substr(0, longest_name));
    for (char &c : name) {
        c = is_plain(c) ? c : '_';
    }
    return name;
}

std::optional<long> number(const std::optional<std::string> &text) {
    long value = 0;
    if (!text || std::from_chars(text->data(), text->data() + text->size(), value).ec != std::errc{}) {
        return std::nullopt;
    }
    return value;
}

} // namespace

bool active() { return directory != nullptr; }

std::optional<std::string> read_file(const std::string &name, std::size_t limit) {
    const int fd = ::open(path(name).c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return std::nullopt;
    }
    std::string text(limit, '\0');
    std::size_t length = 0;
    ssize_t got = 1;
    while (length < limit && got > 0) {
        got = ::read(fd, text.data() + length, limit - length);
        if (got > 0) {
            length += static_cast<std::size_t>(got);
        } else if (got < 0 && errno == EINTR) {
            got = 1;
        }
    }
    ::close(fd);
    if (got < 0) {
        return std::nullopt;
    }
    text.resize(length);
    return text;
}

bool replace_file(const std::string &name, std::string_view text) {
    const std::string target = path(name);
    const std::string fresh = target + ".new";
    const int fd = ::open(fresh.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0) {
        return false;
    }
    const bool written = write_all(fd, text);
    return ::close(fd) == 0 && written && ::rename(fresh.c_str(), target.c_str()) == 0;
}

std::optional<long> read_number(const std::string &name) { return number(read_file(name, 32)); }

void log_line(std::string_view text) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string line;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7f && c != '\\') {
            line += c;
        } else {
            line.append("\\x").append(1, digits[byte >> 4U]).append(1, digits[byte & 15U]);
        }
    }
    line += '\n';
    const int fd = ::open(path("log").c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
    if (fd >= 0) {
        write_all(fd, line);
        ::close(fd);
    }
}

std::optional<std::string> fault(const Event &event, std::string_view action) {
    const std::string kind = "faults/" + event.kind;
    const std::string ifname = kind + '.' + file_word(event.ifname);
    const std::array<std::string, 3> names = {ifname + '.' + file_word(event.word), ifname, kind};
    for (const std::string &name : names) {
        if (auto text = read_file(name + '.' + std::string(action), longest_answer)) {
            return text;
        }
    }
    return std::nullopt;
}

std::optional<long> fault_number(const Event &event, std::string_view action) {
    return number(fault(event, action));
}

} // namespace sim
