#pragma once

#include "backend/interfaces.h"
#include "backend/status.h"

#include <span>

// Entry points that no procedure reaches; other parts of the platform may call them.

int ZAV_is5g(const Bss &bss);

// The current bit rate in Mbit/s as text; -1 before the driver is initialised or when it does not answer.
Status ZAV_GetMaxBitRate(int index, std::span<char> ret_rate);

// The first line of a result file (see result_file.h) without its line feed, cut at the buffer.
Status get_str_value(const char *path, std::span<char> ret_text);
