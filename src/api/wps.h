#pragma once

#include "backend/status.h"

#include <span>

// Wi-Fi Protected Setup of the radio that the index belongs to; security/wps.h tells what each is. Getters
// answer 0 or -1; setters and actions 0, 2 where the settings already held the value, or -1.

Status wlan_getWpsEnable(int index, unsigned *ret_enable);
Status wlan_setWpsEnable(int index, unsigned enable);
// The same as WpsEnable.
Status wlan_getWpsMode(int index, unsigned *ret_enable);
Status wlan_setWpsMode(int index, unsigned enable);
Status wlan_setWpsCancel(int index);
Status wlan_getWpsDeviceName(int index, std::span<char> ret_name);
// The device name again.
Status wlan_getWpsModelName(int index, std::span<char> ret_name);
// The model name cannot be changed: -1 for every input, with an error line.
Status wlan_setWpsModelName(int index, const char *name);
Status wlan_getWpsDevicePassword(int index, std::span<char> ret_pin);
Status wlan_setWpsDevicePassword(int index, const char *pin);
Status wlan_getWpsUuid(int index, std::span<char> ret_uuid);
Status wlan_setWpsUuid(int index, const char *uuid);
Status wlan_getWpsVersion(int index, unsigned *ret_version);
Status wlan_getWpsConfigMethodsSupported(int index, std::span<char> ret_methods);
Status wlan_getWpsConfigMethodsEnabled(int index, std::span<char> ret_methods);
Status wlan_setWpsConfigMethodsEnabled(int index, const char *methods);
Status wlan_getWpsSetupLockedState(int index, std::span<char> ret_state);
Status wlan_getWpsSetupLock(int index, unsigned *ret_on);
Status wlan_setWpsSetupLock(int index, unsigned on);
Status wlan_getWpsConfigurationState(int index, std::span<char> ret_state);
Status wlan_getWpsLastConfigurationError(int index, std::span<char> ret_error);
Status wlan_getWpsResultStatus(int index, std::span<char> ret_state);
Status wlan_getWpsStatus(int index, std::span<char> ret_status);
Status wlan_getWpsRegistrarNumEntries(int index, unsigned *ret_count);
Status wlan_getWpsRegistrarEstablished(int index, unsigned *ret_count);
Status wlan_getWpsRegistrarEnabled(int index, int registrar, unsigned *ret_enable);
Status wlan_setWpsRegistrarEnabled(int index, int registrar, unsigned enable);
Status wlan_getWpsRegistrarUuid(int index, int registrar, std::span<char> ret_uuid);
Status wlan_getWpsRegistrarDeviceName(int index, int registrar, std::span<char> ret_name);
Status wlan_setWpsPushButton(int index);
Status wlan_setWpsPinStart(int index, const char *pin);
Status wlan_setWpsOOB(int index);

// As the driver takes it, default 120000. Getting always answers 0.
Status wlan_getWpsConfigTimeout(int index, unsigned *ret_timeout);
Status wlan_setWpsConfigTimeout(int index, unsigned timeout);
