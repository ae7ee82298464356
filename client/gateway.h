#pragma once

#include "client/connection.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// What the gateway has, as far as a run of wlanctl has asked; it is asked once.
struct Gateway {
    std::optional<std::int64_t> entries{};
    std::optional<std::vector<std::string>> names{}; // of the interfaces 1, 2, ...; "" where it is not told
};

// The number of interfaces: the highest index.
Error find_entries(Connection &connection, Gateway &gateway);
// Their names, too.
Error find_names(Connection &connection, Gateway &gateway);

// Whether the driver is initialised: until then, the status of its first interface is empty.
Error find_driver(Connection &connection, bool &ret_is_up);

// The index of an interface of that name, or 0.
std::int64_t index_of(const Gateway &gateway, std::string_view name);
// The name, or the index where no name is known.
std::string name_of(const Gateway &gateway, std::int64_t index);

// The name of a radio's interface of that number, from 0, given any interface of the radio.
std::string name_of_bss(const Gateway &gateway, std::int64_t of_radio, std::size_t number);

// What drives the interface of that name, for people: "2.4 GHz" or "5 GHz".
const char *band_of(std::string_view name);

struct Radio {
    std::string band;                     // for people
    std::vector<std::int64_t> interfaces; // their indexes; the first one stands for the radio
};

// The radios whose interfaces have names.
std::vector<Radio> radios_of(const Gateway &gateway);
