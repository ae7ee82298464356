#pragma once

#include "backend/status.h"

#include <span>

// The access list of a BSS (see security/access_list.h). Getters answer 0 or -1; setters 0 done, 2 nothing to
// do, -1 failure.

// 0, 1 or 2.
Status wlan_getMacAddressControlEnabled(int index, unsigned *ret_policy);
Status wlan_setMacAddressControlEnabled(int index, unsigned policy);

Status wlan_setMacAddressControlClear(int index);
Status wlan_setMacAddressControlAdd(int index, const char *mac, const char *name);
Status wlan_setMacAddressControlDelete(int index, const char *mac);

// "MAC=name;" for each entry, at most 3,199 characters.
Status wlan_getMacAddressControlList(int index, std::span<char> ret_list);
Status wlan_getMacAddressControlCount(int index, unsigned *ret_count);
