#pragma once

#include "rpc/protocol.h"

// The calls that are measured. The bare server answers them under the daemon's own numbers, so that the load
// client sends the same bytes to all.
namespace calls {

constexpr unsigned null = 0;
constexpr unsigned get_fallback =
    find_procedure("wlan_get_auto_rate_fallback_enable")->number; // one number out of the settings file
constexpr unsigned set_fallback =
    find_procedure("wlan_set_auto_rate_fallback_enable")->number; // a boolean: its text keeps its length
constexpr unsigned set_rekey =
    find_procedure("wlan_set_wpa_group_reauth_interval")->number; // a number: its text may change its length

} // namespace calls
