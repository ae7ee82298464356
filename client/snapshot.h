#pragma once

#include "client/connection.h"
#include "client/terminal.h"

#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <string_view>
#include <tuple>
#include <vector>

// Many readings of a gateway at one moment, asked at once. A reading that the daemon refuses, or does not
// answer in time, is not there, and takes no other with it.
class Snapshot {
public:
    // To be asked by the next `take`: wlan_get_ and the name. `more` is the second argument where it has one.
    void want(std::string_view name, std::int64_t index, std::int64_t more = 0);

    // Asks for what was wanted. An error only where the daemon cannot be reached or answers none of it, or
    // after Ctrl-C.
    Error take(Connection &connection);

    // What `value_of` makes of the answer, or null.
    const Json &value(std::string_view name, std::int64_t index, std::int64_t more = 0) const;
    // A field of a record, or null.
    const Json &field(std::string_view name, std::int64_t index, const char *key) const;
    // A number that is a switch, as true or false, or null.
    Json is_on(std::string_view name, std::int64_t index) const;
    // Whether the interface is up; null where that is not known.
    Json is_up(std::int64_t index) const;

private:
    std::vector<Question> wanted_{};
    std::map<std::tuple<std::string, std::int64_t, std::int64_t>, Json> values_{};
};
