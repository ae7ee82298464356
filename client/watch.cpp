#include "client/commands.h"

#include "client/chart.h"
#include "client/exchange.h"
#include "client/lookup.h"
#include "client/picture.h"
#include "client/snapshot.h"
#include "client/status.h"
#include "client/waiting.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <fmt/format.h>
#include <map>

namespace {

// The counters of an interface, and when they were read.
struct Reading {
    Clock::time_point at;
    std::array<std::uint32_t, 4> counters;
};

struct Counter {
    const char *name, *rate;
    double most; // a second that Gigabit Ethernet, and so the gateway, can pass on
};
constexpr std::array<Counter, 4> counted{{{"bytes_sent", "bytes_sent_per_second", 125e6},
                                          {"bytes_received", "bytes_received_per_second", 125e6},
                                          {"packets_sent", "packets_sent_per_second", 1.5e6},
                                          {"packets_received", "packets_received_per_second", 1.5e6}}};

// What a watch keeps from round to round.
struct Watched {
    Context context;
    std::vector<std::string> index{}; // none or one, as it was given
    std::map<std::string, Reading> readings{};
};

// The interfaces that are watched, or the first ones of their radios, which stand for these.
Error find_watched(Watched &watched, bool radios, std::vector<std::int64_t> &ret_indexes) {
    Context &context = watched.context;
    context.gateway = {}; // a restart may change it
    if (Error error = find_names(context.connection, context.gateway))
        return error;
    Values given;
    if (!watched.index.empty())
        if (Error error = take_arguments(context, *find_procedure("wlan_get_status"), watched.index, given))
            return error;
    for (const Radio &radio : radios_of(context.gateway)) {
        std::vector<std::int64_t> chosen = radio.interfaces;
        if (!given.list.empty())
            std::erase_if(chosen, [&](std::int64_t index) { return index != given.list[0].number; });
        if (radios && !chosen.empty())
            chosen = {radio.interfaces.front()};
        ret_indexes.insert(ret_indexes.end(), chosen.begin(), chosen.end());
    }
    return {};
}

Error watch_status(Watched &watched, Picture &ret_picture) {
    watched.context.gateway = {};
    return take_status(watched.context, ret_picture);
}

Error watch_stations(Watched &watched, Picture &ret_picture) {
    std::vector<std::int64_t> radios;
    if (Error error = find_watched(watched, true, radios))
        return error;
    Snapshot gateway;
    for (const std::int64_t index : radios)
        gateway.want("assoc_devices_table", index);
    if (Error error = gateway.take(watched.context.connection))
        return error;
    ret_picture.value = Json::array();
    for (const std::int64_t index : radios)
        for (Json station : with_interfaces(watched.context.gateway, index,
                                            gateway.field("assoc_devices_table", index, "devices"))) {
            station["radio"] = band_of(name_of(watched.context.gateway, index));
            ret_picture.value.push_back(std::move(station));
        }
    ret_picture.tables = {
        table_of(ret_picture.value,
                 {{"INTERFACE", "interface"}, {"MAC", "mac"}, {"RSSI (dBm)", "rssi"}, {"NAME", "name"}})};
    return {};
}

// What was counted a second since the last reading. The counters begin again after 2^32; where that would be
// more than can be, they were set back instead, and no rate is known.
void add_rates(Json &object, const Reading *before, const Reading &now) {
    std::array<double, counted.size()> rates{};
    bool known = before != nullptr;
    for (std::size_t i = 0; known && i < counted.size(); ++i) {
        const std::uint32_t difference = now.counters[i] - before->counters[i];
        rates[i] = difference / Seconds{now.at - before->at}.count();
        known = rates[i] <= counted[i].most;
    }
    for (std::size_t i = 0; i < counted.size(); ++i)
        object[counted[i].rate] = known ? Json(std::round(rates[i] * 10) / 10) : Json(nullptr);
}

Json with_rates(Watched &watched, std::int64_t index, const Json &stats) {
    Json object{{"index", index}, {"interface", name_of(watched.context.gateway, index)}};
    object.update(stats);
    Reading now{Clock::now(), {}};
    for (std::size_t i = 0; i < counted.size(); ++i)
        now.counters[i] = stats[counted[i].name];
    const auto before = watched.readings.find(object["interface"]);
    add_rates(object, before == watched.readings.end() ? nullptr : &before->second, now);
    watched.readings[object["interface"]] = now;
    return object;
}

// Of the interfaces that are up: the daemon starts a script for each.
Error watch_stats(Watched &watched, Picture &ret_picture) {
    std::vector<std::int64_t> interfaces;
    if (Error error = find_watched(watched, false, interfaces))
        return error;
    Snapshot gateway;
    for (const std::int64_t index : interfaces)
        gateway.want("status", index);
    if (Error error = gateway.take(watched.context.connection))
        return error;
    for (const std::int64_t index : interfaces)
        if (gateway.is_up(index) == true)
            gateway.want("basic_stats", index);
    if (Error error = gateway.take(watched.context.connection))
        return error;
    ret_picture.value = Json::array();
    for (const std::int64_t index : interfaces)
        if (const Json &stats = gateway.value("basic_stats", index); !stats.is_null())
            ret_picture.value.push_back(with_rates(watched, index, stats));
    ret_picture.tables = {table_of(ret_picture.value, {{"INTERFACE", "interface"},
                                                       {"STATIONS", "associations"},
                                                       {"SENT (B/s)", counted[0].rate},
                                                       {"RECEIVED (B/s)", counted[1].rate},
                                                       {"PKTS SENT (/s)", counted[2].rate},
                                                       {"PKTS RECEIVED (/s)", counted[3].rate}})};
    return {};
}

// The last survey of each radio, whoever began it. None is begun: the radio would leave its channel.
Error watch_scan(Watched &watched, Picture &ret_picture) {
    std::vector<std::int64_t> radios;
    if (Error error = find_watched(watched, true, radios))
        return error;
    Snapshot gateway;
    for (const std::int64_t index : radios)
        for (const char *name : {"ap_scan_status", "ap_scan_result", "current_channel"})
            gateway.want(name, index);
    if (Error error = gateway.take(watched.context.connection))
        return error;
    Json heard = Json::array();
    ret_picture.value = Json::array();
    for (const std::int64_t index : radios) {
        const std::string radio = band_of(name_of(watched.context.gateway, index));
        const Json &entries = gateway.field("ap_scan_result", index, "entries");
        const Json &own = gateway.value("current_channel", index);
        const Json status = scan_status_of(gateway, index);
        ret_picture.value.push_back(
            {{"radio", radio}, {"status", status}, {"channel", own}, {"entries", entries}});
        ret_picture.text += fmt::format("{}: the last scan: {}\n", radio, cell_of(status));
        if (watched.context.options.chart && status == "finished" && !entries.is_null())
            ret_picture.text +=
                chart_of({radio, entries, own.is_null() ? -1 : own.get<std::int64_t>()}, width_of_terminal());
        for (Json each : entries) {
            each["radio"] = radio;
            heard.push_back(std::move(each));
        }
    }
    if (!watched.context.options.chart)
        ret_picture.tables = {table_of(heard, {{"RADIO", "radio"},
                                               {"BSSID", "bssid"},
                                               {"CHANNEL", "channel"},
                                               {"SIGNAL (dBm)", "signal"},
                                               {"SECURITY", "security"},
                                               {"SSID", "ssid"}})};
    return {};
}

struct View {
    const char *name;
    Error (*take)(Watched &watched, Picture &ret_picture);
    std::size_t words; // most, its name included
};
constexpr std::array views{View{"status", watch_status, 1}, View{"stations", watch_stations, 2},
                           View{"stats", watch_stats, 2}, View{"scan", watch_scan, 2}};

const View *find_view(std::string_view name) {
    return std::find_if(views.begin(), views.end(), [&](auto &each) { return name == each.name; });
}

// Shows what each round brings; after a round without a reply, the last one that had one.
class Screen {
public:
    Screen(const Output &output, std::string what, double interval)
        : output_(output), what_(std::move(what)), interval_(interval) {
        output_.one_line_a_row = true;
    }

    int show(const Error &error, const Picture &picture) {
        if (!error)
            last_ = picture;
        if (!error)
            silent_since_ = 0;
        else if (silent_since_ == 0)
            silent_since_ = std::time(nullptr);
        return output_.json ? show_line(error) : show_picture(error);
    }

private:
    // A line a change.
    int show_line(const Error &error) {
        Json content = Json::object();
        if (error) {
            content["no_reply_since"] = moment(silent_since_);
            content["error"] = error_json(error, nullptr, nullptr, Json::array());
        } else {
            content["value"] = last_.value;
        }
        if (error ? shown_.contains("error") : content == shown_)
            return 0;
        shown_ = content;
        Json line{{"time", moment(std::time(nullptr))}, {"watch", what_}};
        line.update(content);
        print_json(line);
        return 0;
    }

    int show_picture(const Error &error) const {
        Picture picture = last_;
        picture.text.insert(0, fmt::format("wlanctl watch {}, every {} s, {}\n", what_, interval_,
                                           moment(std::time(nullptr))));
        if (error)
            picture.text.insert(0, fmt::format("no reply since {}:\n  {}\n", moment(silent_since_),
                                               wrapped(shown_on(stdout, error.message), 2)));
        if (is_terminal(stdout)) {
            fit(picture, height_of_terminal() - 1);
            picture.text.insert(0, "\x1b[H\x1b[2J");
        }
        return print_picture(output_, picture);
    }

    Output output_;
    std::string what_;
    double interval_;
    Picture last_{};
    Json shown_{};
    std::time_t silent_since_ = 0;
};

bool goes_on_for(const Waiting &waiting, Seconds time) {
    const Clock::time_point end = Clock::now() + std::chrono::duration_cast<Clock::duration>(time);
    while (waiting.goes_on_after_a_while())
        if (Clock::now() >= end)
            return true;
    return false;
}

} // namespace

bool can_watch_one(std::string_view what) {
    const auto *view = find_view(what);
    return view != views.end() && view->words > 1;
}

int watch(Context &context, const Words &words) {
    const auto *view = find_view(words.front());
    if (view == views.end())
        return print_error(
            context.output,
            {Trouble::usage, fmt::format("'{}' is not status, stations, stats or scan", words.front())});
    if (words.size() > view->words)
        return print_error(context.output, {Trouble::usage, fmt::format("'{}' is too much", words.back())});
    const Waiting waiting(context.connection, "");
    Watched watched{context, {words.begin() + 1, words.end()}};
    watched.context.connection = waiting.connection;
    Screen screen(context.output, view->name, context.options.interval);
    if (is_terminal(stdout))
        std::setvbuf(stdout, nullptr, _IOFBF, 1 << 16); // a picture appears as a whole
    bool first = true;
    do {
        Picture picture;
        const Error error = view->take(watched, picture);
        if (error.trouble == Trouble::interrupted)
            break;
        if (error && first)
            return print_error(context.output, error);
        first = false;
        if (const int status = screen.show(error, picture); status != 0)
            return status;
        if (std::fflush(stdout) != 0)
            return print_error(context.output, {Trouble::garbled, "standard output cannot be written"});
    } while (goes_on_for(waiting, Seconds{context.options.interval}));
    return static_cast<int>(Trouble::interrupted);
}
