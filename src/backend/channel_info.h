#pragma once

#include "backend/config_store.h"
#include "backend/status.h"

#include <cstdio>
#include <span>
#include <string>
#include <string_view>

// No procedure reaches these; other parts of the platform may call them.
//
// The channel-info file names the channels that a country allows:
//
//   [US]                                   a section for each country code
//   2.4G 20MHz: a(1) b(6) c(11)   # ...    band, bandwidth, channels: any name, the number in parentheses
//
// A section begins with a line whose first character is "[". Inside it leading blanks and tabs do not count,
// nor what follows a "#". Lines may be of any length and end in CR LF.

struct ChannelSearch {
    std::string_view country; // compared over its own length
    std::string_view band;    // "2.4" or "5.2"
    int bandwidth;            // 20 or 40 MHz
};

struct ChannelFault {
    unsigned line; // the first is 1
    const char *message;
    std::string_view argument; // the country, where the message is about it
};

// The first line that fits, as a list that ends with 0: "1,6,11,0". -1 and what is wrong when there is none,
// or when it is malformed; the list is empty then.
Status find_channels(std::FILE *file, const ChannelSearch &search, std::string *ret_list,
                     ChannelFault *ret_fault);

// Takes "OverwriteChannelList" of a band ("2.4" for the 2.4 GHz file, "5.2" for the other) from the
// channel-info file, or removes it where "UseChannelInfo" is 0 or absent. A malformed file is reported and
// gives an empty list; -1 when it, the country or the bandwidth is missing, or the list cannot be stored.
Status ZAV_ChannelsForBandSet(const char *band, const SettingsFile &settings);
// Both bands; the second is not tried when the first fails.
Status ZAV_ParseChannelInfo();
// -1 only when the shell cannot start or the settings are locked.
Status RemoveChannelInfoFromNvram(const SettingsFile &settings);

void makeParsingErrorMessage(std::span<char> ret_text, const char *file, unsigned line, const char *message,
                             std::string_view argument = {});
