#pragma once

#include "backend/status.h"

#include <array>
#include <atomic>
#include <string_view>

// The interface index names a BSS: 1 to N24 are the BSSes of the 2.4 GHz radio (zvi00, zvi01, ...), N24+1 to
// N24+N5 those of the 5 GHz radio (zv00, zv01, ...). The BSS number counts from 1 within the band.

using InterfaceName = std::array<char, 16>;

// Which radios the driver was loaded for: 24, 5, or 245 for both.
inline std::atomic<unsigned> InterfacesUp{245};

// Cached counts of BSSes; 0 is not known yet and looked up again at every use.
inline std::atomic<unsigned> BssidNumZvi00{0};
inline std::atomic<unsigned> BssidNumZv00{0};
constexpr unsigned most_bss_in_a_band = 64;

// Both counts as they are now.
struct BssCounts {
    unsigned on_24g, on_5g;
    unsigned total() const { return on_24g + on_5g; }
};
BssCounts refresh_counts();

// The driver is loaded for these radios; forgets the count of the other one. Then the stop: forgets both. A
// look-up that runs meanwhile does not bring an old count back.
void set_interfaces_up(unsigned band);
void forget_counts();

// Always 0.
Status ZAV_GetNumberOfEntries(unsigned *ret_count);

// The first and the last index of the band of `index`; -1 for an index without a BSS or a null pointer.
Status ZAV_GetNumberOfEntriesPerInf(unsigned *ret_first, unsigned *ret_last, int index);

// 0 for an index that names a BSS, else -1 with a debug line, which names `who` or isIndexValid.
Status isIndexValid(int index);
Status check_index(const char *who, int index);

// The driver's interface name and, where asked for, the BSS number; -1 and nothing written for an index
// that names no BSS. The whole name is written, since the driver's requests carry it whole.
Status GET_IFNAME_FROM_INDEX(InterfaceName *ret_name, int index, unsigned *ret_bss);

// Where the settings of a BSS stand: its interface, and its number in the lists and keys of its band. -1 with
// the debug line of check_index.
struct Bss {
    InterfaceName ifname;
    unsigned number;
};
Status find_bss(const char *who, int index, Bss *ret_bss);
// As GET_IFNAME_FROM_INDEX with the name of the radio's air-time interface, "atm24g" or "atm5g".
Status GET_ATM_IFNAME_FROM_INDEX(InterfaceName *ret_name, int index, unsigned *ret_bss);
// The same for operations that need a running driver: -1 before it is initialised.
Status ZAV_getIfNameByIndex(int index, InterfaceName *ret_name);

// The third character of the name tells the band.
constexpr bool is_24g_name(std::string_view ifname) { return ifname.size() > 2 && ifname[2] == 'i'; }
// The same with a debug line; 1 or 0.
int ZAV_is24g(const char *ifname);
int ZAV_is5g(const char *ifname);

// Which driver interfaces the system has now: 0 none, 24, 5, 245 both, -1 when the shell cannot run.
int GET_RUNNING_INTERFACES();
// 1 when the band of `index` has interfaces now, else 0.
int isInterfacesRunningOnBand(int index);
