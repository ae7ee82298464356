#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

// A number of a driver's record: little-endian, at any address. A record made of bytes and of these has no
// padding.
template <class Number>
struct Packed {
    std::array<unsigned char, sizeof(Number)> bytes;

    operator Number() const {
        auto in_host_order = bytes;
        if constexpr (std::endian::native == std::endian::big)
            std::reverse(in_host_order.begin(), in_host_order.end());
        Number number;
        std::memcpy(&number, in_host_order.data(), sizeof number);
        return number;
    }
};
