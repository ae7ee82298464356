// The settings store against a line-by-line model of it. Input: key, zero byte, value, zero byte, file.

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

// Where the value begins.
std::size_t find_value(const std::string &text, const std::string &key) {
    for (std::size_t end = text.find('\n'); end != text.npos; end = text.find('\n', end + 1))
        if (key.size() <= 57 && text.compare(end + 1, key.size() + 1, key + "=") == 0)
            return end + key.size() + 2;
    return text.npos;
}

Status set(std::string *text, const std::string &key, const std::string &value) {
    std::string changed = *text;
    if (const std::size_t begin = find_value(*text, key); begin != text->npos)
        changed.replace(begin, std::min(text->find('\n', begin), text->size()) - begin, value);
    else
        changed += (text->empty() || text->back() == '\n' ? "" : "\n") + key + "=" + value + "\n";
    if (key.empty() || key.size() > 57 || key.find('=') != key.npos || value.find('\n') != key.npos)
        return failure;
    if (changed == *text)
        return unchanged;
    if (std::max(text->size(), changed.size()) >= file_limit)
        return failure;
    *text = changed;
    return success;
}

void check_get(const std::string &text, const std::string &key) {
    static std::array<char, file_limit> value;
    const std::size_t begin = find_value(text, key);
    const bool found = nvram_get_str("zv00", key.c_str(), value) == success;
    assert(found == (begin != text.npos));
    assert(!found || value.data() == std::string(text.substr(begin, text.find('\n', begin) - begin).c_str()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const std::string path = make_path();
    const std::string input(data, data + size);
    const std::size_t key_end = input.find('\0'), value_end = input.find('\0', key_end + 1);
    if (value_end <= key_end || value_end == input.npos || size - value_end > file_limit + 1)
        return 0;
    const std::string key = input.substr(0, std::min(key_end, input.find('\n')));
    const std::string value = input.substr(key_end + 1, value_end - key_end - 1);
    std::string text = input.substr(value_end + 1);
    std::ofstream(path, std::ios::binary) << text;
    check_get(text, key);
    const Status expected = set(&text, key, value);
    assert(nvram_set_str("zv00", key.c_str(), value.c_str()) == expected);
    std::ifstream file(path, std::ios::binary);
    assert(text == std::string(std::istreambuf_iterator<char>(file), {}));
    check_get(text, key);
    return 0;
}
