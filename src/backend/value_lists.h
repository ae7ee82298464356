#pragma once

#include "backend/config_store.h"
#include "backend/status.h"

#include <array>
#include <span>
#include <string_view>

// Settings that hold a field for each BSS of a band: one key whose value is a list of fields separated by
// ";". After any change the list has 16 fields. BSS numbers count from 1; one above 16 answers -1.

constexpr unsigned list_fields = 16;
using NumberList = std::array<int, list_fields>;

// The numbers up to the first field that is none, zeros behind them; -1 when the key is absent. Writing: as
// nvram_set_str. Lists of any length: 16 fields for the BSSes, 4 for access categories, 13 for channels.
void parse_numbers(const char *list, std::span<int> ret_numbers);
Status read_numbers(const SettingsFile &file, std::string_view key, std::span<int> ret_numbers);
Status write_numbers(const SettingsFile &file, std::string_view key, std::span<const int> numbers);

// The number of one BSS. Writing makes the list one of numbers: what stands behind a field that is none
// becomes 0.
Status read_list_number(const SettingsFile &file, std::string_view key, unsigned bss, int *ret_value);
Status write_list_number(const SettingsFile &file, std::string_view key, unsigned bss, int value);
// Writes nothing, not even a short list in full, where the field holds the value already: 2.
Status change_list_number(const SettingsFile &file, std::string_view key, unsigned bss, int value);

// The text of one BSS, cut at the buffer; -1 when the key is absent. An unbroken list ends at its first empty
// field, for reader and writer: fields behind the gap read as empty, and any change stores them so.
Status read_list_text(const SettingsFile &file, std::string_view key, unsigned bss, std::span<char> ret_text);
Status read_unbroken_list_text(const SettingsFile &file, std::string_view key, unsigned bss,
                               std::span<char> ret_text);

// Whether a list can hold the text: one with ";" or a line feed would shift the fields of other BSSes.
bool fits_list(const char *text);

// Replaces the text of one BSS; the other fields keep theirs, whatever they are, and missing ones become
// empty. A text that does not fit is refused with an error line that names `who`; in an unbroken list an
// empty one too.
Status write_list_text(const char *who, const SettingsFile &file, std::string_view key, unsigned bss,
                       const char *text);
Status write_unbroken_list_text(const char *who, const SettingsFile &file, std::string_view key, unsigned bss,
                                const char *text);
