#pragma once

#include <algorithm>
#include <array>
#include <cstdlib>
#include <span>
#include <string_view>

// Copies what fits and always terminates; a buffer of no bytes takes nothing.
inline void copy_text(std::span<char> to, std::string_view from) {
    if (to.empty())
        return;
    const std::size_t length = std::min(from.size(), to.size() - 1);
    std::copy_n(from.data(), length, to.data());
    to[length] = '\0';
}

// A number as sscanf's %d finds it at `text`, or its %i with base 0; 32-bit values of either sign keep all
// their bits. `*ret_end` is left where the number ends. False when no number stands there.
inline bool scan_number(const char *text, int *ret_value, const char **ret_end = nullptr, int base = 10) {
    char *end = nullptr;
    const long long value = std::strtoll(text, &end, base);
    if (end == text)
        return false;
    *ret_value = static_cast<int>(value);
    if (ret_end != nullptr)
        *ret_end = end;
    return true;
}
