#pragma once

#include "backend/status.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>

// The settings files: text lines of key, "=" and value behind a header line. The daemon shares them with the
// platform's scripts, so nothing is cached: every call reads the file afresh. Any thread may call.
//
// A file is shorter than 16384 bytes, a key at most 57 characters long; the first line is never a setting and
// the first of repeated keys counts.

enum class Store : unsigned char { band_24g, band_5g, vlan };

// A settings file, and what debug lines call it: an interface of the radio, or "vlan".
struct SettingsFile {
    Store store;
    const char *name;
};
constexpr SettingsFile settings_24g{Store::band_24g, "zvi00"}, settings_5g{Store::band_5g, "zv00"},
    settings_vlan{Store::vlan, "vlan"};

constexpr std::size_t settings_file_limit = 16384; // no value is as long
constexpr std::size_t longest_key = 57;

// The path lives as long as the process. -1 when a band file is asked for and zav_cfg_dir was not set at the
// first look.
Status getNvramPath(Store store, const char **ret_path);

// At the start, before the first change: with STATE_DIRECTORY in the environment, changes are noted in a
// journal there, and one that a kill or a power cut has interrupted is finished. What is amiss is said, and
// no error.
void open_settings_journal();

// 0 and the value, cut at the buffer and terminated; -1 when the file cannot be opened for reading and
// writing or lacks the key. A failed read leaves `ret_value` untouched.
Status nvram_get_str(const SettingsFile &file, std::string_view key, std::span<char> ret_value);
// The same, of any length; empty after a failed read.
Status nvram_get_whole(const SettingsFile &file, std::string_view key, std::string *ret_value);

// The number at the start of the value; -1 and nothing written also where there is none.
Status nvram_get_int(const SettingsFile &file, std::string_view key, int *ret_value);

// 0 written, 2 the stored value is already equal, -1 failure. An absent key is appended. Refused with an
// error line: a key or value that the format cannot hold, a file that is or would become 16384 bytes or
// longer, any write while /tmp/nvram_set_lock exists. A full disk or an I/O error leaves the old text.
Status nvram_set_str(const SettingsFile &file, std::string_view key, const char *value);
Status nvram_set_int(const SettingsFile &file, std::string_view key, int value);

// Several keys of one file that make one setting, stored by one write or not at all: `sets` gets and sets
// them as usual, on a text that is written unless it answers -1. Its answer, or -1 when the write fails. It
// runs with the store held, so it does nothing that waits, and asks for no interface.
Status nvram_set_together(const SettingsFile &file, const std::function<Status()> &sets);
struct KeyText {
    const char *key, *value;
};
Status nvram_set_pair(const SettingsFile &file, const KeyText &first, const KeyText &second);

// Whether the format can hold the value; false with an error line that names `who`. For settings of several
// keys, and for values that the driver is told first.
bool nvram_can_hold(const char *who, const char *value);

// For a change that no set makes, with the store held: `edit` gets the path and the text of the file, which
// is empty when it cannot be read. Where it answers 0, what it has put into `ret_text` is written, unless
// that is nothing. Refused as a set is, with an error line that names `who`.
using Edit = std::function<Status(const char *path, std::string_view text, std::string *ret_text)>;
Status nvram_edit(const char *who, const SettingsFile &file, const Edit &edit);

// Whether the file can take the settings, one after the other: false with an error line that names `who` when
// it would pass its limit, and without a word, as everywhere, when it cannot be read.
struct KeyValue {
    std::string key, value;
};
bool nvram_can_take(const char *who, const SettingsFile &file, std::span<const KeyValue> settings);
