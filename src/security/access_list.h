#pragma once

#include "backend/status.h"

#include <span>

// The stations that a BSS lets in or keeps out: a policy, and up to 64 MAC addresses, each with a name. A
// running driver is told of every change; what it answers is ignored, the settings file is what counts. A
// missing list is told by an error line and counts as empty.

// 0, 1 or 2, whose meaning is the driver's. -1 for anything else stored, or nothing.
Status ZAV_GetMacAddressControlEnabled(int index, unsigned *ret_policy);
// 0 written, 2 already stored, -1 failure.
Status ZAV_SetMacAddressControlEnabled(int index, unsigned policy);

// Empties the list. 0 or -1.
Status ZAV_SetMacAddressControlClear(int index);

// Adds a station: 17 hexadecimal digits or colons, stored in upper case, and a name of at most 30 characters
// without ";" and line feed, which may be empty. 0 added; 2 the address stands in the list already; -1
// failure: a bad address or name, a full list, no room. When the numbers of addresses and names differ, the
// address is added and the answer is -1. `ret_stored` is the address in upper case.
Status ZAV_SetMacAddressControlAdd(int index, const char *mac, const char *name, std::span<char> ret_stored);

// 0 deleted, 2 the address is not in the list, -1 failure. When the numbers of addresses and names differ,
// the address is deleted and the answer is -1.
Status ZAV_SetMacAddressControlDelete(int index, const char *mac, std::span<char> ret_stored);

// "AA:BB:CC:DD:EE:01=tv;AA:BB:CC:DD:EE:02=phone;", at most 3,199 characters. -1 for a list that is longer or
// corrupted.
Status ZAV_GetMacAddressControlList(int index, std::span<char> ret_list);

// The number of addresses; -1 for more than 64.
Status ZAV_GetMacAddressControlCount(int index, unsigned *ret_count);
