#pragma once

#include "client/connection.h"
#include "client/knowledge.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// The answers that are more than a number or a text, as their bytes: the image of a record, or the words of
// the answer, each as four bytes, the lowest first.

std::string image_of(const Answer &answer);

// A place's own bytes, out of those of the whole.
std::string_view place_of(const Field &field, std::size_t place, std::string_view whole);
// How many places of a field of the whole hold something.
std::size_t places_in(std::span<const Field> fields, const Field &field, std::string_view whole);

std::uint64_t number_in(std::string_view place);
std::int64_t signed_number_in(std::string_view place);

// The value of a place that is no record, as text that may hold any bytes.
std::string value_in(const Field &field, std::string_view place);
