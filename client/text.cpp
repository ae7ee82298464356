#include "client/text.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <iterator>
#include <utf8.h>
#include <wchar.h>

namespace {

struct Character {
    char32_t code;
    std::size_t length; // in bytes; 0 if they are no UTF-8
};

// The character at the beginning of a text that is not empty.
Character first_character(std::string_view text) {
    auto at = text.begin();
    try {
        const char32_t code = utf8::next(at, text.end());
        return {code, static_cast<std::size_t>(at - text.begin())};
    } catch (const utf8::exception &) {
        return {0, 0};
    }
}

struct Range {
    char32_t first, last;
};
constexpr Range unprintable[] = {
    {0x00, 0x1F},     {0x7F, 0x9F},       // control characters
    {0x061C, 0x061C}, {0x200E, 0x200F},   // direction marks
    {0x2028, 0x202E}, {0x2066, 0x2069},   // line separators, direction overrides
    {0xFFF9, 0xFFFB}, {0xE0000, 0xE007F}, // annotations, invisible tags
};

bool is_printable(char32_t code, bool ascii) {
    return !(ascii && code > 0x7E) &&
           std::none_of(std::begin(unprintable), std::end(unprintable),
                        [code](Range r) { return code >= r.first && code <= r.last; });
}

} // namespace

bool is_utf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = first_character(text).length;
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string printable(std::string_view text, bool ascii) {
    std::string shown;
    while (!text.empty()) {
        const auto [code, length] = first_character(text);
        const std::string_view bytes = text.substr(0, std::max<std::size_t>(length, 1));
        if (code == '\\')
            shown += "\\\\";
        else if (length > 0 && is_printable(code, ascii))
            shown += bytes;
        else
            for (const char byte : bytes)
                fmt::format_to(std::back_inserter(shown), "\\x{:02x}", static_cast<unsigned char>(byte));
        text.remove_prefix(bytes.size());
    }
    return shown;
}

std::string_view cut(std::string_view text, std::size_t columns) {
    std::size_t end = 0;
    while (end < text.size()) {
        const auto [code, length] = first_character(text.substr(end));
        const int width = length == 0 ? 1 : wcwidth(static_cast<wchar_t>(code));
        const std::size_t taken = width < 0 ? 1 : static_cast<std::size_t>(width); // -1: the locale lacks it
        if (taken > columns)
            break;
        columns -= taken;
        end += std::max<std::size_t>(length, 1);
    }
    return text.substr(0, end);
}

std::string toml_string(std::string_view text) {
    std::string quoted = "\"";
    while (!text.empty()) {
        const auto [code, length] = first_character(text);
        const std::string_view bytes = text.substr(0, std::max<std::size_t>(length, 1));
        if (code == '"' || code == '\\')
            quoted.append("\\").append(bytes);
        else if (is_printable(code, false))
            quoted += bytes;
        else
            quoted += code > 0xFFFF ? fmt::format("\\U{:08X}", static_cast<std::uint32_t>(code))
                                    : fmt::format("\\u{:04X}", static_cast<std::uint32_t>(code));
        text.remove_prefix(bytes.size());
    }
    return quoted + '"';
}

std::string hexadecimal(std::string_view bytes) {
    std::string shown;
    for (const char byte : bytes)
        fmt::format_to(std::back_inserter(shown), "{:02x}", static_cast<unsigned char>(byte));
    return shown;
}

std::optional<std::string> from_hexadecimal(std::string_view digits) {
    std::string bytes;
    for (; digits.size() >= 2; digits.remove_prefix(2)) {
        unsigned char byte = 0;
        if (std::from_chars(digits.data(), digits.data() + 2, byte, 16).ptr != digits.data() + 2)
            return std::nullopt;
        bytes += static_cast<char>(byte);
    }
    return digits.empty() ? std::optional(bytes) : std::nullopt;
}
