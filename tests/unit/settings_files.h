#pragma once

#include "backend/interfaces.h"
#include "files.h"

#include <cstdlib>
#include <filesystem>

// The settings files of both bands in a directory of the test's own. The store asks for its directory once,
// so it stands before the first test.

[[maybe_unused]] static const bool directory_made =
    setenv("zav_cfg_dir", "/tmp/settings", 1) == 0 && std::filesystem::create_directory("/tmp/settings");
constexpr char file_24g[] = "/tmp/settings/ZAV75024g.dat", file_5g[] = "/tmp/settings/ZAV750.dat";

// Both files, of eight BSSes: indexes 1 to 8 are those of 2.4 GHz, 9 to 16 those of 5 GHz.
constexpr char file_head[] = "#\nBssidNum=8\n";

inline void start_with(const std::string &lines_24g, const std::string &lines_5g) {
    write_file(file_24g, file_head + lines_24g);
    write_file(file_5g, file_head + lines_5g);
    set_known_driver();
}

// What a file has behind its head.
inline std::string lines_of(const std::string &path) {
    const std::string text = read_file(path);
    return text.starts_with(file_head) ? text.substr(sizeof file_head - 1) : "head lost: " + text;
}
