#include "backend/lifecycle.h"

#include "backend/driver_channel.h"
#include "backend/driver_record.h"
#include "backend/interfaces.h"
#include "backend/log.h"
#include "backend/running_interfaces.h"
#include "backend/shell.h"
#include "backend/value_lists.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace {

// The driver needs this long until its interfaces can join bridges.
constexpr std::chrono::seconds settling_time{4};

std::mutex stop_mutex; // guards what follows
std::condition_variable stop_ended;
bool stop_runs = false;
std::atomic<unsigned> current_run{0}; // read without it too

bool is_selector(int radios) {
    return radios == static_cast<int>(Radios::only_24g) || radios == static_cast<int>(Radios::only_5g) ||
           radios == static_cast<int>(Radios::both);
}

Status run_for(const char *who, const char *verb, Radios radios, std::unique_lock<std::mutex> held = {}) {
    return run_command(who, host_command(verb, script_word(radios)).c_str(), std::move(held));
}

bool has_interfaces(Radios loaded_for, Radios running) {
    const auto has = [&](Radio radio) { return includes(loaded_for, radio) && includes(running, radio); };
    return has(Radio::band_24g) || has(Radio::band_5g);
}

Status read_wps_enabled(const Bss &bss, int *ret_enabled) {
    return read_list_number(bss, "WscEnable", 1, ret_enabled);
}

// The driver comes up with WPS on, whatever the settings say.
Status switch_wps_mode_off(int first_index) { return ZAV_Set(first_index, "WscConfMode=0"); }

Status switch_wps_mode_off_if_disabled(int first_index) {
    Bss bss;
    int enabled = 0;
    if (find_bss(first_index, &bss) != success || read_wps_enabled(bss, &enabled) != success)
        return failure;
    return enabled != 0 ? success : switch_wps_mode_off(first_index);
}

int first_index_5g() { return static_cast<int>(refresh_counts().on_24g) + 1; }

Status settle_wps(Radios running) {
    if (includes(running, Radio::band_24g) && switch_wps_mode_off_if_disabled(1) != success)
        return failure;
    if (includes(running, Radio::band_5g) && switch_wps_mode_off_if_disabled(first_index_5g()) != success)
        return failure;
    return success;
}

bool has_ended(unsigned run) {
    const auto held = hold_stops_off();
    return run != current_run;
}

Status begin_init(const char *who, unsigned run) {
    if (run != current_run)
        return failure;
    if (!driver_is(DriverState::loaded)) {
        log_error("[ZAV-API] Error %s The driver/s was not loaded!\n", who);
        return failure;
    }
    return advance_driver_state(DriverState::loaded, DriverState::initialised) ? success : failure;
}

void begin_stop() {
    const std::lock_guard held(stop_mutex);
    stop_runs = true;
}

void end_stop(Status result) {
    const std::lock_guard held(stop_mutex);
    if (result == success) {
        ++current_run;
        set_known_driver();
        remove_driver_record(); // also one that the start could not check
    }
    stop_runs = false;
    stop_ended.notify_all();
}

} // namespace

std::unique_lock<std::mutex> hold_stops_off() {
    std::unique_lock held(stop_mutex);
    stop_ended.wait(held, [] { return !stop_runs; });
    return held;
}

unsigned driver_run() { return current_run; }

InitOutcome resume_driver() {
    const char *oddity = nullptr;
    auto recorded = read_driver_record(&oddity);
    Radios running = recorded ? GET_RUNNING_INTERFACES() : Radios::none;
    if (running == Radios::unknown)
        running = GET_RUNNING_INTERFACES(); // descriptors or a slow tool, perhaps
    // Going on could take a stopped driver for a running one, and dropping it would forget one that runs.
    // Kept, it is as if the daemon had not been started: what changes the driver here writes or removes it.
    if (running == Radios::unknown) {
        log_error(
            "[ZAV-API] Error %s the driver's record cannot be checked, and is kept for the next start\n",
            __func__);
        return {};
    }
    if (recorded && !has_interfaces(recorded->loaded_for, running))
        oddity = "is of interfaces that are not there";
    if (oddity != nullptr) {
        log_error("[ZAV-API] Error %s the driver's record %s, and is dropped\n", __func__, oddity);
        remove_driver_record(); // it must not come true again by chance
        return {};
    }
    if (!recorded)
        return {};
    // Nobody knows how far the script of an init that was cut off has come, and it may run still: a second
    // one beside it would be worse than none. So that init has failed, and after a failed one the driver
    // stays initialised until it is stopped.
    if (recorded->state == DriverState::initialised && recorded->init.end == InitEnd::none)
        recorded->init = {InitEnd::unreported, failure};
    change_driver([&](KnownDriver *driver) { *driver = *recorded; });
    return recorded->init;
}

std::string host_command(std::string_view verb, std::string_view argument) {
    return std::string("$zav_install_dir/zv_host.sh ").append(verb).append(" ").append(argument);
}

Status ZAV_Start(int radios) {
    if (driver_is(DriverState::loaded)) {
        log_debug("[ZAV-API] %s The driver already loaded", __func__);
        return success;
    }
    if (GET_RUNNING_INTERFACES() != Radios::none)
        return success;
    if (!is_selector(radios))
        return failure;
    set_interfaces_up(static_cast<Radios>(radios));
    if (run_for(__func__, "load", interfaces_up()) != success)
        return failure;
    set_driver_state(DriverState::loaded);
    return success;
}

Status ZAV_Init(unsigned run) {
    log_debug("[ZAV-API] %s  entry.\n", __func__);
    auto held = hold_stops_off();
    if (begin_init(__func__, run) != success ||
        run_for(__func__, "init", interfaces_up(), std::move(held)) != success)
        return failure;
    if (has_ended(run))
        return failure; // what runs now is not the driver of this init
    const Radios running = GET_RUNNING_INTERFACES();
    if (running == Radios::none || settle_wps(running) != success)
        return failure;
    std::this_thread::sleep_for(settling_time);
    held = hold_stops_off();
    if (run != current_run)
        return failure; // nothing is left that could join a bridge
    const char *word = script_word(running);
    const std::string vlans = host_command("addvlans", word) + " no_ipv6&& " + host_command("rtdot1xd", word);
    return run_command(__func__, vlans.c_str(), std::move(held));
}

Status ZAV_Stop() {
    log_debug("[ZAV-API] %s entry.\n", __func__);
    begin_stop();
    Status result = run_command(__func__, host_command("removevlans", "dual br0_remains").c_str());
    if (result == success)
        result = run_command(__func__, host_command("stop", "all").c_str());
    end_stop(result);
    return result;
}

Status ZAV_Restart(int index) {
    Bss bss;
    int enabled = 0;
    if (find_bss(__func__, index, &bss) != success)
        return failure;
    auto held = hold_stops_off();
    const unsigned run = current_run;
    if (!driver_is(DriverState::initialised))
        return success;
    if (read_wps_enabled(bss, &enabled) != success)
        return failure;
    log_debug("[ZAV-API] %s restarting interfaces...\n", __func__);
    const std::string command = host_command("restart_interfaces", script_word(bss.radio));
    if (run_command(__func__, command.c_str(), std::move(held)) != success)
        return failure;
    if (enabled != 0 || has_ended(run))
        return success;
    return switch_wps_mode_off(index - static_cast<int>(bss.number) + 1);
}

Status ZAV_RestartAll() {
    if (!driver_is(DriverState::initialised))
        return success;
    log_debug("[ZAV-API] %s restarting all interfaces..\n", __func__);
    const BssCounts counts = refresh_counts();
    if (counts.on_24g != 0 && ZAV_Restart(1) != success)
        return failure;
    if (counts.on_5g != 0 && ZAV_Restart(static_cast<int>(counts.on_24g) + 1) != success)
        return failure;
    return success;
}
