#pragma once

#include <array>
#include <cstdio>

// The address of a station or an access point.
using MacBytes = std::array<unsigned char, 6>;
using MacText = std::array<char, 18>; // "00:1A:2B:3C:4D:5E"

inline MacText text_of(const MacBytes &mac) {
    MacText text;
    std::snprintf(text.data(), text.size(), "%02X:%02X:%02X:%02X:%02X:%02X", mac[0], mac[1], mac[2], mac[3],
                  mac[4], mac[5]);
    return text;
}
