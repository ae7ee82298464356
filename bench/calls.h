#pragma once

#include "rpc/protocol.h"

// The calls that are measured. The bare server answers them under the daemon's own numbers, so that the load
// client sends the same bytes to all.
namespace calls {

constexpr unsigned null = 0;
constexpr unsigned get_fallback = 54; // one number out of the settings file
constexpr unsigned set_fallback = 55; // a boolean: its text keeps its length
constexpr unsigned set_rekey = 161;   // a number: its text may change its length

static_assert(find_procedure(get_fallback)->name == "wlan_get_auto_rate_fallback_enable" &&
              find_procedure(set_fallback)->name == "wlan_set_auto_rate_fallback_enable" &&
              find_procedure(set_rekey)->name == "wlan_set_wpa_group_reauth_interval");

} // namespace calls
