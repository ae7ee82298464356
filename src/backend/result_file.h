#pragma once

#include "backend/status.h"

#include <span>

// Readers of the one-line files in which the platform's commands leave a result. A line that begins with
// "usage:" is no result.

// The number at the start of the first line, whole up to 2^32 - 1; -1 also for an empty line.
Status get_int_value(const char *path, unsigned *ret_value);

// The first line without its line feed, cut at the buffer; `who` is named in the lines.
Status read_first_line(const char *who, const char *path, std::span<char> ret_line);
