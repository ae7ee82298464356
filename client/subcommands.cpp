#include "client/subcommands.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

constexpr Flag force{"--force", "send also what makes no sense", &Options::force};
constexpr Flag dry_run{"--dry-run", "show the calls and send nothing that changes anything",
                       &Options::dry_run};
constexpr Flag with_restart{"--restart", "restart what the change needs, once, and wait", &Options::restart};
constexpr Flag yes{"--yes", "reset settings also on a terminal", &Options::yes};
constexpr Flag chart{"--chart", "draw the band in place of the table", &Options::chart};
constexpr Flag interval{"--interval", "seconds from one look to the next", nullptr, &Options::interval};

constexpr Flag of_calls[] = {force, dry_run, yes};
constexpr Flag of_get[] = {force};
constexpr Flag of_set[] = {force, dry_run, with_restart, yes};
constexpr Flag of_resets[] = {yes};
constexpr Flag of_import[] = {
    force,
    dry_run,
    with_restart,
    {"--all-or-nothing", "put everything back after a failure", &Options::all_or_nothing}};
constexpr Flag of_batch[] = {
    dry_run, {"--keep-going", "run the lines behind one that failed, too", &Options::keep_going}};
constexpr char file_meaning[] = "of settings, or - for standard input";
constexpr Flag of_scan[] = {force, chart};
constexpr Flag of_watch[] = {interval, chart};

constexpr char interface[] = "the interface, by its number or its name";

constexpr char any_of_radio[] = "any interface of the radio, by its number or its name";
constexpr char procedure[] = "of the procedure, with or without wlan_";

constexpr Subcommand subcommand_table[] = {
    {"list",
     "List the procedures",
     Takes::one_at_most,
     "WORD",
     "a part of the name or the summary",
     {},
     "wlanctl list ssid\nwlanctl --json list",
     list},
    {"describe",
     "Show what a procedure takes and answers",
     Takes::one,
     "NAME",
     "of the procedure, with or without wlan_, or a word of what it does",
     {},
     "wlanctl describe set_ssid\nwlanctl --json describe wlan_get_channel",
     describe},
    {"call", "Call a procedure", Takes::several, "NAME", procedure, of_calls,
     "wlanctl call get_number_of_entries\nwlanctl call set_mac_address_control_add zvi01 AA:BB:CC:DD:EE:01 "
     "tv",
     call},
    {"get", "Read a setting: calls wlan_get_NAME", Takes::several, "NAME",
     "of the setting: wlanctl list get_ has them all", of_get,
     "wlanctl get ssid 2\nwlanctl --json get channel zv00", get},
    {"set", "Change a setting: calls wlan_set_NAME", Takes::several, "NAME",
     "of the setting: wlanctl list set_ has them all", of_set,
     "wlanctl set ssid zvi01 \"My Net\"\nwlanctl set channel zv00 36 --restart", set},
    {"up",
     "Load and initialise the driver and wait for it",
     Takes::one_at_most,
     "RADIOS",
     "dual (the default), 24 or 5",
     {},
     "wlanctl up\nwlanctl up 5",
     up,
     "dual 24 5"},
    {"down", "Stop the driver", Takes::nothing, "", "", {}, "wlanctl down\nwlanctl --timeout 60 down", down},
    {"restart", "Restart the interfaces of a radio", Takes::one, "INDEX",
     "any interface of the radio, by its number or its name, or all", of_get,
     "wlanctl restart zv00\nwlanctl restart all", restart, "all"},
    {"status",
     "Show the gateway on one screen",
     Takes::nothing,
     "",
     "",
     {},
     "wlanctl status\nwlanctl --json status",
     status},
    {"watch", "Show status, stations, stats or scan again and again", Takes::several, "WHAT",
     "status, stations, stats or scan (the last one, begun by somebody else)", of_watch,
     "wlanctl watch stats zv00\nwlanctl --json watch stations --interval 10", watch,
     "status stations stats scan", true, false},
    {"metrics",
     "Print all counters and measurements in Prometheus' text format",
     Takes::nothing,
     "",
     "",
     {},
     "wlanctl metrics\nwlanctl --host 192.168.1.1 metrics",
     metrics,
     "",
     true,
     false},
    {"scan", "Survey the radio of an interface and show its neighbours", Takes::one, "INDEX", interface,
     of_scan, "wlanctl scan zv00 --chart\nwlanctl --columns channel,signal scan 1", scan},
    {"stations", "Show the associated stations of a radio", Takes::one, "INDEX", any_of_radio, of_get,
     "wlanctl stations zvi00\nwlanctl --json stations 9", stations},
    {"stats", "Show the counters of an interface", Takes::one, "INDEX", interface, of_get,
     "wlanctl stats zvi01\nwlanctl -r stats 1", stats},
    {"restore-defaults", "Put all settings of a radio back to those of the factory", Takes::one, "INDEX",
     any_of_radio, of_resets, "wlanctl restore-defaults zv00\nwlanctl restore-defaults 1 --yes",
     restore_defaults},
    {"wps-oob", "Put WPS, and SSID, security and passphrase of the radio's first BSS, back to out of the box",
     Takes::one, "INDEX", interface, of_resets, "wlanctl wps-oob zvi00\nwlanctl wps-oob 1 --yes", wps_oob},
    {"doctor",
     "Look for what keeps the gateway from working, and say the cure",
     Takes::nothing,
     "",
     "",
     {},
     "wlanctl doctor\nwlanctl --json --host 192.168.1.1 doctor",
     doctor},
    {"complete",
     "Print what can stand in the place of the last word, for the completion of a shell",
     Takes::several,
     "SHELL",
     "bash or zsh",
     {},
     "wlanctl complete bash -- get ss\nwlanctl complete zsh -- set channel \"\"",
     complete,
     "bash zsh",
     false,
     false},
    {"export",
     "Write all settings as a file, or those of a BSS and its radio",
     Takes::one_at_most,
     "INDEX",
     interface,
     {},
     "wlanctl --show-secrets export > gateway.toml\nwlanctl export zvi01",
     export_settings},
    {"diff",
     "Show what differs between the gateway and a file of settings; status 1 if anything does",
     Takes::one,
     "FILE",
     file_meaning,
     {},
     "wlanctl diff gateway.toml\nwlanctl --json --show-secrets diff gateway.toml",
     diff},
    {"import", "Set what differs from a file of settings", Takes::one, "FILE", file_meaning, of_import,
     "wlanctl import gateway.toml --dry-run\nwlanctl import gateway.toml --all-or-nothing --restart",
     import_settings},
    {"batch", "Run commands, one a line, and print a line of JSON for each", Takes::one_at_most, "FILE",
     "of commands; - or none: standard input", of_batch,
     "wlanctl batch commands.txt --keep-going\necho \"set ssid 2 'My Net'\" | wlanctl batch", batch, "", true,
     false},
};

} // namespace

std::span<const Subcommand> subcommands() { return subcommand_table; }

const Subcommand *find_subcommand(std::string_view name) {
    const auto *found = std::find_if(std::begin(subcommand_table), std::end(subcommand_table),
                                     [&](auto &each) { return each.name == name; });
    return found == std::end(subcommand_table) ? nullptr : found;
}
