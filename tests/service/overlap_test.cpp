// Init, restarts, resets and requests of several clients at once, with the real binary.

#include "service/golden.h"

#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>

namespace {

using namespace std::chrono_literals;

constexpr std::uint32_t load = 1, init = 2, reset = 3, get_status = 11, get_name = 12, get_ssid = 21,
                        set_ssid = 22, restart_all = 206, restart = 207;
constexpr int in_progress = 3;

#ifdef SANITIZED
constexpr std::size_t scripts_to_see = 600;
#else
constexpr std::size_t scripts_to_see = 2000;
#endif

// Stands for the host script and for ifconfig: notes what it has inherited, and is quick.
constexpr char prying_script[] = R"(#!/bin/sh
seen=
for each in /proc/self/fd/*; do seen="$seen${each##*/} "; done
while read -r key value; do
    case $key in SigBlk: | SigIgn:) seen="$seen$key$value " ;; esac
done </proc/self/status
echo "${seen% }" >>/tmp/pry/seen
case ${0##*/}:$1 in
*:load) : >/tmp/pry/up ;;
*:stop) rm -f /tmp/pry/up ;;
ifconfig:) [ ! -e /tmp/pry/up ] || printf 'zv00\nzvi00\n' ;;
esac
)";

std::vector<std::string> pry() {
    EXPECT_EQ(std::system("mkdir /tmp/pry && ln -s zv_host.sh /tmp/pry/ifconfig"), 0);
    write_file("/tmp/pry/zv_host.sh", prying_script);
    std::filesystem::permissions("/tmp/pry/zv_host.sh", std::filesystem::perms::all);
    return {"zav_install_dir=/tmp/pry", "RUNTIME_DIRECTORY=/tmp/pry",
            std::string("PATH=/tmp/pry:") + std::getenv("PATH")};
}

// What the script itself has open comes on top of 0, 1 and 2: here it has inherited nothing else.
std::string seen_without_a_daemon() {
    Process alone({"/tmp/pry/zv_host.sh"}, {}, "/dev/null", "/dev/null");
    EXPECT_EQ(alone.ended(), 0);
    const std::string seen = read_file("/tmp/pry/seen");
    std::filesystem::remove("/tmp/pry/seen");
    const std::string none(16, '0');
    return seen.substr(0, seen.find("Sig")) + "SigBlk:" + none + " SigIgn:" + none;
}

// A descriptor gets into a script only when it is started in the moment between another thread's open and the
// descriptor's mark, hence the thousands.
TEST(Overlap, IsSafeAndNothingIsInherited) {
    const auto environment = pry();
    const std::string expected = seen_without_a_daemon();
    Gateway gateway({"127.0.0.1"}, environment);
    write_file(gateway.path("interfaces/zv00"), "up");
    write_file("/tmp/wlandbg", "");
    std::atomic<bool> enough = false;
    std::atomic<int> wrong = 0, inits = 0;
    const auto client = [&](const std::function<void(Client &, std::uint32_t)> &work) {
        return std::jthread([&, work] {
            Client own(gateway.port());
            for (std::uint32_t i = 0; !enough; ++i)
                work(own, i);
        });
    };
    std::vector<std::jthread> threads;
    threads.push_back(client([&](Client &own, std::uint32_t i) {
        wrong += own.code(load, word(245)) != 0;
        for (int answer = in_progress; answer == in_progress && i % 4 != 3; std::this_thread::sleep_for(1ms))
            wrong += (answer = own.code(init)) != in_progress && answer != 0;
        wrong += i % 4 == 3 && own.code(init) != in_progress; // the reset overtakes it
        wrong += own.code(reset) != 0;
        ++inits;
    }));
    threads.push_back(client([&](Client &own, std::uint32_t i) {
        wrong += (i % 5 == 0 ? own.code(restart_all) : own.code(restart, word(i % 18))) != 0;
        std::this_thread::sleep_for(1ms);
    }));
    threads.push_back(client([&](Client &own, std::uint32_t i) {
        wrong += own.call(get_name, word(9)) != data_reply(0, {}, std::string("zv00\0", 5));
        const auto status = own.call(get_status, word(i % 16 + 1));
        const std::string initialised = i % 16 + 1 == 9 ? "Up" : "Error"; // zv00 alone exists
        wrong += status != data_reply(0, {}, std::string(1, '\0')) &&
                 status != data_reply(0, {}, initialised + '\0');
    }));
    threads.push_back(client([&](Client &own, std::uint32_t i) {
        wrong += own.code(set_ssid, word(2) + xdr_text("Net " + std::to_string(i))) != 0;
        wrong += own.code(get_ssid, word(9)) != 0;
    }));
    await([&] { return lines_of(read_file("/tmp/pry/seen")).size() >= scripts_to_see; }, 900s);
    enough = true;
    threads.clear();
    std::filesystem::remove("/tmp/wlandbg");
    EXPECT_EQ(wrong, 0) << read_file(gateway.path("err"));
    EXPECT_GT(inits, 10);
    const auto all = lines_of(read_file("/tmp/pry/seen"));
    EXPECT_GE(all.size(), scripts_to_see);
    const std::string own = "180000000"; // signals 32 and 33: the C library's, which it leaves ignored
    for (std::string seen : all) {
        if (seen.ends_with(own))
            seen.replace(seen.size() - own.size(), own.size(), own.size(), '0');
        ASSERT_EQ(seen, expected);
    }
    EXPECT_EQ(read_file(gateway.path("err")).find("Sanitizer"), std::string::npos)
        << read_file(gateway.path("err"));
}

} // namespace
