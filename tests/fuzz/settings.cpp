// The settings store against a line-by-line model of it. Input: key, zero byte, value, zero byte, file.

#include "backend/config_store.h"

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

constexpr std::size_t file_limit = 16384;

std::string make_path() {
    std::string name = "/tmp/settings.XXXXXX";
    if (mkdtemp(name.data()) == nullptr || setenv("zav_cfg_dir", name.c_str(), 1) != 0)
        std::abort();
    return name + "/ZAV750.dat";
}

// Where the value begins.
std::size_t find_value(const std::string &text, const std::string &key) {
    for (std::size_t end = text.find('\n'); end != text.npos; end = text.find('\n', end + 1))
        if (text.compare(end + 1, key.size() + 1, key + "=") == 0)
            return end + key.size() + 2;
    return text.npos;
}

Status set(std::string *text, const std::string &key, const std::string &value) {
    std::string changed = *text;
    if (const std::size_t begin = find_value(*text, key); begin != text->npos)
        changed.replace(begin, std::min(text->find('\n', begin), text->size()) - begin, value);
    else
        changed += (text->empty() || text->back() == '\n' ? "" : "\n") + key + "=" + value + "\n";
    if (key.empty() || key.size() > 57 || (key + value).find('\n') != key.npos || key.find('=') != key.npos)
        return failure;
    if (changed == *text)
        return unchanged;
    if (std::max(text->size(), changed.size()) >= file_limit)
        return failure;
    *text = changed;
    return success;
}

void must(bool holds) {
    if (!holds)
        std::abort();
}

void check_get(const std::string &text, const std::string &key) {
    static char value[file_limit];
    const bool found = nvram_get_str("zv00", key.c_str(), value) == success;
    const std::size_t begin = key.size() > 57 ? text.npos : find_value(text, key);
    must(found == (begin != text.npos));
    must(!found || value == std::string(text.substr(begin, text.find('\n', begin) - begin).c_str()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const std::string path = make_path();
    const std::string input(data, data + size);
    const std::size_t key_end = input.find('\0'), value_end = input.find('\0', key_end + 1);
    if (key_end == input.npos || value_end == input.npos || size - value_end > file_limit)
        return 0;
    const std::string key = input.substr(0, input.find_first_of(std::string("\n\0", 2)));
    const std::string value = input.substr(key_end + 1, value_end - key_end - 1);
    std::string text = input.substr(value_end + 1);
    std::ofstream(path, std::ios::binary) << text;
    check_get(text, key);
    const Status expected = set(&text, key, value);
    must(nvram_set_str("zv00", key.c_str(), value.c_str()) == expected);
    std::ifstream file(path, std::ios::binary);
    must(text == std::string(std::istreambuf_iterator<char>(file), {}));
    check_get(text, key);
    return 0;
}
