#pragma once

#include "backend/interfaces.h"
#include "backend/status.h"

#include <array>

// What the radio knows of WPS. The order is that of the driver's answer.
struct WscInfo {
    int ConfMode;
    unsigned ConfigMethods; // bits, see wps_methods
    int UseUPnP;
    std::array<char, 8> Mode;
    int ConfStatus; // 2: configured
    std::array<char, 12> PinCode;
    int State;
    int Status;
    std::array<char, 52> Uuid;
    unsigned Version; // 1 or 2 of those that there are
    unsigned LastConfigError;
    int SetupLock;
    int ConfigTimeout; // seconds
};

// WPS belongs to a radio, whose first BSS stands for it: its index, its interface, and field 1 of its lists.
struct WpsRadio {
    int first_index;
    Bss first;
};
Status find_wps_radio(int index, WpsRadio *ret_radio);

// From the driver while the band of the index runs, else from the settings file. -1 for an index without a
// BSS, and for an answer or settings that lack a part; the parts before it are filled in.
Status ZAV_parseWscInfoCommand(int index, WscInfo *ret_info);

// The driver's answer: a word for each field, in order; a text is cut at its field. -1 for fewer words, and
// for one that is not what its place asks for or has more than 50 characters.
Status parse_wsc_info(const char *who, const char *answer, WscInfo *ret_info);
