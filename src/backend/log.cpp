#include "backend/log.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr char debug_flag_file[] = "/tmp/wlandbg";

// Where lines go. One that a pipe, a socket or a terminal does not take at once is lost: whoever reads it
// slowly, or not at all, must not hold a request up.
class Output {
public:
    Output(int fd, const char *same) : fd_(fd), same_(same) {}

    void write(std::string_view line) {
        const std::lock_guard held(mutex);
        look();
        if (!end_cut_line() || (lost_ > 0 && !say_lost()) || !put_whole(line))
            ++lost_;
    }

    // O_NONBLOCK again, and again in a description of its own: a command that takes the flag away must not
    // take it from the daemon, too.
    Descriptor for_command() {
        const std::lock_guard held(mutex);
        look();
        pollfd room{fd_, POLLOUT, 0};
        if (poll(&room, 1, 0) != 1 || (room.revents & POLLOUT) == 0)
            return Descriptor(-1);
        const int own = can_stall_ ? open_again() : -1;
        return Descriptor(own >= 0 ? own : fcntl(fd_, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    }

private:
    bool end_cut_line();

    bool say_lost() {
        std::array<char, 64> notice;
        std::snprintf(notice.data(), notice.size(), "[ZAV-API] %u lines of the log are lost.\n", lost_);
        if (!put_whole(notice.data()))
            return false;
        lost_ = 0;
        return true;
    }

    bool put_whole(std::string_view line) {
        const std::string_view rest = rest_of(line);
        is_cut_ = !rest.empty() && rest.size() < line.size();
        return rest.empty();
    }

    bool is_same(const struct stat &other) const {
        return other.st_dev == seen_.st_dev && other.st_ino == seen_.st_ino;
    }

    // O_NONBLOCK needs a description of the daemon's own: others that write there would get it too. One that
    // could not be had, for want of descriptors or of a reader, is tried again.
    void look() {
        struct stat found {};
        if (fstat(fd_, &found) != 0)
            return;
        if (!is_same(found)) {
            seen_ = found;
            is_cut_ = false;
            if (own_ >= 0)
                close(std::exchange(own_, -1));
            can_stall_ = S_ISFIFO(found.st_mode) || isatty(fd_) != 0;
        }
        if (must_ask())
            own_ = open_again();
    }

    int open_again() const { return open(same_, O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }

    bool must_ask() const { return can_stall_ && own_ < 0; }

    // A terminal does not tell how much it takes.
    bool has_room() const {
        pollfd room{fd_, POLLOUT, 0};
        return S_ISFIFO(seen_.st_mode) && poll(&room, 1, 0) == 1;
    }

    ssize_t put(std::string_view text) const {
        return S_ISSOCK(seen_.st_mode) ? send(fd_, text.data(), text.size(), MSG_DONTWAIT | MSG_NOSIGNAL)
                                       : ::write(own_ < 0 ? fd_ : own_, text.data(), text.size());
    }

    // Writes the text in one go; a pipe promises room for PIPE_BUF bytes only. What was not taken is
    // returned.
    std::string_view rest_of(std::string_view text) const {
        while (!text.empty() && (!must_ask() || has_room())) {
            const ssize_t written = put(must_ask() ? text.substr(0, PIPE_BUF) : text);
            if (written > 0)
                text.remove_prefix(static_cast<std::size_t>(written));
            else if (written == 0 || errno != EINTR)
                break;
        }
        return text;
    }

    inline static std::mutex mutex; // guards what both have, and keeps the pieces of a line together
    const int fd_;
    const char *const same_; // a path to the same
    struct stat seen_ {};    // where the descriptor led at the last line
    int own_ = -1;           // a pipe or a terminal, opened once more
    bool can_stall_ = false; // a pipe or a terminal; where it is not opened, there is room for a moment only
    unsigned lost_ = 0;
    bool is_cut_ = false; // the last line that was written has no end
};

Output standard_output(STDOUT_FILENO, "/proc/self/fd/1"), standard_error(STDERR_FILENO, "/proc/self/fd/2");

// A line of the other, too, where both lead to the same.
bool Output::end_cut_line() {
    for (Output *output : {&standard_output, &standard_error}) {
        if (!output->is_cut_ || !is_same(output->seen_))
            continue;
        if (!rest_of("\n").empty())
            return false;
        output->is_cut_ = false;
    }
    return true;
}

struct Values {
    va_list list;
};

void append_value(std::string *line, std::string_view value) {
    for (const char byte : value) {
        const auto code = static_cast<unsigned char>(byte);
        std::array<char, 5> escape;
        if (code >= 0x20 && code != 0x7F)
            line->push_back(byte);
        else
            line->append(escape.data(), static_cast<std::size_t>(
                                            std::snprintf(escape.data(), escape.size(), "\\x%02X", code)));
    }
}

template <class Number>
void append_number(std::string *line, const std::string &conversion, Number number) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), conversion.c_str(), number);
    line->append(text.data());
}

// A text's precision: how much of it is shown. Its width is not known here.
std::size_t length_of(const char *text, int most) {
    return most < 0 ? std::strlen(text) : strnlen(text, static_cast<std::size_t>(most));
}

void append_next(std::string *line, const std::string &conversion, Values *values) {
    const bool is_long = conversion.find('l') != conversion.npos;
    if (conversion.ends_with('s')) {
        const std::size_t point = conversion.find('.');
        const int most = point == conversion.npos          ? -1
                         : conversion.at(point + 1) == '*' ? va_arg(values->list, int)
                                                           : std::atoi(conversion.c_str() + point + 1);
        const char *text = va_arg(values->list, const char *);
        append_value(line, text == nullptr ? "(null)" : std::string_view(text, length_of(text, most)));
    } else if (conversion.ends_with('c')) {
        const auto byte = static_cast<char>(va_arg(values->list, int));
        append_value(line, {&byte, 1});
    } else if (conversion.find("ll") != conversion.npos) {
        append_number(line, conversion, va_arg(values->list, long long));
    } else if (is_long || conversion.find('z') != conversion.npos) {
        append_number(line, conversion, va_arg(values->list, long)); // as wide as a size_t
    } else {
        append_number(line, conversion, va_arg(values->list, int));
    }
}

// As vsnprintf, with the conversions that this program uses; the format's own text stays as it is.
std::string put_together(std::string_view beginning, const char *format, Values *values) {
    std::string line(beginning);
    for (const char *p = format; *p != '\0';) {
        const std::size_t plain = std::strcspn(p, "%");
        line.append(p, plain);
        p += plain;
        if (*p == '\0')
            break;
        const char *end = line_check::skip_modifiers(p + 1);
        end += std::strspn(end, "*lz");
        if (*end == '%')
            line.push_back('%');
        else
            append_next(&line, {p, end + 1}, values);
        p = end + 1;
    }
    return line;
}

} // namespace

std::string escaped(std::string_view value) {
    std::string text;
    append_value(&text, value);
    return text;
}

bool debug_enabled() { return access(debug_flag_file, R_OK) == 0; }

void log_debug(const char *format, ...) {
    if (!debug_enabled())
        return;
    Values values;
    va_start(values.list, format);
    standard_output.write(put_together("", format, &values));
    va_end(values.list);
}

void log_error(const char *format, ...) {
    Values values;
    va_start(values.list, format);
    standard_error.write(put_together("", format, &values));
    va_end(values.list);
}

void log_output(std::string_view text) { standard_output.write(text); }

void log_last_words(std::string_view text) { standard_error.write(text); }

Descriptor output_for_command() { return standard_output.for_command(); }

Descriptor errors_for_command() { return standard_error.for_command(); }

void log_checked_after(const char *who, const char *rest, const char *format, ...) {
    if (!debug_enabled())
        return;
    Values values;
    va_start(values.list, format);
    const std::string beginning = std::string("[ZAV-API] ") + who + rest;
    standard_output.write(put_together(beginning, format, &values));
    va_end(values.list);
}

void log_checked_entry(const char *who, int index, const char *format, ...) {
    if (!debug_enabled())
        return;
    Values values;
    va_start(values.list, format);
    const std::string beginning =
        std::string("[ZAV-API] ") + who + ' ' + who + " int index=" + std::to_string(index) + ' ';
    standard_output.write(put_together(beginning, format, &values));
    va_end(values.list);
}
