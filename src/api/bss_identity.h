#pragma once

#include "backend/status.h"

#include <cstdint>
#include <span>

// "Up", "Disabled" or "Error"; -1 before the driver is initialised.
Status wlan_getStatus(int index, std::span<char> ret_status);

// The BSSID as text, such as "00:00:5E:00:53:20"; an octet above 0xFF has three digits.
Status wlan_getBSSID(int index, std::span<char> ret_bssid);

// The index of the BSS with that BSSID; the port is always 0. 0 or -1.
Status wlan_getBssIdPort(const char *bssid, unsigned *ret_port, unsigned *ret_index);

// Puts the BSS with that BSSID into the VLAN. 0 or -1.
Status wlan_associateVlan(const char *bssid, std::uint16_t vlan);

// The SSID of a BSS, up to 32 characters. Setting it shows at the next restart of the interfaces.
Status wlan_getSSID(int index, std::span<char> ret_ssid);
Status wlan_setSSID(int index, const char *ssid);
