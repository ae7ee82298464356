#pragma once

#include "client/error.h"
#include "client/gateway.h"
#include "client/settings.h"

#include <string>
#include <vector>

// A file of settings, in TOML: [radio.zvi00] has the settings of a radio, [bss.zvi01] those of a BSS, each
// under the name that `wlanctl get` takes. What there is several of is a table by number: { 1 = 3, 2 = 7 }. A
// text that is not UTF-8 is { hex = "ff00" }.

// The value as it stands there.
std::string written(const Value &value);
// A name as it stands there.
std::string written_name(const std::string &name);

// What stands there and is no setting of this gateway.
struct Stranger {
    std::string place, name, why;
};

struct SettingsFile {
    std::vector<Item> items{};
    std::vector<Stranger> strangers{};
};

// Reads the file, or standard input for "-". The names of the gateway are known.
Error read_settings_file(const std::string &path, const Gateway &gateway, SettingsFile &ret_file);
