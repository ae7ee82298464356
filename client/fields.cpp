#include "fields.h"

#include "rpc/records.h"
#include "text.h"

#include <algorithm>
#include <cstddef>
#include <fmt/format.h>

namespace {

using enum Form;
constexpr bool shown = true, hidden = false;

constexpr Field titled(Field field, const char *heading) {
    field.heading = heading;
    return field;
}

constexpr Field port_and_index[] = {{"port", number, 0, 4}, {"index", number, 4, 4}};

constexpr Field basic_stats[] = {
    {"bytes_sent", number, offsetof(wlan_basicStats_t, bytes_sent), 4, "bytes"},
    {"bytes_received", number, offsetof(wlan_basicStats_t, bytes_received), 4, "bytes"},
    {"packets_sent", number, offsetof(wlan_basicStats_t, packets_sent), 4, "packets"},
    {"packets_received", number, offsetof(wlan_basicStats_t, packets_received), 4, "packets"},
    {"associations", number, offsetof(wlan_basicStats_t, associations), 4, "stations"},
};

constexpr Field stats[] = {
    {"errors_sent", number, offsetof(wlan_stats_t, errors_sent), 4, "errors"},
    {"errors_received", number, offsetof(wlan_stats_t, errors_received), 4, "errors"},
    {"unicast_packets_sent", number, offsetof(wlan_stats_t, unicast_packets_sent), 4, "packets"},
    {"unicast_packets_received", number, offsetof(wlan_stats_t, unicast_packets_received), 4, "packets"},
    {"discard_packets_sent", number, offsetof(wlan_stats_t, discard_packets_sent), 4, "packets"},
    {"discard_packets_received", number, offsetof(wlan_stats_t, discard_packets_received), 4, "packets"},
    {"multicast_packets_sent", number, offsetof(wlan_stats_t, multicast_packets_sent), 4, "packets"},
    {"multicast_packets_received", number, offsetof(wlan_stats_t, multicast_packets_received), 4, "packets"},
    {"broadcast_packets_sent", number, offsetof(wlan_stats_t, broadcast_packets_sent), 4, "packets"},
    {"broadcast_packets_received", number, offsetof(wlan_stats_t, broadcast_packets_received), 4, "packets"},
    {"unknown_protocol_packets_received", number, offsetof(wlan_stats_t, unknown_protocol_packets_received),
     4, "packets"},
};

constexpr Field channel_statistics[] = {
    {"cst", number, 0, 4}, {"ap_activity", number, 4, 4}, {"busy_time", number, 8, 4}};

constexpr Field noise_floor[] = {{"minimum", signed_number, 0, 4},
                                 {"maximum", signed_number, 4, 4},
                                 {"median", signed_number, 8, 4},
                                 {"average", signed_number, 12, 4}};

constexpr Field packet_count[] = {{"packets", number, 0, 8, "packets"}};

constexpr Field rssi_table[] = {{"rssi", signed_number, 0, 8, "", shown, 37}};

constexpr Field device[] = {
    titled({"mac_address", text, offsetof(wlan_device_t, mac_address), 18}, "MAC address"),
    titled({"ip_address", text, offsetof(wlan_device_t, ip_address), 64}, "IP address"),
    titled({"group_list", text, offsetof(wlan_device_t, group_list), 45}, "vendor prefixes"),
    titled({"text_field", text, offsetof(wlan_device_t, text_field), 17}, "capability bits"),
    titled({"counter1", number, offsetof(wlan_device_t, counter1), 4}, "class"),
    {"counter2", number, offsetof(wlan_device_t, counter2), 4, "", hidden},
    {"counter3", number, offsetof(wlan_device_t, counter3), 4, "", hidden},
    {"counter4", number, offsetof(wlan_device_t, counter4), 4, "", hidden},
    {"counter5", number, offsetof(wlan_device_t, counter5), 4, "", hidden},
    {"rssi", signed_number, offsetof(wlan_device_t, rssi), 4, "dBm"},
    {"counter6", number, offsetof(wlan_device_t, counter6), 4, "", hidden},
    {"counter7", number, offsetof(wlan_device_t, counter7), 4, "", hidden},
    {"short_value", number, offsetof(wlan_device_t, short_value), 2, "", hidden},
    {"counter8", number, offsetof(wlan_device_t, counter8), 4, "", hidden},
    {"counter9", number, offsetof(wlan_device_t, counter9), 4, "", hidden},
    {"counter10", number, offsetof(wlan_device_t, counter10), 4, "", hidden},
    titled({"byte_value", number, offsetof(wlan_device_t, byte_value), 1}, "BSS from 0"),
    {"int_value1", signed_number, offsetof(wlan_device_t, int_value1), 4, "", hidden},
    {"int_value2", signed_number, offsetof(wlan_device_t, int_value2), 4, "", hidden},
    titled({"name_field", text, offsetof(wlan_device_t, name_field), 32}, "name"),
};

constexpr Field device_table[] = {
    {"count", number, offsetof(wlan_assoc_devices_table, count), 4},
    {"devices", table, offsetof(wlan_assoc_devices_table, devices), sizeof(wlan_device_t), "", shown,
     std::extent_v<decltype(wlan_assoc_devices_table::devices)>, device},
};

constexpr Field neighbour[] = {
    {"bssid", address, offsetof(scan_entry, bssid), 6},
    {"ssid", text, offsetof(scan_entry, ssid), 32},
    {"octets1", octets, offsetof(scan_entry, octets1), 12, "", hidden},
    {"byte1", number, offsetof(scan_entry, byte1), 1, "", hidden},
    {"octets2", octets, offsetof(scan_entry, octets2), 12, "", hidden},
    {"byte2", number, offsetof(scan_entry, byte2), 1, "", hidden},
    {"octets3", octets, offsetof(scan_entry, octets3), 15, "", hidden},
    {"byte3", number, offsetof(scan_entry, byte3), 1},
    {"byte4", number, offsetof(scan_entry, byte4), 1},
    {"text1", text, offsetof(scan_entry, text1), 6},
    {"char1", signed_number, offsetof(scan_entry, char1), 1},
    {"text2", text, offsetof(scan_entry, text2), 15},
    {"text3", text, offsetof(scan_entry, text3), 8},
    {"text4", text, offsetof(scan_entry, text4), 8},
    {"number", signed_number, offsetof(scan_entry, number), 4},
    {"byte5", number, offsetof(scan_entry, byte5), 1},
};

constexpr Field scan_result[] = {
    {"count", number, offsetof(scan_table, count), 1},
    {"entries", table, offsetof(scan_table, entries), sizeof(scan_entry), "", shown,
     std::extent_v<decltype(scan_table::entries)>, neighbour},
};

constexpr Field air_time_stats[] = {{"set_a", number, 0, 4, "", shown, 2},
                                    {"set_b", number, 8, 4, "", shown, 2}};

constexpr Field frames_in_queue[] = {{"planes", number, 0, 4, "", shown, 4}};

constexpr Field rate[] = {{"value1", number, 0, 8},
                          {"value2", number, 8, 8},
                          {"value3", number, 16, 8},
                          {"value4", number, 24, 8},
                          {"value5", number, 32, 8}};

constexpr Field rate_data[] = {
    {"value1", number, offsetof(RateData, value1), 8},
    {"value2", number, offsetof(RateData, value2), 8},
    {"rates", record, offsetof(RateData, rates), sizeof(SchSRateAdaptPERStats), "", shown,
     std::extent_v<decltype(RateData::rates)>, rate},
};

constexpr Field air_time_information[] = {
    {"totals", number, offsetof(BSSAirTimeManagementInfo, totals), 8, "", shown, 16},
    {"values", number, offsetof(BSSAirTimeManagementInfo, values), 8, "", shown, 128},
    {"shares", number, offsetof(BSSAirTimeManagementInfo, shares), 8, "%", shown, 16},
};

} // namespace

std::span<const Field> fields_of(Result result) {
    switch (result) {
    case Result::port_and_index:
        return port_and_index;
    case Result::basic_stats:
        return basic_stats;
    case Result::stats:
        return stats;
    case Result::channel_statistics:
        return channel_statistics;
    case Result::noise_floor:
        return noise_floor;
    case Result::packet_count:
        return packet_count;
    case Result::rssi_table:
        return rssi_table;
    case Result::device:
        return device;
    case Result::device_table:
        return device_table;
    case Result::scan_result:
        return scan_result;
    case Result::air_time_stats:
        return air_time_stats;
    case Result::frames_in_queue:
        return frames_in_queue;
    case Result::rate_data:
        return rate_data;
    case Result::air_time_information:
        return air_time_information;
    default:
        return {};
    }
}

std::string image_of(const Answer &answer) {
    std::string image = answer.text;
    for (const std::int64_t word : answer.numbers)
        for (unsigned byte = 0; byte < 4; byte++)
            image += static_cast<char>(word >> 8 * byte & 0xFF);
    return image;
}

std::size_t places_of(std::span<const Field> fields, const Field &field, std::string_view whole) {
    const std::uint64_t counted =
        field.form == table ? number_in(place_of(fields.front(), 0, whole)) : field.places;
    return std::min<std::uint64_t>(counted, field.places);
}

std::string_view place_of(const Field &field, std::size_t place, std::string_view whole) {
    return whole.substr(field.offset + place * field.size, field.size);
}

std::uint64_t number_in(std::string_view place) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < place.size(); i++)
        value |= std::uint64_t{static_cast<unsigned char>(place[i])} << 8 * i;
    return value;
}

std::int64_t signed_number_in(std::string_view place) {
    const auto unused_bits = 64 - 8 * place.size();
    return static_cast<std::int64_t>(number_in(place) << unused_bits) >> unused_bits;
}

std::string value_in(const Field &field, std::string_view place) {
    switch (field.form) {
    case number:
        return fmt::format("{}", number_in(place));
    case signed_number:
        return fmt::format("{}", signed_number_in(place));
    case text:
        return std::string{place.substr(0, place.find('\0'))};
    case octets:
        return hexadecimal(place);
    case address:
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
