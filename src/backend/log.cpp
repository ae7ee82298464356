#include "backend/log.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr char debug_flag_file[] = "/tmp/wlandbg";

// Where lines go. One that a pipe or a socket does not take at once is lost: whoever reads it slowly, or not
// at all, must not hold a request up. Not by O_NONBLOCK, which scripts and others that write there would get
// too.
class Output {
public:
    explicit Output(int fd) : fd_(fd) {
        struct stat kind {};
        can_stall_ = fstat(fd, &kind) == 0 && (S_ISFIFO(kind.st_mode) || S_ISSOCK(kind.st_mode));
    }

    void write(std::string_view line) {
        const std::lock_guard held(mutex_);
        if (lost_ > 0 && !say_lost()) {
            ++lost_;
            return;
        }
        const std::string_view rest = rest_of(line);
        if (rest.empty())
            return;
        ++lost_;
        is_cut_ = rest.size() < line.size();
    }

private:
    bool say_lost() {
        std::array<char, 64> notice;
        std::snprintf(notice.data(), notice.size(), "%s[ZAV-API] %u lines of the log are lost.\n",
                      is_cut_ ? "\n" : "", lost_);
        if (!rest_of(notice.data()).empty())
            return false;
        lost_ = 0;
        is_cut_ = false;
        return true;
    }

    // Writes the text in one go; a pipe promises room for PIPE_BUF bytes only. What was not taken is
    // returned.
    std::string_view rest_of(std::string_view text) const {
        const std::size_t most = can_stall_ ? PIPE_BUF : text.size();
        while (!text.empty()) {
            pollfd room{fd_, POLLOUT, 0};
            if (can_stall_ && poll(&room, 1, 0) != 1)
                break;
            const ssize_t written = ::write(fd_, text.data(), std::min(text.size(), most));
            if (written > 0)
                text.remove_prefix(static_cast<std::size_t>(written));
            else if (written == 0 || errno != EINTR)
                break;
        }
        return text;
    }

    const int fd_;
    bool can_stall_;
    std::mutex mutex_; // guards what follows, and keeps the pieces of a line together
    unsigned lost_ = 0;
    bool is_cut_ = false; // the last line that was written has no end
};

Output standard_output(STDOUT_FILENO), standard_error(STDERR_FILENO);

struct Values {
    va_list list;
};

// A value's control bytes would be lines, or a terminal's commands, of their own.
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
