// The daemon's threads, without a platform: every command fails.

#include "api/lifecycle.h"
#include "api/restart.h"
#include "api/worker.h"
#include "backend/driver_state.h"
#include "backend/lifecycle.h"
#include "backend/log.h"

#include <algorithm>
#include <chrono>
#include <cstdarg>
#include <future>
#include <gtest/gtest.h>
#include <spawn.h>

using namespace std::chrono_literals;

static std::atomic<unsigned> restarted{0};            // bits
static std::atomic<Status> answer_meanwhile{success}; // of init, while its error line is written
static std::future<void> stop;
static std::atomic<bool> stop_kept_out{false};

// Instead of the real ones.
Descriptor output_for_command() { return Descriptor(-1); }
Descriptor errors_for_command() { return Descriptor(-1); }
void log_debug(const char *, ...) {}
void log_checked_after(const char *, const char *, const char *, ...) {}
void log_checked_entry(const char *, int, const char *, ...) {}
void log_error(const char *format, ...) {
    va_list values;
    va_start(values, format);
    if (std::string_view(format).starts_with("=ww="))
        restarted |= va_arg(values, unsigned);
    else
        answer_meanwhile.store(wlan_init());
    va_end(values);
}

extern "C" int posix_spawn(pid_t *child, const char *path, const posix_spawn_file_actions_t *files,
                           const posix_spawnattr_t *attributes, char *const words[],
                           char *const variables[]) {
    stop = std::async(std::launch::async, [] { (void)hold_stops_off(); });
    stop_kept_out = stop.wait_for(100ms) == std::future_status::timeout;
    return posix_spawnp(child, path, files, attributes, words, variables);
}

TEST(Worker, IsDetachedAndSmall) {
    struct Thread {
        int detached;
        std::size_t stack;
    };
    std::promise<Thread> seen;
    const auto look = [](void *argument) -> void * {
        pthread_attr_t attributes;
        Thread own{};
        pthread_getattr_np(pthread_self(), &attributes);
        pthread_attr_getdetachstate(&attributes, &own.detached);
        pthread_attr_getstacksize(&attributes, &own.stack);
        pthread_attr_destroy(&attributes);
        static_cast<std::promise<Thread> *>(argument)->set_value(own);
        return nullptr;
    };
    ASSERT_TRUE(start_worker(look, &seen));
    const Thread own = seen.get_future().get();
    EXPECT_EQ(own.detached, PTHREAD_CREATE_DETACHED);
    // some ports allow no stack as small
    EXPECT_EQ(own.stack, SANITIZED
                             ? std::size_t{1} << 20
                             : std::max(std::size_t{32768}, static_cast<std::size_t>(PTHREAD_STACK_MIN)));
}

// The command is started before a stop can begin, and the result is there before the end shows.
TEST(Init, KeepsItsOrder) {
    set_driver_state(DriverState::loaded);
    Status answer = wlan_init();
    EXPECT_EQ(answer, in_progress);
    while ((answer = wlan_init()) == in_progress)
        std::this_thread::sleep_for(1ms);
    EXPECT_EQ(answer, failure);
    EXPECT_EQ(answer_meanwhile, in_progress);
    EXPECT_TRUE(stop_kept_out);
}

// Without the mask's lock a request can be lost, and TSan tells of it at once.
TEST(Restart, LosesNoRequestToItsThread) {
    set_driver_state(DriverState::stopped); // so that nothing is to be done
    for (int round = 0; round < 200; ++round) {
        restarted = 0;
        for (int index = 1; index <= 16; ++index)
            EXPECT_EQ(wlan_restart(index), success);
        for (int tries = 0; restarted != 0xFFFF && tries < 5000; ++tries)
            std::this_thread::sleep_for(1ms);
        ASSERT_EQ(restarted, 0xFFFFU) << round;
    }
}
