#pragma once

#include "backend/status.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

// The settings files: text lines of key, "=" and value behind a header line. The daemon shares them with the
// platform's scripts, so nothing is cached: every call reads the file afresh. Any thread may call.
//
// The interface name picks the file: "vlan" (first character 'v') the VLAN file, a third character 'i' the
// 2.4 GHz file, anything else the 5 GHz file. A file is shorter than 16384 bytes, a key at most 57 characters
// long; the first line is never a setting and the first of repeated keys counts.

constexpr std::size_t settings_file_limit = 16384; // no value is as long
constexpr std::size_t longest_key = 57;

// The path lives as long as the process. -1 when a band file is asked for and zav_cfg_dir was not set at the
// first look.
Status getNvramPath(const char *ifname, const char **ret_path);

// 0 and the value, cut at the buffer and terminated; -1 when the file cannot be opened for reading and
// writing or lacks the key. A failed read leaves `ret_value` untouched.
Status nvram_get_str(const char *ifname, const char *key, std::span<char> ret_value);
// The same, of any length; empty after a failed read.
Status nvram_get_whole(const char *ifname, const char *key, std::string *ret_value);

// The number at the start of the value; -1 and nothing written also where there is none.
Status nvram_get_int(const char *ifname, const char *key, int *ret_value);

// 0 written, 2 the stored value is already equal, -1 failure. An absent key is appended. Refused with an
// error line: a key or value that the format cannot hold, a file that is or would become 16384 bytes or
// longer, any write while /tmp/nvram_set_lock exists. A full disk or an I/O error leaves the old text.
Status nvram_set_str(const char *ifname, const char *key, const char *value);
// The same with a line feed of the value's own before the one that ends its line, but for an empty value.
Status nvram_set_closed_str(const char *ifname, const char *key, const char *value);
Status nvram_set_int(const char *ifname, const char *key, int value);

// Whether the format can hold the value; false with an error line that names `who`. For settings of several
// keys, and for values that the driver is told first.
bool nvram_can_hold(const char *who, const char *value);

// For a change that a command makes: calls `change` with the path of the file and the store held, when the
// file has `text` in it. 0 when it has not. Refused under the lock as a set is, with an error line that names
// `who`.
Status nvram_change_by_command(const char *who, const char *ifname, std::string_view text,
                               Status (*change)(const char *who, const char *path));

// Whether the file can take the settings, one after the other: false with an error line that names `who` when
// it would pass its limit, and without a word, as everywhere, when it cannot be read.
struct Setting {
    std::string key, value;
};
bool nvram_can_take(const char *who, const char *ifname, std::span<const Setting> settings);

// Getting and setting by interface index (see interfaces.h). An index without an interface answers the
// default, or -1.
unsigned ZAV_nvram_get_uint32_helper(int index, const char *key, unsigned default_value);
Status ZAV_nvram_set_uint32_helper(int index, const char *key, int value);
Status ZAV_nvram_set_str_helper(int index, const char *key, const char *value);
