#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

// Copies what fits and always terminates; a buffer of no bytes takes nothing.
inline void copy_text(std::span<char> to, std::string_view from) {
    if (to.empty())
        return;
    const std::size_t length = std::min(from.size(), to.size() - 1);
    std::copy_n(from.data(), length, to.data());
    to[length] = '\0';
}

// The directory that a variable of the environment names, the first of several as systemd lists them; empty
// without the variable.
inline std::string first_directory(const char *variable) {
    const char *named = std::getenv(variable);
    const std::string_view all = named == nullptr ? "" : named;
    return std::string(all.substr(0, all.find(':')));
}

// Takes the next word that blanks set apart off the text; empty at its end.
inline std::string_view take_word(std::string_view *text) {
    constexpr std::string_view blanks = " \t\n\v\f\r";
    text->remove_prefix(std::min(text->find_first_not_of(blanks), text->size()));
    const std::string_view word = text->substr(0, text->find_first_of(blanks));
    text->remove_prefix(word.size());
    return word;
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
