#include "api/lifecycle.h"

#include "api/worker.h"
#include "api/wrapper.h"
#include "backend/lifecycle.h"

#include <atomic>

namespace {

constexpr unsigned char idle = 0, started = 1, finished = 2;

std::atomic<unsigned char> init_state{idle}; // bits
std::atomic<unsigned> init_reported{0};      // a final answer has been handed out
std::atomic<int> init_result{success};       // stored before the finished bit is set

Status last_init_result() { return static_cast<Status>(init_result.load()); }

// An init that a reset has overtaken is nobody's any more.
void publish_result(const char *who, unsigned run, Status result) {
    const auto held = hold_stops_off();
    if (run != driver_run())
        return;
    init_result = report(who, result, "wlan init - traffic is now passing.\n");
    set_init_outcome({InitEnd::unreported, last_init_result()}); // before it can be reported
    init_state.fetch_or(finished, std::memory_order_release);
}

void set_reported() {
    init_reported = 1;
    set_init_outcome({InitEnd::reported, last_init_result()});
}

void *init_thread_function(void *argument) {
    log_debug("[ZAV-API] %s wlan init - init thread started.\n", __func__);
    const unsigned run = *static_cast<const unsigned *>(argument); // gone after the first step
    init_state.fetch_or(started);
    init_state.notify_all();
    publish_result(__func__, run, ZAV_Init(run));
    return nullptr;
}

Status start_init(const char *who) {
    unsigned run = driver_run();
    if (!start_worker(init_thread_function, &run)) {
        report_no_worker(who);
        set_reported();
        log_debug("[ZAV-API] %s wlan init - error creating init thread.\n", who);
        return failure;
    }
    init_state.wait(idle); // so that the next call finds it running
    return in_progress;
}

} // namespace

void wlan_resume() {
    const InitOutcome init = resume_driver();
    init_result = init.result;
    init_reported = init.end == InitEnd::reported ? 1 : 0;
    init_state = init.end == InitEnd::none ? idle : started | finished;
}

Status wlan_load(int flags) {
    log_debug("[ZAV-API] %s entry.\n", __func__);
    return report(__func__, ZAV_Start(flags), "wlan loaded.\n");
}

Status wlan_init() {
    if (init_reported != 0) {
        log_debug("[ZAV-API] %s wlan init - you cannot run init twice.\n", __func__);
        return last_init_result();
    }
    const unsigned char state = init_state.load(std::memory_order_acquire);
    switch (state) {
    case started:
        log_debug("[ZAV-API] %s wlan init - still processing, wait.\n", __func__);
        return in_progress;
    case started | finished:
        log_debug("[ZAV-API] %s wlan init - finished processing, ret val:%i\n", __func__, init_result.load());
        set_reported();
        return last_init_result();
    case idle:
        return start_init(__func__);
    default:
        set_reported();
        log_debug("[ZAV-API] %s wlan init - unknown state-machine state: %d.\n", __func__, state);
        return failure;
    }
}

Status wlan_reset() {
    log_debug("[ZAV-API] %s entry.\n", __func__);
    const Status result = report(__func__, ZAV_Stop(), "wlan stopped.\n");
    if (result == success) {
        init_reported = 0;
        init_state = idle;
    }
    return result;
}
