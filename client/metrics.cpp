#include "client/commands.h"

#include "client/machine.h"
#include "client/snapshot.h"
#include "client/text.h"

#include <algorithm>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <set>
#include <vector>

// Prometheus' text format: each metric once, with its samples behind it.

namespace {

constexpr double patience_for_air_time = 1; // seconds; where it fails, the daemon sends no reply

constexpr std::int64_t most_stations = 65; // that the driver tells of

struct Metric {
    const char *name, *type, *help;
    const char *reading, *key; // where it comes from; no key: the reading is a number
};

constexpr Metric of_radios[] = {
    {"wlan_radio_channel", "gauge", "Channel that the radio is on.", "current_channel", nullptr},
    {"wlan_radio_stations", "gauge", "Stations associated with the radio.",
     "assoc_devices_table_num_of_entries", nullptr},
    {"wlan_radio_transmit_packets_total", "counter", "Packets that the radio has sent.", "radio_tx_packets",
     "packets"},
    {"wlan_radio_receive_packets_total", "counter", "Packets that the radio has received.",
     "radio_rx_packets", "packets"},
    {"wlan_radio_noise_floor_dbm", "gauge", "Noise floor of the channel, on average.", "channel_noise_floor",
     "average"},
    {"wlan_radio_noise_floor_minimum_dbm", "gauge", "Lowest noise floor of the channel.",
     "channel_noise_floor", "minimum"},
    {"wlan_radio_noise_floor_median_dbm", "gauge", "Median of the noise floor of the channel.",
     "channel_noise_floor", "median"},
    {"wlan_radio_noise_floor_maximum_dbm", "gauge", "Highest noise floor of the channel.",
     "channel_noise_floor", "maximum"},
    {"wlan_radio_busy_time", "gauge", "Time for which the channel was busy, in the driver's unit.",
     "channel_statistics", "busy_time"},
    {"wlan_radio_access_point_activity", "gauge", "Activity of the access point, in the driver's unit.",
     "channel_statistics", "ap_activity"},
    {"wlan_radio_cst", "gauge", "The driver's figure Cst.", "channel_statistics", "cst"},
    {"wlan_radio_retransmission", "gauge", "The driver's measure of frames sent again.",
     "retransmission_metric", nullptr},
};

constexpr Metric of_interfaces[] = {
    {"wlan_bss_enabled", "gauge", "Whether the BSS is enabled in the settings.", "enable", nullptr},
    {"wlan_bss_stations", "gauge", "Stations associated with the BSS.", "assoc_devices_num", nullptr},
    {"wlan_bss_transmit_bytes_total", "counter", "Bytes sent.", "basic_stats", "bytes_sent"},
    {"wlan_bss_receive_bytes_total", "counter", "Bytes received.", "basic_stats", "bytes_received"},
    {"wlan_bss_transmit_packets_total", "counter", "Packets sent.", "basic_stats", "packets_sent"},
    {"wlan_bss_receive_packets_total", "counter", "Packets received.", "basic_stats", "packets_received"},
    {"wlan_bss_transmit_errors_total", "counter", "Packets that could not be sent.", "stats", "errors_sent"},
    {"wlan_bss_receive_errors_total", "counter", "Packets received with an error.", "stats",
     "errors_received"},
    {"wlan_bss_transmit_discarded_packets_total", "counter", "Packets dropped instead of sent.", "stats",
     "discard_packets_sent"},
    {"wlan_bss_receive_discarded_packets_total", "counter", "Packets dropped when received.", "stats",
     "discard_packets_received"},
    {"wlan_bss_transmit_unicast_packets_total", "counter", "Packets sent to one station.", "stats",
     "unicast_packets_sent"},
    {"wlan_bss_receive_unicast_packets_total", "counter", "Packets received for one station.", "stats",
     "unicast_packets_received"},
    {"wlan_bss_transmit_multicast_packets_total", "counter", "Multicast packets sent.", "stats",
     "multicast_packets_sent"},
    {"wlan_bss_receive_multicast_packets_total", "counter", "Multicast packets received.", "stats",
     "multicast_packets_received"},
    {"wlan_bss_transmit_broadcast_packets_total", "counter", "Broadcast packets sent.", "stats",
     "broadcast_packets_sent"},
    {"wlan_bss_receive_broadcast_packets_total", "counter", "Broadcast packets received.", "stats",
     "broadcast_packets_received"},
    {"wlan_bss_receive_unknown_protocol_packets_total", "counter", "Packets received of an unknown protocol.",
     "stats", "unknown_protocol_packets_received"},
};

struct Label {
    const char *name;
    std::string value;
};

// Only what is UTF-8 is valid, and what people can read: other bytes appear as \xNN, a backslash as two.
std::string escaped(const std::string &value) {
    std::string text;
    for (const char letter : printable(value, false)) {
        if (letter == '\\' || letter == '"')
            text += '\\';
        text += letter;
    }
    return text;
}

// The text under way.
class Exposition {
public:
    void begin(const Metric &metric) {
        metric_ = &metric;
        series_.clear();
    }
    // Nothing for a value that is not known, and one sample for each combination of labels.
    void add(const std::vector<Label> &labels, const Json &value) {
        std::string series = metric_->name;
        for (const Label &label : labels)
            series += fmt::format("{}{}=\"{}\"", &label == &labels.front() ? "{" : ",", label.name,
                                  escaped(label.value));
        series += labels.empty() ? "" : "}";
        if (value.is_null() || series_.contains(series))
            return;
        if (series_.empty())
            text_ +=
                fmt::format("# HELP {0} {1}\n# TYPE {0} {2}\n", metric_->name, metric_->help, metric_->type);
        text_ += fmt::format("{} {}\n", series,
                             value.is_boolean() ? Json(value == true ? 1 : 0).dump() : value.dump());
        series_.insert(series);
    }
    void add_alone(const Metric &metric, const std::vector<Label> &labels, const Json &value) {
        begin(metric);
        add(labels, value);
    }
    void print() const { std::fwrite(text_.data(), 1, text_.size(), stdout); } // a failure shows at the end

private:
    const Metric *metric_ = nullptr;
    std::set<std::string> series_{};
    std::string text_{};
};

struct Readings {
    Gateway names{};
    std::vector<Radio> radios{};
    Snapshot all{}, air_time{};
};

template <typename Visit>
void for_each_interface(const Readings &gateway, const Visit &visit) {
    for (const Radio &radio : gateway.radios)
        for (std::size_t i = 0; i < radio.interfaces.size(); ++i)
            visit(radio, radio.interfaces[i], i);
}

// The rest of what is asked depends on this.
Error take_states(Connection &connection, Readings &gateway) {
    if (Error error = find_names(connection, gateway.names))
        return error;
    gateway.radios = radios_of(gateway.names);
    for (const Radio &radio : gateway.radios) {
        for (const char *name : {"channel_bw", "country_code"})
            gateway.all.want(name, radio.interfaces.front());
        std::set<std::string_view> wanted;
        for (const Metric &metric : of_radios)
            if (wanted.insert(metric.reading).second)
                gateway.all.want(metric.reading, radio.interfaces.front());
    }
    for_each_interface(gateway, [&](const Radio &, std::int64_t index, std::size_t) {
        for (const char *name : {"status", "enable", "ssid", "bssid", "assoc_devices_num"})
            gateway.all.want(name, index);
    });
    return gateway.all.take(connection);
}

// The counters of what is up (the daemon starts a script for some), the stations, the air time of radios
// whose driver answers.
Error take_counters(Connection &connection, Readings &gateway) {
    for_each_interface(gateway, [&](const Radio &, std::int64_t index, std::size_t) {
        const Json &stations = gateway.all.value("assoc_devices_num", index);
        for (std::int64_t i = 0;
             !stations.is_null() && i < std::min(stations.get<std::int64_t>(), most_stations); ++i)
            gateway.all.want("assoc_device", index, i);
        for (const char *name : {"stats", "basic_stats"})
            if (gateway.all.is_up(index) == true)
                gateway.all.want(name, index);
    });
    if (Error error = gateway.all.take(connection))
        return error;
    Connection quick = connection;
    quick.patience = patience_for_air_time;
    for (const Radio &radio : gateway.radios) {
        const std::int64_t index = radio.interfaces.front();
        if (gateway.all.value("current_channel", index).is_null())
            continue;
        gateway.air_time.want("bss_air_time_management_info", index);
        if (Error error = gateway.air_time.take(quick); error && error.trouble != Trouble::timeout)
            return error;
    }
    return {};
}

void add_radios(const Readings &gateway, Exposition &text) {
    constexpr Metric up{"wlan_radio_up", "gauge", "Whether the radio's first interface is up.", "", nullptr};
    constexpr Metric info{"wlan_radio_info", "gauge", "Settings of the radio: always 1.", "", nullptr};
    text.begin(up);
    for (const Radio &radio : gateway.radios)
        text.add({{"radio", radio.band}}, gateway.all.is_up(radio.interfaces.front()));
    text.begin(info);
    for (const Radio &radio : gateway.radios) {
        const Json &country = gateway.all.value("country_code", radio.interfaces.front());
        if (!country.is_null())
            text.add({{"radio", radio.band}, {"country", country}}, 1);
    }
    for (const Metric &metric : of_radios) {
        text.begin(metric);
        for (const Radio &radio : gateway.radios)
            text.add({{"radio", radio.band}},
                     metric.key == nullptr
                         ? gateway.all.value(metric.reading, radio.interfaces.front())
                         : gateway.all.field(metric.reading, radio.interfaces.front(), metric.key));
    }
}

void add_interfaces(const Readings &gateway, Exposition &text) {
    constexpr Metric up{"wlan_bss_up", "gauge", "Whether the interface of the BSS is up.", "", nullptr};
    constexpr Metric info{"wlan_bss_info", "gauge", "Names of the BSS: always 1.", "", nullptr};
    text.begin(up);
    for_each_interface(gateway, [&](const Radio &radio, std::int64_t index, std::size_t) {
        text.add({{"radio", radio.band}, {"interface", name_of(gateway.names, index)}},
                 gateway.all.is_up(index));
    });
    text.begin(info);
    for_each_interface(gateway, [&](const Radio &radio, std::int64_t index, std::size_t) {
        const Json &ssid = gateway.all.value("ssid", index), &bssid = gateway.all.value("bssid", index);
        if (!ssid.is_null())
            text.add({{"radio", radio.band},
                      {"interface", name_of(gateway.names, index)},
                      {"ssid", ssid},
                      {"bssid", bssid.is_null() ? "" : bssid.get<std::string>()}},
                     1);
    });
    for (const Metric &metric : of_interfaces) {
        text.begin(metric);
        for_each_interface(gateway, [&](const Radio &radio, std::int64_t index, std::size_t) {
            text.add({{"radio", radio.band}, {"interface", name_of(gateway.names, index)}},
                     metric.key == nullptr ? gateway.all.value(metric.reading, index)
                                           : gateway.all.field(metric.reading, index, metric.key));
        });
    }
}

void add_air_time(const Readings &gateway, Exposition &text) {
    constexpr Metric time{"wlan_bss_air_time_total", "counter",
                          "Transmit time that the BSS has had, in the driver's unit.", "air_time", nullptr};
    constexpr Metric share{"wlan_bss_air_time_ratio", "gauge",
                           "Share of the radio's transmit time that the BSS has had.", "share", nullptr};
    for (const Metric *metric : {&time, &share}) {
        text.begin(*metric);
        for_each_interface(gateway, [&](const Radio &radio, std::int64_t index, std::size_t i) {
            const Json &places = gateway.air_time.field("bss_air_time_management_info",
                                                        radio.interfaces.front(), metric->reading);
            if (i >= places.size())
                return;
            text.add({{"radio", radio.band}, {"interface", name_of(gateway.names, index)}},
                     metric == &share ? Json(places[i].get<double>() / 100) : places[i]);
        });
    }
}

// One by one: the table of all has room for 32.
void add_stations(const Readings &gateway, Exposition &text) {
    constexpr Metric signal{"wlan_station_signal_dbm", "gauge",
                            "Strength of the station's signal, of all antennas together.", "", nullptr};
    text.begin(signal);
    for_each_interface(gateway, [&](const Radio &radio, std::int64_t index, std::size_t) {
        for (std::int64_t i = 0;; ++i) {
            const Json &station = gateway.all.value("assoc_device", index, i);
            if (station.is_null())
                return;
            text.add({{"radio", radio.band},
                      {"interface", name_of(gateway.names, index)},
                      {"station", station["mac"]}},
                     station["rssi"]);
        }
    });
}

void add_process(const Connection &connection, Exposition &text) {
    constexpr Metric info{"wlan_daemon_info", "gauge", "Version of the daemon: always 1.", "", nullptr};
    constexpr Metric start{"wlan_daemon_start_time_seconds", "gauge",
                           "Start of the daemon in seconds since 1970.", "", nullptr};
    const auto process = is_this_machine(connection) ? find_only_daemon() : std::nullopt;
    if (!process)
        return;
    text.add_alone(start, {}, start_of(*process));
    if (const std::string version = version_of(*process); !version.empty())
        text.add_alone(info, {{"version", version}}, 1);
}

} // namespace

int metrics(Context &context, const Words &) {
    constexpr Metric up{"wlan_up", "gauge", "Whether the daemon answers.", "", nullptr};
    Readings gateway;
    Exposition text;
    Error error = take_states(context.connection, gateway);
    if (!error)
        error = take_counters(context.connection, gateway);
    text.add_alone(up, {}, !error);
    if (!error) {
        add_process(context.connection, text);
        add_radios(gateway, text);
        add_interfaces(gateway, text);
        add_air_time(gateway, text);
        add_stations(gateway, text);
    }
    text.print();
    Output plain = context.output;
    plain.json = false; // standard output has the metrics
    return error ? print_error(plain, error) : 0;
}
