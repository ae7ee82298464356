#pragma once

#include "client/terminal.h"

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>

// A picture of a band in text: the channels across, the signal up, a letter for each neighbour on the channel
// that its record names, strongest first, and which letter is whom. How wide a neighbour's channel is no
// record tells, so none is drawn wider than its own.
struct Band {
    std::string name;      // "2.4 GHz" has the channels 1 to 13; others have those that occur
    Json neighbours;       // the entries of a survey
    std::int64_t own = -1; // channel, marked as such; -1: not known
};

// Lines no longer than `width`, of ASCII but for the names of networks; channels that do not fit stand in a
// picture below. The own channel is bold where standard output takes that.
std::string chart_of(const Band &band, std::size_t width);
