#pragma once

#include "backend/status.h"

#include <span>

// Wi-Fi Protected Setup. It belongs to a radio: any BSS of the radio stands for all. -1 for an index without
// a BSS; setters that end with the settings file answer as it does, 0 written, 2 already stored.

// Whether WPS is enabled in the settings, 1 or 0. Enabling and disabling also tells the driver.
Status ZAV_GetWpsEnable(int index, unsigned *ret_enable);
Status ZAV_SetWpsEnable(int index, unsigned enable);

// A session with a station: by button, by the station's PIN (4 or 8 characters, or 9 of which 8 are
// digits), or none any more. The driver runs it.
Status ZAV_SetWpsPushButton(int index);
Status ZAV_SetWpsPinStart(int index, const char *pin);
Status ZAV_SetWpsCancel(int index);

// The radio's own PIN, of the same form; setting "0" lets the driver make one. `ret_stored` is what was
// stored.
Status ZAV_GetWpsDevicePassword(int index, std::span<char> ret_pin);
Status ZAV_SetWpsDevicePassword(int index, const char *pin, std::span<char> ret_stored);

// 1 or 2 of those that there are.
Status ZAV_GetWpsVersion(int index, unsigned *ret_version);

// The names of methods, separated by commas; the enabled ones end with ",\n". Setting enables those whose
// names occur anywhere in the text.
Status ZAV_GetWpsConfigMethodsSupported(int index, std::span<char> ret_methods);
Status ZAV_GetWpsConfigMethodsEnabled(int index, std::span<char> ret_methods);
Status ZAV_SetWpsConfigMethodsEnabled(int index, const char *methods);

// 1 or 0; the driver alone keeps it.
Status ZAV_GetWpsSetupLock(int index, unsigned *ret_on);
Status ZAV_SetWpsSetupLock(int index, unsigned on);

// "Configured" or "Not configured".
Status ZAV_GetWpsConfigurationState(int index, std::span<char> ret_state);
// "NoError", "DeviceBusy" and so on; -1 for a number without a name.
Status ZAV_GetWpsLastConfigurationError(int index, std::span<char> ret_error);
// How the session stands, and what happened last in it.
Status ZAV_GetWpsResultStatus(int index, std::span<char> ret_state);
Status ZAV_GetWpsStatus(int index, std::span<char> ret_status);

// There is one registrar, number 1; -1 for any other.
Status ZAV_GetWpsRegistrarNumEntries(int index, unsigned *ret_count);
Status ZAV_GetWpsRegistrarEnabled(int index, int registrar, unsigned *ret_enable);
Status ZAV_SetWpsRegistrarEnabled(int index, int registrar, unsigned enable);

// 36 characters, hexadecimal digits with dashes at 8, 13, 18 and 23.
Status ZAV_GetWpsUuid(int index, std::span<char> ret_uuid);
Status ZAV_SetWpsUuid(int index, const char *uuid);

// As the driver tells it; -1 before it is loaded or when its answer names none.
Status ZAV_GetWpsDeviceName(int index, std::span<char> ret_name);

// Back to the state out of the box: WPS reset in the driver, its daemon restarted, WPA2 with the default
// passphrase in the settings. 0 or -1.
Status ZAV_SetWpsOOB(int index);

// Not supported: always -1.
Status ZAV_GetWpsSetupLockedState(int index, std::span<char> ret_state);
Status ZAV_GetWpsRegistrarEstablished(int index, unsigned *ret_count);
Status ZAV_GetWpsRegistrarUuid(int index, int registrar, std::span<char> ret_uuid);
Status ZAV_GetWpsRegistrarDeviceName(int index, int registrar, std::span<char> ret_name);
