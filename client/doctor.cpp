#include "client/commands.h"
#include "client/exchange.h"
#include "client/file.h"
#include "client/knowledge.h"
#include "client/lookup.h"
#include "client/machine.h"
#include "client/settings_faults.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <cstring>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>
#include <set>
#include <unistd.h>

namespace {

constexpr long longest_lock = 60; // seconds that another program may need

enum class State : unsigned char { ok, warn, broken };
constexpr const char *state_names[] = {"ok", "warn", "broken"};

// A part of the road from wlanctl to a working gateway, and what is wrong with it.
struct Plank {
    std::string name;
    State state;
    std::string text, cure{};
};

// What a look at a plank sees, and leaves for the next.
struct Visit {
    Context &context;
    std::vector<Plank> planks{};
    std::vector<Daemon> daemons{}; // of this machine
    bool is_here = false;          // the gateway is this machine

    void add(Plank plank) { planks.push_back(std::move(plank)); }
    State worst() const {
        State worst = State::ok;
        for (const Plank &plank : planks)
            worst = std::max(worst, plank.state);
        return worst;
    }
};

// An error says what to do behind its first semicolon.
Plank broken_by(const char *name, const Error &error, const std::string &cure = "") {
    const std::size_t end = std::min(error.message.find("; "), error.message.size());
    const std::string own = end == error.message.size() ? "" : error.message.substr(end + 2);
    return {name, State::broken, error.message.substr(0, end), cure.empty() ? own : cure};
}

std::string shown_address(in_addr_t address) {
    std::array<char, INET_ADDRSTRLEN> text{};
    inet_ntop(AF_INET, &address, text.data(), text.size());
    return text.data();
}

void visit_host(Visit &visit) {
    Connection &connection = visit.context.connection;
    if (Error error = resolve(connection, connection.address))
        return visit.add(broken_by("host", error));
    visit.is_here = is_this_machine(connection);
    if (visit.is_here)
        visit.daemons = find_daemons();
    visit.add({"host", State::ok,
               fmt::format("{} is {}{}", connection.host, shown_address(connection.address.sin_addr.s_addr),
                           visit.is_here ? ", this machine" : "")});
}

void visit_portmapper(Visit &visit) {
    Connection &connection = visit.context.connection;
    connection.address.sin_port = htons(connection.port);
    if (connection.port != 0)
        return visit.add({"portmapper", State::ok, "not asked: --port is given"});
    if (Error error = ask_portmapper(connection, connection.address))
        return visit.add(broken_by("portmapper", error));
    visit.add({"portmapper", State::ok, "answers"});
}

std::string processes(const std::vector<Daemon> &daemons) {
    std::vector<pid_t> numbers(daemons.size());
    std::transform(daemons.begin(), daemons.end(), numbers.begin(),
                   [](const Daemon &daemon) { return daemon.process; });
    return fmt::format("{} {}", numbers.size() == 1 ? "process" : "processes", fmt::join(numbers, ", "));
}

void visit_registration(Visit &visit) {
    const auto port = ntohs(visit.context.connection.address.sin_port);
    if (port != 0)
        return visit.add({"registration", State::ok, fmt::format("port {}", port)});
    if (!visit.daemons.empty())
        return visit.add({"registration", State::broken,
                          fmt::format("wlan-configd runs ({}), but the portmapper does not know it",
                                      processes(visit.daemons)),
                          "it registers again within eleven seconds; if not, restart it"});
    visit.add({"registration", State::broken, "the portmapper knows no wlan-configd",
               visit.is_here ? "start wlan-configd: it is not running"
                             : "start wlan-configd there; one that runs registers within eleven seconds"});
}

void visit_port(Visit &visit) {
    const Clock::time_point begin = Clock::now();
    const Error error = call_nothing(visit.context.connection);
    const std::chrono::duration<double, std::milli> time = Clock::now() - begin;
    if (!error)
        return visit.add({"null call", State::ok, fmt::format("answered in {:.1f} ms", time.count())});
    std::string cure = "a firewall drops the port, or wlan-configd hangs or waits for a script: try again, "
                       "then restart it";
    if (visit.is_here && visit.daemons.empty())
        cure = "wlan-configd has ended and its registration has stayed: start it";
    else if (const auto addresses = addresses_of_port(ntohs(visit.context.connection.address.sin_port));
             visit.is_here && !addresses.empty() && error.trouble != Trouble::timeout)
        cure = fmt::format("it listens on another address of this machine: name that, with --host {}",
                           shown_address(addresses.front()));
    else if (error.trouble != Trouble::timeout)
        cure = "restart wlan-configd: something else has its port, or nothing";
    visit.add(broken_by("null call", error, cure));
}

// The daemon has taken the null call, so it speaks the version; what its program says is not on the wire.
void visit_version(Visit &visit) {
    std::string text = fmt::format("program {}, version {}", WLAN_CONFIG_RPC_PROG, WLAN_CONFIG_API_VERSION);
    if (std::any_of(visit.daemons.begin(), visit.daemons.end(), [](auto &each) { return each.is_replaced; }))
        return visit.add({"version", State::warn, text + "; its program file was replaced while it runs",
                          "restart wlan-configd to run the new one"});
    visit.add({"version", State::ok, text});
}

void visit_second_daemon(Visit &visit) {
    if (visit.daemons.empty())
        return visit.add({"processes", State::warn, "no process is called wlan-configd",
                          "what serves the port may be a daemon of another name or in a container: nothing "
                          "more can be seen of it"});
    if (visit.daemons.size() > 1)
        return visit.add({"processes", State::broken,
                          fmt::format("more than one wlan-configd runs ({})", processes(visit.daemons)),
                          "end all, start one: they overwrite each other's changes"});
    visit.add({"processes", State::ok, fmt::format("one wlan-configd ({})", processes(visit.daemons))});
}

bool is_environment_known(const Visit &visit) {
    return !visit.daemons.empty() && visit.daemons.front().environment;
}

void visit_environment(Visit &visit) {
    if (visit.daemons.empty())
        return;
    if (!is_environment_known(visit))
        return visit.add({"environment", State::warn, "the daemon's environment cannot be read",
                          "run wlanctl doctor as root"});
    for (const char *name : {"zav_cfg_dir", "zav_install_dir"})
        if (!visit.daemons.front().variable(name))
            return visit.add({"environment", State::broken,
                              fmt::format("the daemon was started without {}", name),
                              fmt::format("set {} in its environment and start it again", name)});
    visit.add({"environment", State::ok, "zav_cfg_dir and zav_install_dir are set"});
}

void visit_folder(Visit &visit) {
    if (const Finding folder = check_folder(); folder.applies == true)
        return visit.add({"settings folder", State::broken, folder.found,
                          "put the file back from a save or the factory's settings; it must be writable"});
    if (const auto folder = settings_folder())
        visit.add({"settings folder", State::ok, *folder});
}

void visit_settings(Visit &visit) {
    const auto folder = settings_folder();
    if (!folder)
        return;
    for (const char *name : settings_names) {
        const std::string path = fmt::format("{}/{}", *folder, name);
        std::string text;
        if (Error error = read_file(path, longest_file, text)) {
            visit.add({name, State::warn, error.message, "run wlanctl doctor as root"});
            continue;
        }
        const std::vector<std::string> faults = faults_of_settings(text);
        for (const std::string &fault : faults)
            visit.add({name, State::warn, fault,
                       fmt::format("mend {}, or reset it: wlanctl restore-defaults INDEX", path)});
        if (faults.empty())
            visit.add({name, State::ok, "well formed and complete"});
    }
}

void visit_lock(Visit &visit) {
    long seconds = 0;
    const Finding lock = find_lock(&seconds);
    if (lock.applies != true)
        return visit.add({"lock", State::ok, "the settings files are not locked"});
    const bool is_stale = seconds > longest_lock;
    visit.add({"lock", is_stale ? State::broken : State::warn,
               fmt::format("{} is there {}: every change is refused", lock_file, lock.found),
               is_stale ? fmt::format("rm {} if no program works on the settings any more", lock_file)
                        : "wait: another program works on the settings"});
}

void visit_debug_flag(Visit &visit) {
    if (access(debug_flag, F_OK) != 0)
        return visit.add({"debug flag", State::ok, "off"});
    visit.add({"debug flag", State::warn,
               fmt::format("{} is there: debug lines are written, and can show keys", debug_flag),
               fmt::format("rm {}", debug_flag)});
}

// The platform's scripts that the daemon calls.
std::set<std::string> scripts() {
    constexpr std::string_view folder = "$zav_install_dir/";
    std::set<std::string> names;
    for (const Procedure &procedure : protocol)
        for (const std::string_view command : knowledge_of(procedure).scripts)
            if (command.starts_with(folder))
                names.emplace(command.substr(folder.size(), command.find(' ') - folder.size()));
    return names;
}

void visit_scripts(Visit &visit) {
    if (!is_environment_known(visit))
        return;
    const std::string folder = visit.daemons.front().variable("zav_install_dir").value_or("");
    for (const std::string &name : scripts()) {
        const std::string path = fmt::format("{}/{}", folder, name);
        if (access(path.c_str(), X_OK) == 0)
            continue;
        const int cause = errno;
        return visit.add({"scripts", State::broken,
                          fmt::format("{} cannot be run: {}", path, std::strerror(cause)),
                          cause == EACCES ? fmt::format("chmod +x {}", path)
                                          : "install the platform's scripts, or mend zav_install_dir"});
    }
    visit.add({"scripts", State::ok, fmt::format("{} in {}", fmt::join(scripts(), ", "), folder)});
}

void visit_bind_address(Visit &visit) {
    constexpr in_addr_t loopback = 127;
    const auto port = ntohs(visit.context.connection.address.sin_port);
    const std::vector<in_addr_t> addresses = addresses_of_port(port);
    const auto open = std::find_if(addresses.begin(), addresses.end(),
                                   [](in_addr_t address) { return (ntohl(address) >> 24) != loopback; });
    if (addresses.empty())
        return;
    if (open == addresses.end())
        return visit.add({"bind address", State::ok, "only this machine reaches the port"});
    const auto peers =
        is_environment_known(visit) ? visit.daemons.front().variable("WLAN_CONFIGD_PEERS") : std::nullopt;
    const std::string where = *open == INADDR_ANY ? "all addresses" : shown_address(*open);
    if (peers)
        return visit.add({"bind address", State::ok,
                          fmt::format("open on {}, only to WLAN_CONFIGD_PEERS {}", where, *peers)});
    visit.add({"bind address", State::warn,
               fmt::format("open on {} to everybody: there is no authentication", where),
               "start wlan-configd with an address that only the management client reaches, or set "
               "WLAN_CONFIGD_PEERS"});
}

void visit_entries(Visit &visit) {
    Context &context = visit.context;
    if (Error error = find_entries(context.connection, context.gateway))
        return visit.add(broken_by("interfaces", error));
    if (*context.gateway.entries > 0)
        return visit.add({"interfaces", State::ok, fmt::format("{} of them", *context.gateway.entries)});
    visit.add({"interfaces", State::broken, "the daemon has found none in its settings",
               visit.is_here ? "mend BssidNum in the settings files and start wlan-configd again"
                             : "run wlanctl doctor on the gateway: it looks at zav_cfg_dir and its files"});
}

void visit_driver(Visit &visit) {
    bool is_up = false;
    if (Error error = find_driver(visit.context.connection, is_up))
        return visit.add(broken_by("driver", error));
    if (!is_up)
        return visit.add({"driver", State::warn, "not initialised", "wlanctl up"});
    visit.add({"driver", State::ok, "initialised"});
}

void visit_nothing_more(Visit &visit) {
    visit.add({"this machine", State::ok,
               "is not the gateway: wlanctl doctor there looks at its settings, scripts and processes, too"});
}

using Look = void (*)(Visit &visit);
// In the order in which they carry each other.
constexpr Look road[] = {visit_host, visit_portmapper, visit_registration, visit_port, visit_version};
constexpr Look on_the_gateway[] = {visit_second_daemon, visit_environment, visit_folder,  visit_settings,
                                   visit_lock,          visit_debug_flag,  visit_scripts, visit_bind_address};
constexpr Look from_afar[] = {visit_nothing_more};
constexpr Look at_the_end[] = {visit_entries, visit_driver};

void print(const Plank &plank) {
    const std::string state = fmt::format("{:<6}", state_names[static_cast<std::size_t>(plank.state)]);
    fmt::print("{}  {:<15}  {}\n", plank.state == State::ok ? state : emphasis(state), plank.name,
               shown_on(stdout, plank.cure.empty() ? plank.text : plank.text + "; " + plank.cure));
    std::fflush(stdout);
}

// Stops behind the first broken plank; people see each as soon as it is known.
void walk(Visit &visit, std::span<const Look> looks) {
    for (const Look look : looks) {
        if (visit.worst() == State::broken)
            return;
        const std::size_t known = visit.planks.size();
        look(visit);
        if (!visit.context.output.json)
            std::for_each(visit.planks.begin() + std::ptrdiff_t(known), visit.planks.end(), print);
    }
}

} // namespace

int doctor(Context &context, const Words &) {
    Visit visit{context};
    walk(visit, road);
    walk(visit, visit.is_here ? std::span<const Look>(on_the_gateway) : std::span<const Look>(from_afar));
    walk(visit, at_the_end);
    const State worst = visit.worst();
    if (context.output.json) {
        Json planks = Json::array();
        for (const Plank &plank : visit.planks)
            planks.push_back({{"plank", plank.name},
                              {"state", state_names[static_cast<std::size_t>(plank.state)]},
                              {"text", plank.text},
                              {"cure", plank.cure}});
        print_json({{"state", state_names[static_cast<std::size_t>(worst)]}, {"planks", planks}});
    }
    return worst == State::broken ? static_cast<int>(Trouble::failed) : 0;
}
