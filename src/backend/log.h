#pragma once

#include "backend/line.h"

#include <type_traits>

// Debug lines go to standard output while the file /tmp/wlandbg is readable; that is asked afresh before each
// line. Error lines go to standard error always. Safe from any thread.

bool debug_enabled();

[[gnu::format(printf, 1, 2)]] void log_debug(const char *format, ...);
[[gnu::format(printf, 1, 2)]] void log_error(const char *format, ...);

// Debug lines whose conversions were checked where they were written (see Line). `log_checked_after` puts
// "[ZAV-API] ", `who` and `rest` before the line.
void log_checked(const char *format, ...);
void log_checked_after(const char *who, const char *rest, const char *format, ...);

template <class... Values>
void log_line(const Line<Values...> &line, std::type_identity_t<Values>... values) {
    log_checked(line.text, values...);
}
