#pragma once

#include "backend/status.h"

#include <span>

// The RADIUS servers of a BSS (see security/radius.h). Getters answer 0 or -1; setters 0 written, 2 already
// stored, -1 failure. The 802.1X daemon sees a change when it is restarted.

// Dotted IPv4; "1.1.1.1" stands for no server.
Status wlan_getRadiusServerAddress(int index, std::span<char> ret_address);
Status wlan_setRadiusServerAddress(int index, const char *address);
Status wlan_getAcctServerAddress(int index, std::span<char> ret_address);
Status wlan_setAcctServerAddress(int index, const char *address);

Status wlan_getRadiusServerPort(int index, unsigned *ret_port);
Status wlan_setRadiusServerPort(int index, unsigned port);
Status wlan_getAcctServerPort(int index, unsigned *ret_port);
Status wlan_setAcctServerPort(int index, unsigned port);

// Up to 64 characters, for accounting up to 31.
Status wlan_getRadiusServerKey(int index, std::span<char> ret_key);
Status wlan_setRadiusServerKey(int index, const char *key);
Status wlan_getAcctServerKey(int index, std::span<char> ret_key);
Status wlan_setAcctServerKey(int index, const char *key);

Status wlan_getRadiusReAuthInterval(int index, unsigned *ret_interval);
Status wlan_setRadiusReAuthInterval(int index, unsigned interval);
