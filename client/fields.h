#pragma once

#include "connection.h"
#include "rpc/protocol.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// The answers that are more than a number or a text, as their bytes: the image of a record, or the words of
// the answer, each as four bytes, the lowest first. A field has the protocol's name; where the protocol does
// not say what a field means, neither does wlanctl.

enum class Form : unsigned char {
    number,        // of 1, 2, 4 or 8 bytes, the lowest first
    signed_number, // likewise
    text,          // up to a zero byte or the end of its place: any bytes
    address,       // a MAC address
    octets,
    record, // fields of its own
    table,  // records, as many as the first field of the whole says
};

struct Field {
    const char *name;
    Form form;
    std::size_t offset, size; // of the first place, in bytes
    const char *unit = "";
    bool column = true;                 // shown where the record is a line of a table
    std::size_t places = 1;             // one behind the other
    std::span<const Field> fields = {}; // of a record, or of each record of a table
    const char *heading = nullptr;      // of its column, where the protocol says more than the name does
};

// None for results that are a code, a number or a text.
std::span<const Field> fields_of(Result result);

std::string image_of(const Answer &answer);

// A place's own bytes, out of those of the whole.
std::string_view place_of(const Field &field, std::size_t place, std::string_view whole);
// How many places of a field of the whole hold something.
std::size_t places_of(std::span<const Field> fields, const Field &field, std::string_view whole);

std::uint64_t number_in(std::string_view place);
std::int64_t signed_number_in(std::string_view place);

// The value of a place that is no record, as text that may hold any bytes.
std::string value_in(const Field &field, std::string_view place);
