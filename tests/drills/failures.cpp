// A daemon whose calls fail: failures_drill STRIDE. For each request and each kind of call, every STRIDEth
// call that the request makes fails, one at a time. Then there is an answer, or the daemon has ended for lack
// of memory; the settings are the old ones or the new ones; no descriptor is lost; and it goes on as if
// nothing had been.

#include "service/gateway.h"
#include "sim/failing_calls.h"

#include <cstdlib>
#include <fcntl.h>
#include <future>
#include <iostream>
#include <sys/mman.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace {

using namespace std::chrono_literals;

constexpr std::uint32_t load = 1, init = 2, reset = 3, get_status = 11, set_channel = 17, get_ssid = 21,
                        set_ssid = 22, get_basic_stats = 56, get_stats = 57, add_to_access_list = 110,
                        stations = 221, restart = 207, scan = 219, scan_status = 223, set_wps_uuid = 121,
                        set_wep_key = 61, set_guard_interval = 151, set_reauth_interval = 163;
const std::string in_progress = word(3);

const struct Request {
    const char *name;
    std::uint32_t procedure;
    std::string arguments;
    bool sets = false;
} requests[] = {
    {"set_ssid", set_ssid, word(1) + xdr_text("another net"), true},
    {"set_channel", set_channel, word(1) + word(11), true},
    {"access list", add_to_access_list, word(1) + xdr_text("02:00:00:00:00:01") + xdr_text("tv"), true},
    {"set_wps_uuid", set_wps_uuid, word(1) + xdr_text("00112233-4455-6677-8899-aabbccddeeff"), true},
    {"set_wep_key", set_wep_key, word(1) + word(1) + xdr_text("abcde"), true},
    {"set_guard_interval", set_guard_interval, word(1) + word(1), true},
    {"set_wpa_reauth_interval", set_reauth_interval, word(1) + word(1234), true},
    {"get_ssid", get_ssid, word(1)},
    {"get_status", get_status, word(1)},
    {"get_basic_stats", get_basic_stats, word(1)},
    {"get_stats", get_stats, word(9) + word(0)},
    {"stations", stations, word(1)},
    {"scan", scan, word(9)},
    {"restart", restart, word(9)},
    {"init", init, ""},
    {"reset", reset, ""},
    {"load", load, word(245)},
};

constexpr std::pair<const char *, CallKind> kinds[] = {{"allocation", CallKind::allocation},
                                                       {"thread", CallKind::thread},
                                                       {"pipe", CallKind::pipe},
                                                       {"socket", CallKind::socket},
                                                       {"ioctl", CallKind::ioctl},
                                                       {"spawn", CallKind::spawn},
                                                       {"open", CallKind::open}};

FailingCalls *make_order() {
    const int fd = open(FailingCalls::file, O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (ftruncate(fd, sizeof(FailingCalls)) != 0)
        std::abort();
    void *shared = mmap(nullptr, sizeof(FailingCalls), PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
    close(fd);
    return static_cast<FailingCalls *>(shared);
}

// Quick ones: only what they leave counts.
std::vector<std::string> make_scripts() {
    const char make[] =
        "mkdir -p /tmp/host /tmp/run /tmp/journal && cd /tmp/host && cat >zv_host.sh <<'END'\n"
        "#!/bin/sh\n"
        "cd /tmp/gateway/interfaces\n"
        "case $1 in load) echo up >zvi00; echo up >zv00 ;; stop) rm -f zv* ;; esac\n"
        "END\nchmod +x zv_host.sh";
    if (std::system(make) != 0)
        std::abort();
    return {"LD_PRELOAD=" BINARY_DIR "/lib/libfailing_calls.so:" BINARY_DIR "/lib/libzav_sim.so",
            "zav_install_dir=/tmp/host", "WLAN_CONFIGD_PORT=4000", "RUNTIME_DIRECTORY=/tmp/run",
            "STATE_DIRECTORY=/tmp/journal"};
}

class Drill {
public:
    explicit Drill(int stride) : stride_(stride) {}

    void run(const Request &request, CallKind kind) {
        prepare(request);
        const std::string after = settings_after(request);
        // What goes on behind an answer may be too late for one number: the end is two without a failing
        // call.
        for (int number = 1, missed = 0; missed < 2; number += stride_) {
            if (kind == CallKind::thread)
                gateway_.restart(); // one of its threads is started only once
            prepare(request);
            order_->failed = 0;
            order_->left = number;
            order_->kind = kind;
            end_.reset();
            const auto answer = call(request.procedure, request.arguments);
            if (!end_)
                settle(request, answer);
            order_->kind = CallKind::none;
            missed = order_->failed == 0 ? missed + 1 : 0;
            if (missed > 0)
                continue;
            ++tried;
            check(request, answer, after, number);
        }
    }

    int tried = 0, ends = 0, faults = 0;

private:
    std::string settings() { return read_file(gateway_.path("settings/ZAV75024g.dat")); }

    bool is_up() { return gateway_.call(get_status, word(1)) == data_reply(0, {}, std::string("Up\0", 3)); }

    void bring_up() {
        gateway_.call(reset, "");
        gateway_.call(load, word(245));
        wait_while(init, "", in_progress);
    }

    // A daemon that has ended answers no more: the client hears of it by the next datagram that it sends.
    std::optional<std::string> call(std::uint32_t procedure, const std::string &arguments) {
        auto answer = std::async(std::launch::async, [&] { return gateway_.call(procedure, arguments); });
        while (answer.wait_for(1ms) != std::future_status::ready) {
            if (!end_)
                end_ = gateway_.daemon().ended(1ms);
            if (end_)
                gateway_.exchange(call_header(0), 0);
        }
        return answer.get();
    }

    void wait_while(std::uint32_t procedure, const std::string &arguments, const std::string &passing) {
        while (!end_ && call(procedure, arguments) == passing)
            std::this_thread::sleep_for(2ms);
    }

    void prepare(const Request &request) {
        if (!is_up())
            bring_up();
        if (request.procedure == load || request.procedure == init)
            gateway_.call(reset, "");
        if (request.procedure == init)
            gateway_.call(load, word(245));
        write_file(gateway_.path("settings/ZAV75024g.dat"), factory_);
        write_file(gateway_.path("log"), "");
        write_file(gateway_.path("err"), "");
    }

    std::string settings_after(const Request &request) {
        const auto answer = gateway_.call(request.procedure, request.arguments);
        settle(request, answer);
        fault(!request.sets || (answer == word(0) && settings() != factory_), "nothing set", request, 0);
        return settings();
    }

    // The workers' part.
    void settle(const Request &request, const std::optional<std::string> &answer) {
        if (request.procedure == init && answer == in_progress)
            wait_while(init, "", in_progress);
        if (request.procedure == scan)
            wait_while(scan_status, word(9), data_reply(0, {1, 0, 0, 0}, ""));
        if (request.procedure == restart) // its last effect
            await([&] { return gateway_.count("log", "ConfMode=0") + gateway_.count("err", "Error") > 0; },
                  1s);
    }

    long descriptors() {
        std::error_code gone;
        const std::string directory = "/proc/" + std::to_string(gateway_.daemon().id()) + "/fd";
        return std::distance(std::filesystem::directory_iterator(directory, gone), {});
    }

    void check(const Request &request, const std::optional<std::string> &answer, const std::string &after,
               int number) {
        const std::string found = settings(), said = read_file(gateway_.path("err"));
        if (!end_)
            end_ = gateway_.daemon().ended(10ms);
        if (end_) {
            ++ends;
            fault(*end_ == 1 << 8 && said.ends_with("out of memory\n"), "a wrong end", request, number);
            gateway_.restart();
            end_.reset();
        } else {
            fault(answer.has_value(), "no answer", request, number);
        }
        fault(found == factory_ || found == after, "half a setting", request, number);
        fault(!request.sets || !answer || found == (answer == word(0) ? after : factory_),
              "another answer than setting", request, number);
        fault(gateway_.answers(), "silence", request, number);
        fault(await([&] { return descriptors() <= few_; }, 2s), "a lost descriptor", request, number);
        if (!is_up())
            bring_up();
        fault(is_up(), "a driver that does not come up", request, number);
    }

    void fault(bool is_none, const char *what, const Request &request, int number) {
        if (is_none)
            return;
        ++faults;
        std::cout << request.name << ", call " << number << ": " << what << '\n'
                  << read_file(gateway_.path("err")) << std::endl;
    }

    const int stride_;
    std::optional<int> end_; // of the daemon, since the request
    FailingCalls *order_ = make_order();
    Gateway gateway_{{"127.0.0.1"}, make_scripts()};
    const std::string factory_ = settings();
    const long few_ = descriptors();
};

} // namespace

int main(int, char **argv) {
    Drill drill(std::atoi(argv[1]));
    for (const auto &[name, kind] : kinds) {
        for (const Request &request : requests)
            drill.run(request, kind);
        std::cout << name << ": " << drill.tried << " calls failed, " << drill.ends << " ended the daemon"
                  << std::endl;
        const bool may_end = kind == CallKind::allocation;
        drill.faults += std::exchange(drill.tried, 0) == 0 || (std::exchange(drill.ends, 0) > 0) != may_end;
    }
    return drill.faults == 0 ? 0 : 1;
}
