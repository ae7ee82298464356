#pragma once

#include <optional>
#include <string>
#include <string_view>

// Texts of the daemon are any bytes: a neighbour or a mistake may have put terminal commands into an SSID.

bool is_utf8(std::string_view text);

// The text fit for a terminal or a log: control characters, marks that turn the direction of writing and
// bytes that are not UTF-8 appear as \xNN, a backslash as two. With `ascii`, so does everything beyond ASCII,
// for terminals that take the bytes of UTF-8 for control characters.
std::string printable(std::string_view text, bool ascii);

// As much of the printable text as so many columns of a terminal hold.
std::string_view cut(std::string_view text, std::size_t columns);

// The text, which is UTF-8, as a string of TOML; what printable() shows as \xNN is \uNNNN there.
std::string toml_string(std::string_view text);

std::string hexadecimal(std::string_view bytes);
// The bytes of such digits, or nothing.
std::optional<std::string> from_hexadecimal(std::string_view digits);
