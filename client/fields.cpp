#include "client/fields.h"

#include "client/text.h"

#include <algorithm>
#include <fmt/format.h>

std::string image_of(const Answer &answer) {
    std::string image = answer.text;
    for (const std::int64_t word : answer.numbers)
        for (unsigned byte = 0; byte < 4; ++byte)
            image += static_cast<char>(word >> 8 * byte & 0xFF);
    return image;
}

std::size_t places_in(std::span<const Field> fields, const Field &field, std::string_view whole) {
    const std::uint64_t counted =
        field.form == Form::table ? number_in(place_of(fields.front(), 0, whole)) : field.places;
    return static_cast<std::size_t>(std::min<std::uint64_t>(counted, field.places));
}

std::string_view place_of(const Field &field, std::size_t place, std::string_view whole) {
    return whole.substr(field.offset + place * field.size, field.size);
}

std::uint64_t number_in(std::string_view place) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < place.size(); ++i)
        value |= std::uint64_t{static_cast<unsigned char>(place[i])} << 8 * i;
    return value;
}

std::int64_t signed_number_in(std::string_view place) {
    const auto unused_bits = 64 - 8 * place.size();
    return static_cast<std::int64_t>(number_in(place) << unused_bits) >> unused_bits;
}

std::string value_in(const Field &field, std::string_view place) {
    switch (field.form) {
    case Form::number:
        return fmt::format("{}", number_in(place));
    case Form::signed_number:
        return fmt::format("{}", signed_number_in(place));
    case Form::text:
        return std::string{place.substr(0, place.find('\0'))};
    case Form::octets:
        return hexadecimal(place);
    case Form::address:
        break;
    default:
        return {};
    }
    std::string shown_address;
    for (const char octet : place)
        shown_address +=
            fmt::format("{}{:02X}", shown_address.empty() ? "" : ":", static_cast<unsigned char>(octet));
    return shown_address;
}
