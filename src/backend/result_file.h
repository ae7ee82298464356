#pragma once

#include "backend/status.h"

#include <span>

// The one-line files in which the platform's commands leave a result, in a directory where anybody may write.
// A line that begins with "usage:" is no result.

// Makes sure that the command will write into a regular file of ours that has no other name, and removes
// or renames whatever else stands there. -1 with an error line that names `who`.
Status claim_result_file(const char *who, const char *path);

// The number at the start of the first line, whole up to 2^32 - 1; -1 also for an empty line.
Status get_int_value(const char *path, unsigned *ret_value);

// The first line without its line feed, cut at the buffer; `who` is named in the lines.
Status read_first_line(const char *who, const char *path, std::span<char> ret_line);
