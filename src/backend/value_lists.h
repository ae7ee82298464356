#pragma once

#include "backend/status.h"

#include <array>

// Settings that hold a field for each BSS of a band: one key whose value is a list of fields separated by
// ";". After any change the list has 16 fields. BSS numbers count from 1; one above 16 answers -1.

constexpr unsigned list_fields = 16;
using NumberList = std::array<int, list_fields>;

// The numbers up to the first field that is none, zeros behind them; -1 when the key is absent.
Status read_number_list(const char *ifname, const char *key, NumberList *ret_list);

// The field of one BSS. Writing: as nvram_set_str.
Status read_list_number(const char *ifname, const char *key, unsigned bss, int *ret_value);
Status write_list_number(const char *ifname, const char *key, unsigned bss, int value);

// Replaces the field of one BSS; the other fields keep their texts, whatever they are, and missing ones
// become empty. A text with ";" or a line feed would shift the fields of other BSSes and is refused with an
// error line that names `who`.
Status write_list_text(const char *who, const char *ifname, const char *key, unsigned bss, const char *text);
