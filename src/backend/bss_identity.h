#pragma once

#include "backend/status.h"

#include <cstdint>
#include <span>

// "Up", "Disabled", or "Error" where the driver refuses to say; -1 before the driver is initialised, for an
// index without a BSS, or without a socket.
Status ZAV_GetStatus(int index, std::span<char> ret_status);

// The SSID of a BSS, up to 32 characters. -1 for an index without a BSS or an absent key.
Status ZAV_GetSSID(int index, std::span<char> ret_ssid);
// 0 written, 2 the first 32 characters are already stored, -1 failure. The driver sees it at the next
// restart.
Status ZAV_SetSSID(int index, const char *ssid);

// The BSSID, derived from the radio's base address and the BSS number: by locally administered addresses
// where "MbssidByLAM" is 1, by the last octet where it is 0. An octet above 0xFF has three digits. -1 for an
// index without a BSS and, from the second BSS on, without a rule or a base address.
Status ZAV_GetBSSID(int index, std::span<char> ret_bssid);

// The index of the BSS with that BSSID, upper or lower case; the port is always 0. -1 when there is none.
Status ZAV_GetBSSIDPort(const char *bssid, unsigned *ret_port, unsigned *ret_index);

// (Clients and logs know it by this name.) Puts the BSS with that BSSID into the VLAN: its slot, the members
// of the slot, the port's VLAN id. 0 or -1.
Status ZAV_AssocitaleVlan(const char *bssid, std::uint16_t vlan);
