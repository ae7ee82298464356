#pragma once

#include "backend/status.h"

#include <span>

// The SSID of a BSS, up to 32 characters. -1 for an index without a BSS or an absent key.
Status ZAV_GetSSID(int index, std::span<char> ret_ssid);
// 0 written, 2 the first 32 characters are already stored, -1 failure. The driver sees it at the next
// restart.
Status ZAV_SetSSID(int index, const char *ssid);
