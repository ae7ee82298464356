#pragma once

#include "backend/descriptor.h"
#include "backend/line.h"

#include <string>
#include <string_view>

// Debug lines go to standard output while the file /tmp/wlandbg is readable; that is asked afresh before each
// line. Error lines go to standard error always. Safe from any thread.
//
// A line is interface, to the letter: other programs read "coruppted" and "does not exits!!!!!!" as they are.

bool debug_enabled();

[[gnu::format(printf, 1, 2)]] void log_debug(const char *format, ...);
[[gnu::format(printf, 1, 2)]] void log_error(const char *format, ...);

// The control bytes of a value, which would be lines, or a terminal's commands, of their own, as \xNN. Debug
// and error lines do that themselves.
std::string escaped(std::string_view value);

// A text as it is, with or without debugging, on standard output or standard error. Neither takes memory.
void log_output(std::string_view text);
void log_last_words(std::string_view text);

// Standard output and standard error for a command. What a pipe or a terminal does not take is lost there, as
// lines are. Not valid where nothing is taken now; then /dev/null is better, for a script may end where a
// write fails.
Descriptor output_for_command();
Descriptor errors_for_command();

// Debug lines whose conversions were checked where they were written (see Line), behind "[ZAV-API] ", `who`
// and `rest`, or behind "[ZAV-API] ", `who` twice and the index.
void log_checked_after(const char *who, const char *rest, const char *format, ...);
void log_checked_entry(const char *who, int index, const char *format, ...);
