#pragma once

#include "backend/status.h"

#include <span>

// The RADIUS servers of a BSS, for authentication and for accounting. The 802.1X daemon reads these settings
// when it starts; nothing here restarts it. Every operation answers -1 for an index without a BSS and for an
// absent setting; setters answer 0 written, 2 already stored, -1 failure.

// Dotted IPv4, at most 15 characters; "1.1.1.1" stands for no server. Setting "", "0" or "0.0.0.0" stores
// "1.1.1.1"; any other text that isIpAddressValid refuses is refused. `ret_stored` is what was stored.
Status ZAV_GetRadiusServerAddress(int index, std::span<char> ret_address);
Status ZAV_SetRadiusServerAddress(int index, const char *address, std::span<char> ret_stored);

// Set from 1 to 65535, and 0 stores 1; read as it is stored.
Status ZAV_GetRadiusServerPort(int index, unsigned *ret_port);
Status ZAV_SetRadiusServerPort(int index, unsigned port);

// At most 64 characters are read; any text without a line feed is stored.
Status ZAV_GetRadiusServerKey(int index, std::span<char> ret_key);
Status ZAV_SetRadiusServerKey(int index, const char *key);

// Seconds: 0, or 60 and more.
Status ZAV_GetRadiusReAuthInterval(int index, unsigned *ret_interval);
Status ZAV_SetRadiusReAuthInterval(int index, unsigned interval);

// The same for accounting. At most 49 characters of the address are read.
Status ZAV_GetAcctServerAddress(int index, std::span<char> ret_address);
Status ZAV_SetAcctServerAddress(int index, const char *address, std::span<char> ret_stored);
Status ZAV_GetAcctServerPort(int index, unsigned *ret_port);
Status ZAV_SetAcctServerPort(int index, unsigned port);

// Unlike the other key this one is a field of a list: at most 31 characters are read, and a text with ";" or
// a line feed is refused.
Status ZAV_GetAcctServerKey(int index, std::span<char> ret_key);
Status ZAV_SetAcctServerKey(int index, const char *key);

// 1 for four groups of one to three digits with dots between them, whatever their values; else 0, with an
// error line.
int isIpAddressValid(const char *text);
