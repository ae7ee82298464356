#include "backend/config_store.h"

#include "backend/descriptor.h"
#include "backend/interfaces.h"
#include "backend/log.h"
#include "backend/replace_text.h"
#include "backend/text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace {

constexpr char lock_file[] = "/tmp/nvram_set_lock";
constexpr char vlan_file[] = "/tmp/ZAV750vlan.dat";

// Held over each whole get and each whole read-change-write; guards both buffers.
std::mutex store_mutex;
std::array<char, settings_file_limit> stored_text;
std::array<char, settings_file_limit> changed_text;

struct Place {
    std::size_t begin, end;
};

bool is_locked(const char *who) {
    errno = 0;
    if (access(lock_file, F_OK) != 0)
        return false;
    log_error("[ZAV-API] Error %s ZAV750*.dat file is used now, strerror: %s\n", who, strerror(errno));
    return true;
}

// The directory is taken from the environment once and kept.
const char *band_file(bool is_24g) {
    static const char *const directory = std::getenv("zav_cfg_dir");
    static const std::string beginning = directory == nullptr ? "" : directory;
    static const std::string file_5g = beginning + "/ZAV750.dat", file_24g = beginning + "/ZAV75024g.dat";
    if (directory == nullptr)
        return nullptr;
    return is_24g ? file_24g.c_str() : file_5g.c_str();
}

Descriptor open_settings(const char *ifname) {
    const char *path = nullptr;
    if (getNvramPath(ifname, &path) != success)
        return Descriptor(-1);
    const int links = path == vlan_file ? O_NOFOLLOW : 0; // anybody may write beside it
    return Descriptor(open(path, O_RDWR | O_CLOEXEC | O_NONBLOCK | links));
}

std::optional<std::string_view> read_settings(const Descriptor &file) {
    if (!file.valid())
        return std::nullopt;
    std::size_t length = 0;
    for (;;) {
        const ssize_t more = read(file.get(), stored_text.data() + length, stored_text.size() - length);
        if (more < 0)
            return std::nullopt;
        length += static_cast<std::size_t>(more);
        // A text that ends inside a line may have been read short: what is not read would be lost in a set.
        if (more == 0 || length == stored_text.size() || stored_text.at(length - 1) == '\n')
            return std::string_view(stored_text.data(), length);
    }
}

bool is_key(std::string_view key) {
    return !key.empty() && key.size() <= longest_key && key.find_first_of("=\n") == key.npos;
}

bool is_value(const char *value) { return std::strchr(value, '\n') == nullptr; }

// Where the key's value stands. Only a whole key at the start of a line matches, and never the first line.
std::optional<Place> find_value(std::string_view text, std::string_view key) {
    if (!is_key(key))
        return std::nullopt;
    std::array<char, longest_key + 2> pattern;
    pattern[0] = '\n';
    std::copy_n(key.data(), key.size(), pattern.data() + 1);
    pattern[key.size() + 1] = '=';
    const void *line = memmem(text.data(), text.size(), pattern.data(), key.size() + 2);
    if (line == nullptr)
        return std::nullopt;
    const auto begin =
        static_cast<std::size_t>(static_cast<const char *>(line) - text.data()) + key.size() + 2;
    return Place{begin, std::min(text.find('\n', begin), text.size())};
}

// Puts the pieces one after the other into the second buffer; nothing when they reach the limit of a file.
std::optional<std::string_view> join(std::initializer_list<std::string_view> pieces) {
    std::size_t length = 0;
    for (std::string_view piece : pieces) {
        if (piece.size() >= settings_file_limit - length)
            return std::nullopt;
        std::copy_n(piece.data(), piece.size(), changed_text.data() + length);
        length += piece.size();
    }
    return std::string_view(changed_text.data(), length);
}

// A value that closes its line has a line feed of its own before the one that ends the line.
struct Value {
    std::string_view text;
    bool closes_line = false;
    std::string_view closing() const { return closes_line && !text.empty() ? "\n" : ""; }
};

std::optional<std::string_view> with_value(std::string_view text, std::optional<Place> place,
                                           std::string_view key, const Value &value) {
    if (place) {
        std::string_view tail = text.substr(place->end);
        if (value.closes_line && tail.starts_with("\n\n"))
            tail.remove_prefix(1); // the old value's own
        return join({text.substr(0, place->begin), value.text, value.closing(), tail});
    }
    // In an empty file the key would stand in the header line, where it is never found.
    const bool open_line = text.empty() || text.back() != '\n';
    return join({text, open_line ? "\n" : "", key, "=", value.text, value.closing(), "\n"});
}

void say_too_long(const char *who) {
    log_error("[ZAV-API] Error %s settings file would pass %zu bytes\n", who, settings_file_limit - 1);
}

Status store_value(const char *who, Descriptor file, std::string_view key, const Value &value) {
    const auto text = read_settings(file);
    if (!text)
        return failure;
    const auto place = find_value(*text, key);
    const bool is_whole = text->size() < settings_file_limit;
    if (is_whole && place && text->substr(place->begin, place->end - place->begin) == value.text)
        return unchanged;
    const auto changed = with_value(*text, place, key, value);
    if (!is_whole || !changed) {
        say_too_long(who);
        return failure;
    }
    if (!replace_text(file.get(), *text, *changed) || !file.close()) {
        log_error("[ZAV-API] Error %s write failed %s (%d).\n", who, strerror(errno), errno);
        return failure;
    }
    if (place)
        log_debug("[ZAV-API] %s done with SUCCESS\n", who);
    return success;
}

Status set_value(const char *who, const char *ifname, const char *key, const char *text, bool closes_line) {
    const std::lock_guard held(store_mutex);
    const Value value{text, closes_line};
    if (is_locked(who))
        return failure;
    log_debug("[ZAV-API] %s input args: ifname=%s, key=%s, val=%s%s\n", who, ifname, key, text,
              value.closing().data());
    if (!is_key(key)) {
        log_error("[ZAV-API] Error %s key does not fit the settings file\n", who);
        return failure;
    }
    if (!nvram_can_hold(who, text))
        return failure;
    return store_value(who, open_settings(ifname), key, value);
}

} // namespace

Status getNvramPath(const char *ifname, const char **ret_path) {
    *ret_path = ifname[0] == 'v' ? vlan_file : band_file(is_24g_name(ifname));
    return *ret_path == nullptr ? failure : success;
}

Status nvram_get_str(const char *ifname, const char *key, std::span<char> ret_value) {
    log_debug("[ZAV-API] %s input args: ifname=%s, key=%s\n", __func__, ifname, key);
    const std::lock_guard held(store_mutex);
    const auto text = read_settings(open_settings(ifname));
    const auto place = text ? find_value(*text, key) : std::nullopt;
    if (!place)
        return failure;
    copy_text(ret_value, text->substr(place->begin, place->end - place->begin));
    return success;
}

Status nvram_get_int(const char *ifname, const char *key, int *ret_value) {
    std::array<char, 64> text;
    if (nvram_get_str(ifname, key, text) != success || !scan_number(text.data(), ret_value))
        return failure;
    return success;
}

Status nvram_get_whole(const char *ifname, const char *key, std::string *ret_value) {
    ret_value->assign(settings_file_limit, '\0'); // on the heap: a worker's stack is small
    const Status result = nvram_get_str(ifname, key, *ret_value);
    ret_value->resize(std::strlen(ret_value->c_str()));
    return result;
}

Status nvram_set_str(const char *ifname, const char *key, const char *value) {
    return set_value(__func__, ifname, key, value, false);
}

Status nvram_set_closed_str(const char *ifname, const char *key, const char *value) {
    return set_value(__func__, ifname, key, value, true);
}

Status nvram_set_int(const char *ifname, const char *key, int value) {
    std::array<char, 12> text{};
    std::to_chars(text.data(), text.data() + text.size() - 1, value);
    return nvram_set_str(ifname, key, text.data());
}

bool nvram_can_hold(const char *who, const char *value) {
    if (!is_value(value))
        log_error("[ZAV-API] Error %s value does not fit the settings file\n", who);
    return is_value(value);
}

Status nvram_change_by_command(const char *who, const char *ifname, std::string_view text,
                               Status (*change)(const char *who, const char *path)) {
    const std::lock_guard held(store_mutex);
    const char *path = nullptr;
    if (is_locked(who) || getNvramPath(ifname, &path) != success)
        return failure;
    const auto stored = read_settings(open_settings(ifname));
    return stored && stored->find(text) != stored->npos ? change(who, path) : success;
}

bool nvram_can_take(const char *who, const char *ifname, std::span<const Setting> settings) {
    const std::lock_guard held(store_mutex);
    const auto text = read_settings(open_settings(ifname));
    if (!text)
        return false;
    std::size_t length = text->size();
    bool fits = length < settings_file_limit, open_line = !text->ends_with('\n');
    for (const auto &[key, value] : settings) {
        if (const auto place = find_value(*text, key)) {
            length += value.size() - (place->end - place->begin);
        } else {
            length += key.size() + value.size() + (open_line ? 3 : 2);
            open_line = false;
        }
        fits = fits && length < settings_file_limit;
    }
    if (!fits)
        say_too_long(who);
    return fits;
}

unsigned ZAV_nvram_get_uint32_helper(int index, const char *key, unsigned default_value) {
    InterfaceName ifname;
    int value = 0;
    if (GET_IFNAME_FROM_INDEX(&ifname, index, nullptr) != success ||
        nvram_get_int(ifname.data(), key, &value) != success)
        return default_value;
    return static_cast<unsigned>(value);
}

Status ZAV_nvram_set_uint32_helper(int index, const char *key, int value) {
    InterfaceName ifname;
    if (GET_IFNAME_FROM_INDEX(&ifname, index, nullptr) != success)
        return failure;
    return nvram_set_int(ifname.data(), key, value);
}

Status ZAV_nvram_set_str_helper(int index, const char *key, const char *value) {
    InterfaceName ifname;
    if (GET_IFNAME_FROM_INDEX(&ifname, index, nullptr) != success)
        return failure;
    return nvram_set_str(ifname.data(), key, value);
}
