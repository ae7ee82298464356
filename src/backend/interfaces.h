#pragma once

#include "backend/config_store.h"
#include "backend/driver_state.h"
#include "backend/status.h"

#include <array>

// The interface index names a BSS: 1 to N24 are the BSSes of the 2.4 GHz radio (zvi00, zvi01, ...), N24+1 to
// N24+N5 those of the 5 GHz radio (zv00, zv01, ...).

enum class Radio : unsigned char { band_24g, band_5g };

constexpr bool includes(Radios radios, Radio radio) {
    return radios == Radios::both ||
           radios == (radio == Radio::band_24g ? Radios::only_24g : Radios::only_5g);
}
// What the platform's scripts call them.
constexpr const char *script_word(Radios radios) {
    return radios == Radios::only_24g ? "24g" : radios == Radios::only_5g ? "5g" : "dual";
}
constexpr const char *script_word(Radio radio) { return radio == Radio::band_24g ? "24g" : "5g"; }

using InterfaceName = std::array<char, 16>; // zeros behind the name: the driver's requests carry it whole

// What an index stands for; its settings are those of its radio.
struct Bss {
    Radio radio;
    unsigned number; // within the radio, from 1; the lists and keys of its settings count by it
    InterfaceName name;

    operator SettingsFile() const {
        return {radio == Radio::band_24g ? Store::band_24g : Store::band_5g, name.data()};
    }
};
// -1 and nothing written for an index without a BSS; the second says so in a debug line that names `who`.
Status find_bss(int index, Bss *ret_bss);
Status find_bss(const char *who, int index, Bss *ret_bss);

// Looks up what is not known.
BssCounts refresh_counts();

// Always 0.
Status ZAV_GetNumberOfEntries(unsigned *ret_count);

// The first and the last index of the radio of `index`; -1 for an index without a BSS or a null pointer.
Status ZAV_GetNumberOfEntriesPerInf(unsigned *ret_first, unsigned *ret_last, int index);

// 0 for an index that names a BSS, else -1 with a debug line, which names `who` or isIndexValid.
Status isIndexValid(int index);
Status check_index(const char *who, int index);

// The driver's interface name and, where asked for, the BSS number; -1 and nothing written for an index that
// names no BSS.
Status GET_IFNAME_FROM_INDEX(InterfaceName *ret_name, int index, unsigned *ret_bss);
// The same with the name of the radio's air-time interface, "atm24g" or "atm5g".
Status GET_ATM_IFNAME_FROM_INDEX(InterfaceName *ret_name, int index, unsigned *ret_bss);
// For operations that need a running driver: -1 before it is initialised.
Status ZAV_getIfNameByIndex(int index, Bss *ret_bss);

// 1 or 0, with a debug line.
int ZAV_is24g(const Bss &bss);
