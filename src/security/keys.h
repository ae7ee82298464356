#pragma once

#include "backend/status.h"

#include <span>

// The keys of a BSS: four WEP keys, and one pre-shared key or passphrase of WPA. Stored only: the driver sees
// a change at the next restart of the band. Getters answer 0, or -1 for an index without a BSS or an absent
// key; setters 0 written, 2 already stored, -1 refused or failed.

// Which WEP key is used, 1 to 4.
Status ZAV_GetWepKeyIndex(int index, unsigned *ret_key_index);
Status ZAV_SetWepKeyIndex(int index, unsigned key_index);

// "40-bit" or "104-bit", of the WEP key that is used.
Status ZAV_GetWepEncryptionLevel(int index, std::span<char> ret_level);
Status ZAV_SetWepEncryptionLevel(int index, const char *level);

// A WEP key, 1 to 4: 5 characters or 10 hexadecimal digits at 40 bits, 13 or 26 at 104 bits. What does not
// fit the stored level is refused.
Status ZAV_GetWepKey(int index, int key_index, std::span<char> ret_key);
Status ZAV_SetWepKey(int index, int key_index, const char *key);
// The WEP key that is used.
Status ZAV_GetWepKeyPassphrase(int index, std::span<char> ret_key);
Status ZAV_SetWepKeyPassphrase(int index, const char *key);

// The key of WPA, a single one (`key_index` 1): a pre-shared key of 64 characters, or a passphrase of 8
// to 63. Both names read whichever is stored.
Status ZAV_GetPreSharedKey(int index, int key_index, std::span<char> ret_key);
Status ZAV_SetPreSharedKey(int index, int key_index, const char *key);
Status ZAV_GetKeyPassphrase(int index, int key_index, std::span<char> ret_passphrase);
Status ZAV_SetKeyPassphrase(int index, int key_index, const char *passphrase);
