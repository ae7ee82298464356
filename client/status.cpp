#include "client/status.h"

#include "client/lookup.h"
#include "client/machine.h"

#include <algorithm>
#include <ctime>
#include <fmt/format.h>

namespace {

constexpr const char *of_radios[] = {"channel",           "current_channel", "channel_bw",
                                     "country_code",      "wps_enable",      "ap_scan_status",
                                     "wps_result_status", "radio_enabled",   "ap_scan_num_of_entries"};
constexpr const char *of_interfaces[] = {"status",
                                         "enable",
                                         "ssid",
                                         "wpa_authentication_modes",
                                         "wpa_encryption_modes",
                                         "basic_encryption_modes",
                                         "assoc_devices_num"};

// The name of a number, or the number itself.
Json name_in(std::span<const char *const> names, const Json &number) {
    const bool has_name = number.is_number() && number >= 0 && number < names.size();
    return has_name ? Json(names[number.get<std::size_t>()]) : number;
}

Json bandwidth_of(const Json &number) {
    constexpr const char *names[] = {"20 MHz", "20/40 MHz", "40 MHz"};
    return name_in(names, number);
}

// Whether a station can join by WPS now.
Json wps_of(const Snapshot &gateway, std::int64_t index) {
    const Json &session = gateway.value("wps_result_status", index);
    const bool over = session == "Idle" || session == "Success" || session == "Failed";
    return {{"enabled", gateway.is_on("wps_enable", index)},
            {"window", session.is_null() ? session : Json(over ? "closed" : "open")},
            {"session", session}};
}

Json scan_of(const Snapshot &gateway, std::int64_t index) {
    const Json status = scan_status_of(gateway, index);
    const Json entries =
        status == "finished" ? gateway.value("ap_scan_num_of_entries", index) : Json(nullptr);
    return {{"status", status}, {"neighbours", entries}};
}

Json radio_json(const Snapshot &gateway, const Gateway &names, const Radio &radio) {
    const std::int64_t index = radio.interfaces.front();
    const Json &bandwidth = gateway.value("channel_bw", index);
    return {{"radio", radio.band},
            {"index", index},
            {"interface", name_of(names, index)},
            {"up", gateway.is_up(index)},
            {"transmitter", gateway.is_on("radio_enabled", index)},
            {"channel", gateway.value("current_channel", index)},
            {"stored_channel", gateway.value("channel", index)},
            {"channel_bw", bandwidth},
            {"bandwidth", bandwidth_of(bandwidth)},
            {"country", gateway.value("country_code", index)},
            {"wps", wps_of(gateway, index)},
            {"scan", scan_of(gateway, index)}};
}

// "WPA2PSK AES": the words of the driver, the encryption shortened.
Json security_of(const Json &authentication, const Json &encryption) {
    if (authentication.is_null() || encryption.is_null())
        return authentication;
    std::string ciphers = encryption;
    if (const std::size_t end = ciphers.find("Encryption"); end != ciphers.npos)
        ciphers.erase(end);
    if (const std::size_t both = ciphers.find("and"); both != ciphers.npos)
        ciphers.replace(both, 3, "+");
    if (ciphers == "None" && authentication == "OPEN")
        return "open";
    return authentication.get<std::string>() + " " + ciphers;
}

Json bss_json(const Snapshot &gateway, const Gateway &names, std::int64_t index) {
    const Json &authentication = gateway.value("wpa_authentication_modes", index);
    const Json &with_wpa = gateway.value("wpa_encryption_modes", index);
    const Json encryption = with_wpa.is_null() ? gateway.value("basic_encryption_modes", index) : with_wpa;
    Json bss{{"index", index}, {"interface", name_of(names, index)}};
    add_value(bss, "ssid", gateway.value("ssid", index));
    bss["authentication"] = authentication;
    bss["encryption"] = encryption;
    bss["security"] = security_of(authentication, encryption);
    bss["stations"] = gateway.value("assoc_devices_num", index);
    bss["enabled"] = gateway.is_on("enable", index);
    bss["up"] = gateway.is_up(index);
    return bss;
}

// What runs, and what was chosen where that is something else.
std::string channel_cell(const Json &radio) {
    const Json &runs = radio["channel"], &stored = radio["stored_channel"];
    if (stored.is_null() || runs == stored)
        return cell_of(runs);
    const std::string chosen = stored == 0 ? "automatic" : fmt::format("set {}", stored.dump());
    return runs.is_null() ? chosen : fmt::format("{}, {}", runs.dump(), chosen);
}

std::string wps_cell(const Json &wps) {
    if (wps["enabled"] == false)
        return "off";
    return wps["window"] == "open" ? fmt::format("open: {}", cell_of(wps["session"]))
                                   : cell_of(wps["window"]);
}

std::string scan_cell(const Json &scan) {
    return scan["neighbours"].is_null() ? cell_of(scan["status"])
                                        : fmt::format("{} neighbours", scan["neighbours"].dump());
}

Table radio_table(const Json &radios) {
    Table table{{"RADIO", "UP", "CHANNEL", "BANDWIDTH", "COUNTRY", "WPS WINDOW", "LAST SCAN"}, {}};
    for (const Json &radio : radios)
        table.rows.push_back({cell_of(radio["radio"]), cell_of(radio["up"]), channel_cell(radio),
                              cell_of(radio["bandwidth"]), cell_of(radio["country"]), wps_cell(radio["wps"]),
                              scan_cell(radio["scan"])});
    return table;
}

// Over the network nothing is known of the process.
Json daemon_json(const Connection &connection) {
    const auto process = is_this_machine(connection) ? find_only_daemon() : std::nullopt;
    if (!process)
        return {{"version", nullptr}, {"started", nullptr}, {"process", nullptr}};
    const std::string version = version_of(*process);
    return {{"version", version.empty() ? Json(nullptr) : Json(version)},
            {"started", moment(static_cast<std::time_t>(start_of(*process)))},
            {"process", process->process}};
}

std::string daemon_line(const Connection &connection, const Json &daemon) {
    std::string line = "wlan-configd";
    if (!daemon["version"].is_null())
        line += " " + daemon["version"].get<std::string>();
    line += fmt::format(" on {}", shown_on(stdout, connection.host));
    if (!daemon["started"].is_null())
        line += fmt::format(", since {}", daemon["started"].get<std::string>());
    return line + "\n";
}

} // namespace

Json scan_status_of(const Snapshot &gateway, std::int64_t index) {
    constexpr const char *names[] = {"none", "running", "failed", "finished"};
    return name_in(names, gateway.value("ap_scan_status", index));
}

Error take_status(Context &context, Picture &ret_picture) {
    if (Error error = find_some_names(context))
        return error;
    const std::vector<Radio> radios = radios_of(context.gateway);
    Snapshot gateway;
    for (const Radio &radio : radios) {
        for (const char *name : of_radios)
            gateway.want(name, radio.interfaces.front());
        for (const std::int64_t index : radio.interfaces)
            for (const char *name : of_interfaces)
                gateway.want(name, index);
    }
    if (Error error = gateway.take(context.connection))
        return error;
    Json value{
        {"daemon", daemon_json(context.connection)}, {"radios", Json::array()}, {"bsses", Json::array()}};
    for (const Radio &radio : radios) {
        value["radios"].push_back(radio_json(gateway, context.gateway, radio));
        for (const std::int64_t index : radio.interfaces)
            value["bsses"].push_back(bss_json(gateway, context.gateway, index));
    }
    ret_picture.text = daemon_line(context.connection, value["daemon"]);
    ret_picture.tables = {radio_table(value["radios"]), table_of(value["bsses"], {{"INDEX", "index"},
                                                                                  {"INTERFACE", "interface"},
                                                                                  {"ENABLED", "enabled"},
                                                                                  {"UP", "up"},
                                                                                  {"STATIONS", "stations"},
                                                                                  {"SECURITY", "security"},
                                                                                  {"SSID", "ssid"}})};
    ret_picture.value = std::move(value);
    return {};
}

int status(Context &context, const Words &) {
    Picture picture;
    if (Error error = take_status(context, picture))
        return print_error(context.output, error);
    if (!context.output.json)
        return print_picture(context.output, picture);
    print_json({{"status", "done"}, {"code", 0}, {"value", picture.value}});
    return 0;
}
