#pragma once

#include "backend/status.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

// An access list is stored as two texts, addresses and names: entries joined by ";".

void STR_TO_UPPERCASE(std::span<char> text);

// Whether every character is a hexadecimal digit or ":"; where the colons stand is not looked at. True for
// the empty text.
bool IS_HEX(std::string_view text);

// Splits the text at the separators into tokens, which point into it. Returns how many there are, none in the
// empty text, or -1 when the table is too small for them.
int ParseStringForTok(std::string_view text, std::span<std::string_view> ret_tokens, char separator);

enum class AccessListMode : int {
    append = 0, // the new item behind the tokens
    remove = 1, // the tokens without the one at the position to skip
};

// Joins the tokens of a changed list. -1 for any other mode.
Status BuildAccessListString(std::span<const std::string_view> tokens, std::string *ret_list,
                             AccessListMode mode, std::string_view new_item, std::size_t skipped);
