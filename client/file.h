#pragma once

#include "client/error.h"

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

// What is read from a file, or from standard input where its name is "-". Nothing is read without a bound: it
// may be a device that never ends.

constexpr std::size_t longest_file = 1 << 20;

struct CloseFile {
    void operator()(std::FILE *file) const;
};
using File = std::unique_ptr<std::FILE, CloseFile>;

Error open_file(const std::string &path, File &ret_file);
// At most so many bytes; more is an error.
Error read_file(const std::string &path, std::size_t most, std::string &ret_content);
// Up to the line feed, which is left out. False at the end, and after an error.
bool read_line(std::FILE *file, const std::string &path, std::string &ret_line, Error &ret_error);
