#pragma once

#include "backend/status.h"

#include <span>

// The 802.11 standard of a radio and the security modes of a BSS, by the names that security/modes.h gives.
// Stored only. Getters 0 or -1; setters 0 written, 2 already stored, -1 refused or failed.

Status wlan_getStandard(int index, std::span<char> ret_letters);
Status wlan_setStandard(int index, const char *letters);
Status wlan_getBeaconType(int index, std::span<char> ret_type);
Status wlan_setBeaconType(int index, const char *type);
Status wlan_getBasicAuthenticationModes(int index, std::span<char> ret_mode);
Status wlan_setBasicAuthenticationModes(int index, const char *mode);
Status wlan_getBasicEncryptionModes(int index, std::span<char> ret_mode);
Status wlan_setBasicEncryptionModes(int index, const char *mode);
Status wlan_getWpaAuthenticationModes(int index, std::span<char> ret_mode);
Status wlan_setWpaBasicAuthenticationModes(int index, const char *mode);
Status wlan_getWpaEncryptionModes(int index, std::span<char> ret_mode);
Status wlan_setWpaEncryptionModes(int index, const char *mode);
