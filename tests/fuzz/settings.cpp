// The settings store against a plain model of it. Input: key, zero byte, value, zero byte, file.

#undef NDEBUG
#include "backend/config_store.h"

#include <array>
#include <cassert>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

constexpr std::size_t file_limit = 16384;

std::string make_path() {
    std::string name = "/tmp/settings.XXXXXX";
    assert(mkdtemp(name.data()) != nullptr && setenv("zav_cfg_dir", name.c_str(), 1) == 0);
    return name + "/ZAV750.dat";
}

Status set(std::string *text, const std::string &key, const std::string &value) {
    const std::string before = *text, line = "\n" + key + "=";
    if (key.empty() || key.size() > 57 || key.find('=') != key.npos || value.find('\n') != key.npos)
        return failure;
    if (const std::size_t at = text->find(line), begin = at + line.size(); at != text->npos)
        text->replace(begin, std::min(text->find('\n', begin), text->size()) - begin, value);
    else
        *text += (text->empty() || text->back() == '\n' ? "" : "\n") + line.substr(1) + value + "\n";
    if (*text == before)
        return unchanged;
    if (std::max(text->size(), before.size()) < file_limit)
        return success;
    *text = before;
    return failure;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const std::string path = make_path();
    static std::array<char, file_limit> found;
    const std::string input(data, data + size);
    const std::size_t key_end = input.find('\0'), value_end = input.find('\0', key_end + 1);
    if (value_end <= key_end || value_end == input.npos || size - value_end > file_limit + 1)
        return 0;
    const std::string key = input.substr(0, std::min(key_end, input.find('\n')));
    const std::string value = input.substr(key_end + 1, value_end - key_end - 1);
    std::string text = input.substr(value_end + 1);
    std::ofstream(path, std::ios::binary) << text;
    const bool has_header = !text.empty();
    const Status expected = set(&text, key, value);
    assert(nvram_set_str("zv00", key.c_str(), value.c_str()) == expected);
    std::ifstream file(path, std::ios::binary);
    assert(text == std::string(std::istreambuf_iterator<char>(file), {}));
    if (nvram_get_str("zv00", key.c_str(), found) == success)
        assert(expected == failure || value == found.data());
    else
        assert(expected == failure || !has_header);
    return 0;
}
