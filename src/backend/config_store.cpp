#include "backend/config_store.h"

#include "backend/descriptor.h"
#include "backend/journal.h"
#include "backend/log.h"
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
#include <unistd.h>
#include <utility>

namespace {

constexpr char lock_file[] = "/tmp/nvram_set_lock";
constexpr char vlan_file[] = "/tmp/ZAV750vlan.dat";

// Held over each whole get and each whole read-change-write; guards both buffers. Recursive for the gets and
// sets of a change of several keys.
std::recursive_mutex store_mutex;
std::array<char, settings_file_limit> stored_text;
std::array<char, settings_file_limit> changed_text;

// The file whose keys are set together, while they are.
struct SharedText {
    Store store;
    std::optional<std::string> text;
};
SharedText *shared_text = nullptr;

// Where a value stands in the text of a file.
struct Range {
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
const char *band_file(Store band) {
    static const char *const directory = std::getenv("zav_cfg_dir");
    static const std::string beginning = directory == nullptr ? "" : directory;
    static const std::string file_5g = beginning + "/ZAV750.dat", file_24g = beginning + "/ZAV75024g.dat";
    if (directory == nullptr)
        return nullptr;
    return band == Store::band_24g ? file_24g.c_str() : file_5g.c_str();
}

Descriptor open_settings(const SettingsFile &file) {
    const char *path = nullptr;
    errno = ENOENT;
    if (getNvramPath(file.store, &path) != success)
        return Descriptor(-1);
    const int links = path == vlan_file ? O_NOFOLLOW : 0; // anybody may write beside it
    return Descriptor(open(path, O_RDWR | O_CLOEXEC | O_NONBLOCK | links));
}

// The whole text for a set: what is not read would be lost. A file of the limit or more is cut at it. The
// length is asked for by lseek(): fstat() costs more, and because it tells the times, too, the file system
// has to note the next change's time anew, which costs as much as the change.
std::optional<std::string_view> read_whole_settings(const Descriptor &file) {
    std::size_t length = 0;
    ssize_t more = 0;
    do {
        more = pread(file.get(), stored_text.data() + length, stored_text.size() - length,
                     static_cast<off_t>(length));
        const off_t whole = more < 0 ? -1 : lseek(file.get(), 0, SEEK_END);
        if (whole < 0)
            return std::nullopt;
        length += static_cast<std::size_t>(more);
        if (length == stored_text.size() || std::cmp_equal(length, whole))
            return std::string_view(stored_text.data(), length);
    } while (more > 0);
    errno = EIO;
    return std::nullopt;
}

std::optional<std::string_view> read_settings(const Descriptor &file) {
    std::size_t length = 0;
    for (;;) {
        const ssize_t more = read(file.get(), stored_text.data() + length, stored_text.size() - length);
        if (more < 0)
            return std::nullopt;
        length += static_cast<std::size_t>(more);
        // A text that ends inside a line may have been read short.
        if (more == 0 || length == stored_text.size() || stored_text.at(length - 1) == '\n')
            return std::string_view(stored_text.data(), length);
    }
}

bool is_shared(const SettingsFile &file) {
    return shared_text != nullptr && shared_text->store == file.store;
}

std::optional<std::string_view> text_for_get(const SettingsFile &file) {
    return is_shared(file) ? shared_text->text : read_settings(open_settings(file));
}

void log_get(const SettingsFile &file, std::string_view key) {
    log_debug("[ZAV-API] nvram_get_str input args: ifname=%s, key=%.*s\n", file.name,
              static_cast<int>(key.size()), key.data());
}

// Whether no text can be had because something else is in the file's place, or the VLAN file is not there: a
// start of the machine takes that away, and the platform makes it anew. Any other failure may pass, such as
// that of a radio's file whose directory is not mounted yet, and the change can be finished then.
bool is_gone(Store store, int error) {
    constexpr int something_else[] = {ELOOP, EISDIR, ENXIO, ESPIPE}; // the last two: a socket, a FIFO
    return (store == Store::vlan && error == ENOENT) ||
           std::find(std::begin(something_else), std::end(something_else), error) != std::end(something_else);
}

Finished finish_change_of(Store store) {
    const Descriptor file = open_settings({store, ""});
    const auto text = file.valid() ? read_whole_settings(file) : std::nullopt;
    if (text)
        return finish_change(store, file.get(), *text);
    return is_gone(store, errno) ? Finished::rewritten : Finished::failed;
}

// Before the file's next change, one that was cut off is finished. False after an error line.
bool settle(const char *who, Store store) {
    if (!is_interrupted(store))
        return true;
    if (is_locked(who))
        return false;
    Finished finished = finish_change_of(store);
    const int error = errno;
    const char *path = nullptr;
    if (getNvramPath(store, &path) != success)
        path = "settings";
    errno = error;
    if (finished == Finished::rewritten) {
        log_error("[ZAV-API] Error %s a change of %s was cut off, and the file rewritten since\n", who, path);
        finished = forget_change(store) ? Finished::yes : Finished::failed;
    }
    if (finished == Finished::failed)
        log_error("[ZAV-API] Error %s a change of %s was cut off and cannot be finished: %s\n", who, path,
                  strerror(errno));
    return finished == Finished::yes;
}

bool is_key(std::string_view key) {
    const auto ends_it = [](char c) { return c == '=' || c == '\n'; };
    return !key.empty() && key.size() <= longest_key && std::none_of(key.begin(), key.end(), ends_it);
}

bool is_value(const char *value) { return std::strchr(value, '\n') == nullptr; }

// Where the key's value stands. Only a whole key at the start of a line matches, and never the first line.
std::optional<Range> find_value(std::string_view text, std::string_view key) {
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
    return Range{begin, std::min(text.find('\n', begin), text.size())};
}

// In the buffer of the store, which the caller holds.
std::optional<std::string_view> find_stored(const SettingsFile &file, std::string_view key) {
    const auto text = text_for_get(file);
    const auto place = text ? find_value(*text, key) : std::nullopt;
    return place ? std::optional(text->substr(place->begin, place->end - place->begin)) : std::nullopt;
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

std::optional<std::string_view> with_value(std::string_view text, std::optional<Range> place,
                                           std::string_view key, std::string_view value) {
    if (place)
        return join({text.substr(0, place->begin), value, text.substr(place->end)});
    // In an empty file the key would stand in the header line, where it is never found.
    const bool open_line = text.empty() || text.back() != '\n';
    return join({text, open_line ? "\n" : "", key, "=", value, "\n"});
}

void say_too_long(const char *who) {
    log_error("[ZAV-API] Error %s settings file would pass %zu bytes\n", who, settings_file_limit - 1);
}

Status write_text(const char *who, Store store, Descriptor file, std::string_view from, std::string_view to) {
    if (change_text(store, file.get(), from, to) && file.close())
        return success;
    log_error("[ZAV-API] Error %s write failed %s (%d).\n", who, strerror(errno), errno);
    return failure;
}

Status store_value(const char *who, const SettingsFile &file, std::string_view key, std::string_view value) {
    Descriptor opened = is_shared(file) ? Descriptor(-1) : open_settings(file);
    const std::optional<std::string_view> text =
        is_shared(file) ? shared_text->text : read_whole_settings(opened);
    if (!text)
        return failure;
    const auto place = find_value(*text, key);
    const bool is_whole = text->size() < settings_file_limit;
    if (is_whole && place && text->substr(place->begin, place->end - place->begin) == value)
        return unchanged;
    const auto changed = with_value(*text, place, key, value);
    if (!is_whole || !changed) {
        say_too_long(who);
        return failure;
    }
    Status written = success;
    if (is_shared(file))
        shared_text->text = *changed;
    else
        written = write_text(who, file.store, std::move(opened), *text, *changed);
    if (written == success && place)
        log_debug("[ZAV-API] %s done with SUCCESS\n", who);
    return written;
}

} // namespace

Status getNvramPath(Store store, const char **ret_path) {
    *ret_path = store == Store::vlan ? vlan_file : band_file(store);
    return *ret_path == nullptr ? failure : success;
}

void open_settings_journal() {
    const std::lock_guard held(store_mutex);
    const std::string directory = first_directory("STATE_DIRECTORY");
    if (directory.empty())
        return;
    if (!open_journal(directory.c_str())) {
        log_error("[ZAV-API] Error %s no journal in %s: %s\n", __func__, directory.c_str(), strerror(errno));
        return;
    }
    for (const Store store : {Store::band_24g, Store::band_5g, Store::vlan})
        (void)settle(__func__, store); // what cannot be done now is tried before the file's next change
}

Status nvram_get_str(const SettingsFile &file, std::string_view key, std::span<char> ret_value) {
    log_get(file, key);
    const std::lock_guard held(store_mutex);
    const auto value = find_stored(file, key);
    if (!value)
        return failure;
    copy_text(ret_value, *value);
    return success;
}

Status nvram_get_int(const SettingsFile &file, std::string_view key, int *ret_value) {
    std::array<char, 64> text;
    if (nvram_get_str(file, key, text) != success || !scan_number(text.data(), ret_value))
        return failure;
    return success;
}

Status nvram_get_whole(const SettingsFile &file, std::string_view key, std::string *ret_value) {
    log_get(file, key);
    const std::lock_guard held(store_mutex);
    const auto value = find_stored(file, key);
    ret_value->assign(value ? value->substr(0, value->find('\0')) : "");
    return value ? success : failure;
}

Status nvram_set_str(const SettingsFile &file, std::string_view key, const char *value) {
    const std::lock_guard held(store_mutex);
    if (is_locked(__func__) || !settle(__func__, file.store))
        return failure;
    log_debug("[ZAV-API] %s input args: ifname=%s, key=%.*s, val=%s\n", __func__, file.name,
              static_cast<int>(key.size()), key.data(), value);
    if (!is_key(key)) {
        log_error("[ZAV-API] Error %s key does not fit the settings file\n", __func__);
        return failure;
    }
    if (!nvram_can_hold(__func__, value))
        return failure;
    return store_value(__func__, file, key, value);
}

Status nvram_set_int(const SettingsFile &file, std::string_view key, int value) {
    std::array<char, 12> text{};
    std::to_chars(text.data(), text.data() + text.size() - 1, value);
    return nvram_set_str(file, key, text.data());
}

Status nvram_set_together(const SettingsFile &file, const std::function<Status()> &sets) {
    const std::lock_guard held(store_mutex);
    if (!settle("nvram_set_str", file.store))
        return failure; // as each of the sets would be
    Descriptor settings = open_settings(file);
    const std::optional<std::string> text(read_whole_settings(settings));
    SharedText shared{file.store, text};
    shared_text = &shared;
    const Status result = sets();
    shared_text = nullptr;
    if (result == failure || shared.text == text)
        return result;
    return write_text("nvram_set_str", file.store, std::move(settings), *text, *shared.text) == success
               ? result
               : failure;
}

Status nvram_set_pair(const SettingsFile &file, const KeyText &first, const KeyText &second) {
    return nvram_set_together(file, [&] {
        const Status stored = nvram_set_str(file, first.key, first.value);
        if (stored == failure)
            return failure;
        return code_of_two(stored, nvram_set_str(file, second.key, second.value));
    });
}

bool nvram_can_hold(const char *who, const char *value) {
    if (!is_value(value))
        log_error("[ZAV-API] Error %s value does not fit the settings file\n", who);
    return is_value(value);
}

Status nvram_edit(const char *who, const SettingsFile &file, const Edit &edit) {
    const std::lock_guard held(store_mutex);
    const char *path = nullptr;
    if (is_locked(who) || !settle(who, file.store) || getNvramPath(file.store, &path) != success)
        return failure;
    Descriptor settings = open_settings(file);
    const auto text = read_whole_settings(settings);
    std::string changed;
    const Status edited = edit(path, text.value_or(""), &changed);
    if (edited != success || changed.empty())
        return edited;
    if (!text)
        return failure;
    if (std::max(text->size(), changed.size()) >= settings_file_limit) {
        say_too_long(who);
        return failure;
    }
    return write_text(who, file.store, std::move(settings), *text, changed);
}

bool nvram_can_take(const char *who, const SettingsFile &file, std::span<const KeyValue> settings) {
    const std::lock_guard held(store_mutex);
    const auto text = text_for_get(file);
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
