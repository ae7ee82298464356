#pragma once

#include "backend/status.h"

#include <span>

// The SSID of a BSS, up to 32 characters. Setting it shows at the next restart of the interfaces.
Status wlan_getSSID(int index, std::span<char> ret_ssid);
Status wlan_setSSID(int index, const char *ssid);
