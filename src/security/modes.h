#pragma once

#include "backend/status.h"

#include <span>

// The 802.11 standard of a radio, and how the stations of a BSS prove who they are and hide what they send.
// Stored only: the driver sees a change at the next restart of the band. Getters answer 0, or -1 for an index
// without a BSS or an absent key; setters 0 written, 2 already stored, -1 refused or failed.

// The letters of the standard in alphabetical order: "b", "bg", "bgn", "an", ... Setting it takes them in any
// order and passes over other characters; -1 for letters that make no standard. "n" alone is the standard of
// the index's band.
Status ZAV_GetStandard(int index, std::span<char> ret_letters);
Status ZAV_SetStandard(int index, const char *letters);

// "BasicandWPAand11i" for any index; it cannot be set (-1).
Status ZAV_GetBeaconType(int index, std::span<char> ret_type);
Status ZAV_SetBeaconType(int index, const char *type);

// "None", "SharedAuthentication", "WepAutoAuthentication"; "NOTBASIC" for a WPA mode, which cannot be set
// here.
Status ZAV_GetBasicAuthenticationModes(int index, std::span<char> ret_mode);
Status ZAV_SetBasicAuthenticationModes(int index, const char *mode);

// "None", "WEPEncryption"; "NOTWEP" for a WPA mode, which cannot be set here.
Status ZAV_GetBasicEncryptionModes(int index, std::span<char> ret_mode);
Status ZAV_SetBasicEncryptionModes(int index, const char *mode);

// The driver's own name of the mode, such as "WPA2PSK". Any text that a list can hold is accepted.
Status ZAV_GetWpaAuthenticationModes(int index, std::span<char> ret_mode);
Status ZAV_SetWpaBasicAuthenticationModes(int index, const char *mode);

// "TKIPEncryption", "AESEncryption", "TKIPandAESEncryption"; -1 for a mode that is none of WPA.
Status ZAV_GetWpaEncryptionModes(int index, std::span<char> ret_mode);
Status ZAV_SetWpaEncryptionModes(int index, const char *mode);
