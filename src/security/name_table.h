#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <type_traits>

// Tables that give names to codes. A code is a number, or the text that stands in the settings file.
template <class Code>
struct Named {
    Code code;
    const char *name;
};

// nullptr where the table lacks the code.
template <class Code, std::size_t size>
const char *find_name(const Named<Code> (&table)[size], std::type_identity_t<Code> code) {
    const auto row =
        std::find_if(std::begin(table), std::end(table), [&](const auto &each) { return each.code == code; });
    return row == std::end(table) ? nullptr : row->name;
}

// nullptr where the table lacks the name.
template <class Code, std::size_t size>
const Code *find_code(const Named<Code> (&table)[size], std::string_view name) {
    const auto row =
        std::find_if(std::begin(table), std::end(table), [&](const auto &each) { return each.name == name; });
    return row == std::end(table) ? nullptr : &row->code;
}
