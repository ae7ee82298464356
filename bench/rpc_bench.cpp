#include "load.h"
#include "start.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <sched.h>
#include <string>
#include <string_view>

// Compares the daemon with the three bare servers, all of them running. Ratios are taken within a round,
// where the machine's other work meets all alike; the table shows the median round.

namespace {

constexpr std::size_t server_count = 4;
enum : std::size_t { stock, bounded, transport, daemon_itself };
constexpr std::array<const char *, server_count> server_names{"stock", "bounded", "transport", "daemon"};

constexpr int fewest_rounds = 10;
constexpr int blocks = 10; // of each case and server in a round, taking turns
constexpr int calls_in_block = 200;
constexpr double goal_hanging = 1.2;

// What the daemon's p50 is to be at most of another server's.
struct Goal {
    std::size_t other;
    double ratio;
};
struct Mode {
    const char *title;
    int in_flight;
    std::array<Goal, case_count> goals;
};
constexpr Mode one_by_one{"one request at a time, client and server on one core",
                          1,
                          {{{stock, 0.92}, {bounded, 0.97}, {bounded, 0.97}, {bounded, 0.97}}}};
constexpr Mode in_flight{"16 requests in flight, the server on a core of its own",
                         most_in_flight,
                         {{{stock, 0.80}, {bounded, 1.00}, {bounded, 1.00}, {bounded, 1.00}}}};

using Servers = std::array<Server, server_count>;

struct Figures {
    double p50, p99, rate;
};
using Round = std::array<std::array<Figures, server_count>, case_count>;

double quantile(std::vector<double> values, double part) {
    const auto at =
        values.begin() + static_cast<std::ptrdiff_t>(part * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), at, values.end());
    return *at;
}

template <class Figure>
double median(const std::vector<Round> &rounds, Figure figure) {
    std::vector<double> values;
    for (const Round &round : rounds)
        values.push_back(figure(round));
    return quantile(values, 0.5);
}

void pin(pid_t pid, int core) {
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(static_cast<std::size_t>(core), &set);
    if (sched_setaffinity(pid, sizeof set, &set) != 0) {
        std::perror("rpc_bench: sched_setaffinity");
        std::exit(1);
    }
}

// The first and the last core that this process may use.
std::array<int, 2> two_cores() {
    cpu_set_t set;
    sched_getaffinity(0, sizeof set, &set);
    std::array<int, 2> cores{-1, -1};
    for (int core = 0; core < CPU_SETSIZE; ++core)
        if (CPU_ISSET(static_cast<std::size_t>(core), &set)) {
            cores[0] = cores[0] < 0 ? core : cores[0];
            cores[1] = core;
        }
    return cores;
}

Round run_round(Servers &servers, const Mode &mode, bool reversed) {
    std::array<std::array<Samples, server_count>, case_count> samples;
    constexpr std::size_t pairs = case_count * server_count;
    for (int block = 0; block < blocks; ++block)
        for (std::size_t i = 0; i < pairs; ++i) {
            const std::size_t pair = reversed ? pairs - 1 - i : i;
            const std::size_t which = pair / server_count, server = pair % server_count;
            call(servers[server], static_cast<Case>(which), calls_in_block, mode.in_flight,
                 &samples[which][server]);
        }
    Round round;
    for (std::size_t which = 0; which < case_count; ++which)
        for (std::size_t server = 0; server < server_count; ++server) {
            const auto &[times, seconds] = samples[which][server];
            round[which][server] = {quantile(times, 0.5), quantile(times, 0.99),
                                    static_cast<double>(times.size()) / seconds};
        }
    return round;
}

void print_goal(double value, const Goal &goal) {
    std::printf("   %.2f of %s %s", goal.ratio, server_names[goal.other],
                value <= goal.ratio ? "met" : "missed");
}

void print_row(const std::vector<Round> &rounds, const Mode &mode, std::size_t which, std::size_t server) {
    const auto of = [&](double Figures::*figure) {
        return median(rounds, [&](const Round &round) { return round[which][server].*figure; });
    };
    const auto ratio_to = [&](std::size_t other) {
        return median(rounds,
                      [&](const Round &round) { return round[which][server].p50 / round[which][other].p50; });
    };
    const double tail = median(
        rounds, [&](const Round &round) { return round[which][server].p99 / round[which][server].p50; });
    std::printf("%-7s %-9s %8.2f %8.2f %9.0f %7.3f %9.3f %11.3f %8.2f", case_names[which],
                server_names[server], of(&Figures::p50), of(&Figures::p99), of(&Figures::rate),
                ratio_to(stock), ratio_to(bounded), ratio_to(transport), tail);
    const Goal &goal = mode.goals[which];
    if (server == daemon_itself)
        print_goal(ratio_to(goal.other), goal);
    std::puts("");
}

void measure(Servers &servers, const Mode &mode, int rounds) {
    std::vector<Round> measured;
    run_round(servers, mode, false); // warms up
    for (int i = 0; i < rounds; ++i)
        measured.push_back(run_round(servers, mode, i % 2 != 0));
    std::printf("\n%s (%d rounds of %d calls)\n", mode.title, rounds, blocks * calls_in_block);
    std::puts("case    server    p50 [us] p99 [us]   calls/s  /stock  /bounded  /transport  p99/p50   goal");
    for (std::size_t which = 0; which < case_count; ++which)
        for (std::size_t server = 0; server < server_count; ++server)
            print_row(measured, mode, which, server);
    std::fflush(stdout);
}

// Also sets what the first measured set is to change.
void compare_replies(Servers &servers) {
    constexpr unsigned xid = 1;
    for (Server &server : servers)
        for (const Case which : {Case::set, Case::resize})
            (void)call_once(server, which, xid);
    for (const Case which : {Case::null, Case::get}) {
        const auto expected = call_once(servers[stock], which, xid);
        for (Server &server : servers)
            if (call_once(server, which, xid) != expected) {
                std::fprintf(stderr, "rpc_bench: %s and %s answer differently\n", servers[stock].name,
                             server.name);
                std::exit(1);
            }
    }
}

// How often something else has the core while nothing is served: a tail that no server can help.
void print_interruptions() {
    using Clock = std::chrono::steady_clock;
    constexpr double noticeable = 10;
    constexpr auto duration = std::chrono::milliseconds(500);
    std::vector<double> gaps;
    const auto begin = Clock::now();
    for (auto last = begin; last - begin < duration;) {
        const auto now = Clock::now();
        if (const double gap = std::chrono::duration<double, std::micro>(now - last).count();
            gap > noticeable)
            gaps.push_back(gap);
        last = now;
    }
    const double a_second =
        static_cast<double>(gaps.size()) / std::chrono::duration<double>(duration).count();
    std::printf("the machine by itself takes the core away %.0f times a second, for %.0f us in the median\n",
                a_second, gaps.empty() ? 0.0 : quantile(gaps, 0.5));
}

Server server_at(const char *name, const char *port_and_pid) {
    unsigned port = 0;
    int pid = 0;
    if (std::sscanf(port_and_pid, "%u:%d", &port, &pid) != 2) {
        std::fprintf(stderr, "rpc_bench: not PORT:PID: %s\n", port_and_pid);
        std::exit(2);
    }
    return {name, connect_to(port), pid};
}

// Gets of a daemon whose workers all hang and of one that has none, in turn, on one core.
void measure_hanging(Server idle, Server hanging, int rounds) {
    std::vector<double> p99_idle, p99_hanging, ratios;
    const int core = two_cores()[0];
    for (const pid_t process : {0, idle.pid, hanging.pid})
        pin(process, core);
    for (int i = 0; i <= rounds; ++i) {
        Samples of_idle, of_hanging;
        for (int block = 0; block < blocks; ++block) {
            call(idle, Case::get, calls_in_block, 1, &of_idle);
            call(hanging, Case::get, calls_in_block, 1, &of_hanging);
        }
        if (i == 0)
            continue; // warms up
        p99_idle.push_back(quantile(of_idle.microseconds, 0.99));
        p99_hanging.push_back(quantile(of_hanging.microseconds, 0.99));
        ratios.push_back(p99_hanging.back() / p99_idle.back());
    }
    const double ratio = quantile(ratios, 0.5);
    std::printf(
        "p99 of a get while an init, two scans and a restart hang: %.2f us, idle %.2f us, ratio %.2f   "
        "%.2f %s\n",
        quantile(p99_hanging, 0.5), quantile(p99_idle, 0.5), ratio, goal_hanging,
        ratio <= goal_hanging ? "met" : "missed");
}

// Calls without measuring, for whoever counts the server's system calls.
int only_call(const char *name, int calls, const char *port_and_pid) {
    const auto found = std::find_if(case_names.begin(), case_names.end(),
                                    [name](std::string_view each) { return each == name; });
    if (found == case_names.end() || calls < 2 || calls % 2 != 0)
        return 2;
    Server server = server_at("server", port_and_pid);
    Samples unused;
    call(server, static_cast<Case>(found - case_names.begin()), calls, 1, &unused);
    return 0;
}

} // namespace

int main(int argc, char **argv) {
    if (argc == 5 && std::string_view(argv[1]) == "--call")
        return only_call(argv[2], std::atoi(argv[3]), argv[4]);
    if (argc == 3 && std::string_view(argv[1]) == "--start")
        return measure_start(argv[2]);
    const int rounds = argc >= 3 ? std::atoi(argv[argc == 5 ? 2 : 1]) : 0;
    if (argc == 5 && std::string_view(argv[1]) == "--hanging" && rounds > 0) {
        measure_hanging(server_at("idle", argv[3]), server_at("hanging", argv[4]), rounds);
        return 0;
    }
    if (argc != 6 || rounds < fewest_rounds) {
        std::fputs("usage: rpc_bench ROUNDS STOCK BOUNDED TRANSPORT DAEMON\n"
                   "                 each server as PORT:PID, 10 rounds or more\n"
                   "       rpc_bench --hanging ROUNDS IDLE HANGING\n"
                   "       rpc_bench --start DAEMON\n"
                   "       rpc_bench --call null|get|set|resize CALLS PORT:PID\n",
                   stderr);
        return 2;
    }
    Servers servers;
    for (std::size_t i = 0; i < server_count; ++i)
        servers[i] = server_at(server_names[i], argv[i + 2]);
    compare_replies(servers);
    const auto cores = two_cores();
    pin(0, cores[0]);
    for (const Server &server : servers)
        pin(server.pid, cores[0]);
    print_interruptions();
    measure(servers, one_by_one, rounds);
    if (cores[0] == cores[1]) {
        std::puts("\none core only: nothing measured in flight");
        return 0;
    }
    for (const Server &server : servers)
        pin(server.pid, cores[1]);
    measure(servers, in_flight, rounds);
    return 0;
}
