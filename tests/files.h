#pragma once

#include <fstream>
#include <string>
#include <string_view>

inline std::string read_file(const std::string &path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void write_file(const std::string &path, std::string_view text) { std::ofstream(path) << text; }
