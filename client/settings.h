#pragma once

#include "client/connection.h"
#include "client/gateway.h"
#include "client/knowledge.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The settings of a gateway as a whole: all that can be read and set back.

// A getter and the setter of the same.
struct Setting {
    std::string_view name; // as in `wlanctl get NAME`
    const Procedure *get, *set;
    const Procedure *clear = nullptr; // of a list: empties it; `set` then adds an entry
    Limits keys{};                    // numbers of what a place has several of: keys, access categories, ...
    unsigned rank = 0;                // those of a lower rank are set before
};

enum class Scope : unsigned char { gateway, radio, bss };

Scope scope_of(const Setting &setting);
// "radio", as in a file of settings.
const char *name_of(Scope scope);

// All of them, by area.
const std::vector<Setting> &settings();
// What the description says of the value that the setter takes.
const ValueMeaning &meaning_of(const Setting &setting);
// The kind of that value.
Kind kind_of(const Setting &setting);

// A setting at its place, and its value there.
struct Item {
    const Setting *setting = nullptr;
    std::int64_t index = 0; // of the interface; 0: the gateway
    std::optional<std::int64_t> key{};
    std::optional<Value> value{}; // none: the daemon answered failure
};

// Whether the value is the same.
bool is_equal(const Item &one, const Item &other);

// Where settings are: the gateway, a radio by its first interface, a BSS.
struct Place {
    Scope scope;
    std::int64_t index;
};

// Those of a gateway of which the names are known; with an index, the BSS and its radio.
std::vector<Place> places_of(const Gateway &gateway, std::int64_t index = 0);

// The settings there, without values.
void add_items(const Place &place, std::vector<Item> &items);

// Asks for the values of all of them at once.
Error read_values(Connection &connection, std::vector<Item> &items);

// Why the value cannot be set; empty: it can.
std::string obstacle(const Item &item);

// The calls that set it, in their order.
std::vector<Question> calls_of(const Item &item);

// Whether a second name sets the same: it is left out where all settings are copied.
bool is_second_name(const Setting &setting);
