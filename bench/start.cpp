#include "start.h"

#include "load.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int starts = 21;
constexpr unsigned port = 40490;
constexpr double goal_milliseconds = 20;
constexpr long goal_kilobytes = 4096;

struct Start {
    double milliseconds;
    long kilobytes;
};

long resident_kilobytes(pid_t process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string word; status >> word;)
        if (word == "VmRSS:" && status >> word)
            return std::atol(word.c_str());
    return -1;
}

Start start_once(const char *daemon) {
    const auto begin = Clock::now();
    const pid_t process = fork();
    if (process == 0) {
        setenv("WLAN_CONFIGD_PORT", std::to_string(port).c_str(), 1);
        execl(daemon, daemon, nullptr);
        _exit(127);
    }
    Server server{"daemon", connect_to(port), process};
    while (!is_served(server))
        if (Clock::now() - begin > std::chrono::seconds(5)) {
            std::fputs("rpc_bench: the daemon does not start\n", stderr);
            std::exit(1);
        }
    const double milliseconds = std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    const Start start{milliseconds, resident_kilobytes(process)};
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    close(server.socket);
    return start;
}

const char *met(bool is_met) { return is_met ? "met" : "missed"; }

} // namespace

int measure_start(const char *daemon) {
    std::vector<Start> all;
    for (int i = 0; i < starts; ++i)
        all.push_back(start_once(daemon));
    const auto by_time = [](const Start &a, const Start &b) { return a.milliseconds < b.milliseconds; };
    std::sort(all.begin(), all.end(), by_time);
    const Start &median = all[starts / 2];
    std::printf("start to first answer: %.1f ms, at the most %.1f ms of %d   %.0f ms %s\n",
                median.milliseconds, all.back().milliseconds, starts, goal_milliseconds,
                met(median.milliseconds < goal_milliseconds));
    std::printf("memory at rest: %ld kB   %ld kB %s\n", median.kilobytes, goal_kilobytes,
                met(median.kilobytes < goal_kilobytes));
    return 0;
}
