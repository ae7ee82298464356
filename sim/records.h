// The driver's binary answers, written as readable text files.
//
// A line is a list of fields OFFSET/TYPE=VALUE: TYPE 1, 2, 4 or 8 is an integer of that many bytes in host
// order, and VALUE may then be a list "1,2,3" for consecutive places; "mac" is a MAC address; "str" is a
// text with \xNN for what a line cannot hold, blanks included. Lines that begin with '#' say nothing.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace sim {

struct Layout {
    std::size_t size;            // of the whole answer; it begins as zeros
    std::size_t stride = 0;      // of a record, where each line is one; 0: every line fills the one record
    std::size_t count_width = 0; // of the number of records at the beginning, 1 or 4
};

// Lines past the last record that fits are not sent. What cannot be understood or lies outside its record
// is left out and told in the log as "bad NAME OFFSET/TYPE=VALUE".
std::string build_answer(const std::string &name, std::string_view text, const Layout &layout);

} // namespace sim
