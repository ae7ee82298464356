#pragma once

#include "backend/status.h"

#include <span>

// The keys of a BSS; see security/keys.h for their forms. Stored only. Getters 0 or -1; setters 0 written, 2
// already stored, -1 refused or failed.

Status wlan_getWepKeyIndex(int index, unsigned *ret_key_index);
Status wlan_setWepKeyIndex(int index, unsigned key_index);
Status wlan_getWepEncryptionLevel(int index, std::span<char> ret_level);
Status wlan_setWepEncryptionLevel(int index, const char *level);
Status wlan_getWepKey(int index, int key_index, std::span<char> ret_key);
Status wlan_setWepKey(int index, int key_index, const char *key);
Status wlan_getWepKeyPassphrase(int index, std::span<char> ret_key);
Status wlan_setWepKeyPassphrase(int index, const char *key);
Status wlan_getPreSharedKey(int index, int key_index, std::span<char> ret_key);
Status wlan_setPreSharedKey(int index, int key_index, const char *key);
Status wlan_getKeyPassphrase(int index, int key_index, std::span<char> ret_passphrase);
Status wlan_setKeyPassphrase(int index, int key_index, const char *passphrase);
