#pragma once

#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

// What can be read: a process may end while its file is read, which an iterator of the stream throws for.
inline std::string read_file(const std::string &path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

inline void write_file(const std::string &path, std::string_view text) { std::ofstream(path) << text; }
