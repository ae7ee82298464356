// The settings store against a plain model of it. Input: key, zero byte, value, zero byte, file.

#undef NDEBUG
#include "backend/config_store.h"

#include <array>
#include <cassert>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

constexpr std::size_t file_limit = 16384;

static std::string with_line(std::string text, const std::string &line, const std::string &value) {
    if (const std::size_t at = text.find(line), begin = at + line.size(); at != text.npos)
        return text.replace(begin, std::min(text.find('\n', begin), text.size()) - begin, value);
    return text + (text.empty() || text.back() != '\n' ? "\n" : "") + line.substr(1) + value + "\n";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static std::string directory = "/tmp/settings.XXXXXX";
    static const bool made = mkdtemp(directory.data()) && setenv("zav_cfg_dir", directory.c_str(), 1) == 0;
    static std::array<char, file_limit> found;
    const std::string input(data, data + size), path = directory + "/ZAV750.dat";
    const std::size_t key_end = input.find('\0'), value_end = input.find('\0', key_end + 1);
    if (value_end <= key_end || value_end + 1 > size || size - value_end > file_limit + 1)
        return 0;
    const std::string key = input.substr(0, std::min(key_end, input.find('\n')));
    const std::string value = input.substr(key_end + 1, value_end - key_end - 1);
    const std::string text = input.substr(value_end + 1), changed = with_line(text, "\n" + key + "=", value);
    assert(made && std::ofstream(path, std::ios::binary) << text);
    const bool holds =
        !key.empty() && key.size() <= 57 && key.find('=') == key.npos && value.find('\n') == key.npos;
    const bool fits = std::max(text.size(), changed.size()) < file_limit;
    const Status expected = !holds || !fits ? failure : changed == text ? unchanged : success;
    assert(nvram_set_str(settings_5g, key, value.c_str()) == expected);
    std::ifstream file(path, std::ios::binary);
    assert(std::string(std::istreambuf_iterator<char>(file), {}) == (expected == success ? changed : text));
    const bool got = nvram_get_str(settings_5g, key, found) == success;
    assert(expected == failure || (got && value == found.data()));
    return 0;
}
