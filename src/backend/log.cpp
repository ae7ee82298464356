#include "backend/log.h"

#include <cstdarg>
#include <cstdio>
#include <unistd.h>

namespace {

constexpr char debug_flag_file[] = "/tmp/wlandbg";

} // namespace

bool debug_enabled() { return access(debug_flag_file, R_OK) == 0; }

void log_debug(const char *format, ...) {
    if (!debug_enabled())
        return;
    va_list values;
    va_start(values, format);
    std::vprintf(format, values);
    va_end(values);
}

void log_error(const char *format, ...) {
    va_list values;
    va_start(values, format);
    std::vfprintf(stderr, format, values);
    va_end(values);
}

void log_checked_after(const char *who, const char *rest, const char *format, ...) {
    if (!debug_enabled())
        return;
    va_list values;
    va_start(values, format);
    flockfile(stdout); // a worker's line must not come between the two halves
    std::fputs("[ZAV-API] ", stdout);
    std::fputs(who, stdout);
    std::fputs(rest, stdout);
    std::vprintf(format, values);
    funlockfile(stdout);
    va_end(values);
}

void log_checked_entry(const char *who, int index, const char *format, ...) {
    if (!debug_enabled())
        return;
    va_list values;
    va_start(values, format);
    flockfile(stdout);
    std::printf("[ZAV-API] %s %s int index=%d ", who, who, index);
    std::vprintf(format, values);
    funlockfile(stdout);
    va_end(values);
}
