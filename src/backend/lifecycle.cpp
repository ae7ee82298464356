#include "backend/lifecycle.h"

#include "backend/driver_channel.h"
#include "backend/interfaces.h"
#include "backend/log.h"
#include "backend/shell.h"
#include "backend/value_lists.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace {

// The driver needs this long until its interfaces can join bridges.
constexpr std::chrono::seconds settling_time{4};

struct BandCommands {
    unsigned band;
    const char *load, *init, *vlans;
};

constexpr BandCommands band_commands[] = {
    {24, "$zav_install_dir/zv_host.sh load 24g", "$zav_install_dir/zv_host.sh init 24g",
     "$zav_install_dir/zv_host.sh addvlans 24g no_ipv6&& $zav_install_dir/zv_host.sh rtdot1xd 24g"},
    {5, "$zav_install_dir/zv_host.sh load 5g", "$zav_install_dir/zv_host.sh init 5g",
     "$zav_install_dir/zv_host.sh addvlans 5g no_ipv6&& $zav_install_dir/zv_host.sh rtdot1xd 5g"},
    {245, "$zav_install_dir/zv_host.sh load dual", "$zav_install_dir/zv_host.sh init dual",
     "$zav_install_dir/zv_host.sh addvlans dual no_ipv6&& $zav_install_dir/zv_host.sh rtdot1xd dual"},
};
constexpr const BandCommands &dual_commands = band_commands[2];

std::mutex stop_mutex; // guards what follows and the changes of driver_run
std::condition_variable stop_ended;
bool stop_runs = false;

const BandCommands *find_band(unsigned band) {
    for (const BandCommands &commands : band_commands)
        if (commands.band == band)
            return &commands;
    return nullptr;
}

Status wps_enabled(const InterfaceName &ifname, int *ret_enabled) {
    return read_list_number(ifname.data(), "WscEnable", 1, ret_enabled);
}

// The driver comes up with WPS on, whatever the settings say.
Status switch_wps_mode_off(int first_index) { return ZAV_Set(first_index, "WscConfMode=0"); }

Status switch_wps_mode_off_if_disabled(int first_index) {
    InterfaceName ifname;
    int enabled = 0;
    if (GET_IFNAME_FROM_INDEX(&ifname, first_index, nullptr) != success ||
        wps_enabled(ifname, &enabled) != success)
        return failure;
    return enabled != 0 ? success : switch_wps_mode_off(first_index);
}

int first_index_5g() { return static_cast<int>(refresh_counts().on_24g) + 1; }

Status settle_wps(int running) {
    if ((running == 24 || running == 245) && switch_wps_mode_off_if_disabled(1) != success)
        return failure;
    if ((running == 5 || running == 245) && switch_wps_mode_off_if_disabled(first_index_5g()) != success)
        return failure;
    return success;
}

bool has_ended(unsigned run) {
    const auto held = hold_stops_off();
    return run != driver_run;
}

Status begin_init(const char *who, unsigned run) {
    if (run != driver_run)
        return failure;
    if (!driver_loaded) {
        log_error("[ZAV-API] Error %s The driver/s was not loaded!\n", who);
        return failure;
    }
    return driver_initialised.exchange(true) ? failure : success;
}

void begin_stop() {
    const std::lock_guard held(stop_mutex);
    stop_runs = true;
}

void end_stop(Status result) {
    const std::lock_guard held(stop_mutex);
    if (result == success) {
        ++driver_run;
        driver_initialised = false;
        driver_loaded = false;
        forget_counts();
        vlan_file_is_reset = false;
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

Status check_driver(const char *who, const std::atomic<bool> &flag) {
    if (flag)
        return success;
    log_debug("[ZAV-API] %s The driver is not initialized\n", who);
    return failure;
}

Status ZAV_Start(int band) {
    if (driver_loaded) {
        log_debug("[ZAV-API] %s The driver already loaded", __func__);
        return success;
    }
    if (GET_RUNNING_INTERFACES() != 0)
        return success;
    const BandCommands *commands = find_band(static_cast<unsigned>(band));
    if (commands == nullptr)
        return failure;
    set_interfaces_up(commands->band);
    if (run_command(__func__, commands->load) != success)
        return failure;
    driver_loaded = true;
    return success;
}

Status ZAV_Init(unsigned run) {
    log_debug("[ZAV-API] %s  entry.\n", __func__);
    auto held = hold_stops_off();
    if (begin_init(__func__, run) != success)
        return failure;
    const BandCommands *commands = find_band(InterfacesUp);
    if (commands == nullptr || run_command(__func__, commands->init, std::move(held)) != success)
        return failure;
    if (has_ended(run))
        return failure; // what runs now is not the driver of this init
    const int running = GET_RUNNING_INTERFACES();
    if (running == 0 || settle_wps(running) != success)
        return failure;
    std::this_thread::sleep_for(settling_time);
    held = hold_stops_off();
    if (run != driver_run)
        return failure; // nothing is left that could join a bridge
    const BandCommands *settled = find_band(static_cast<unsigned>(running));
    return run_command(__func__, settled == nullptr ? dual_commands.vlans : settled->vlans, std::move(held));
}

Status ZAV_Stop() {
    log_debug("[ZAV-API] %s entry.\n", __func__);
    begin_stop();
    Status result = run_command(__func__, "$zav_install_dir/zv_host.sh removevlans dual br0_remains");
    if (result == success)
        result = run_command(__func__, "$zav_install_dir/zv_host.sh stop all");
    end_stop(result);
    return result;
}

Status ZAV_Restart(int index) {
    Bss bss;
    int enabled = 0;
    if (find_bss(__func__, index, &bss) != success)
        return failure;
    auto held = hold_stops_off();
    const unsigned run = driver_run;
    if (!driver_initialised)
        return success;
    if (wps_enabled(bss.ifname, &enabled) != success)
        return failure;
    log_debug("[ZAV-API] %s restarting interfaces...\n", __func__);
    const char *command = is_24g_name(bss.ifname.data())
                              ? "$zav_install_dir/zv_host.sh restart_interfaces 24g"
                              : "$zav_install_dir/zv_host.sh restart_interfaces 5g";
    if (run_command(__func__, command, std::move(held)) != success)
        return failure;
    if (enabled != 0 || has_ended(run))
        return success;
    return switch_wps_mode_off(index - static_cast<int>(bss.number) + 1);
}

Status ZAV_RestartAll() {
    if (!driver_initialised)
        return success;
    log_debug("[ZAV-API] %s restarting all interfaces..\n", __func__);
    const BssCounts counts = refresh_counts();
    if (counts.on_24g != 0 && ZAV_Restart(1) != success)
        return failure;
    if (counts.on_5g != 0 && ZAV_Restart(static_cast<int>(counts.on_24g) + 1) != success)
        return failure;
    return success;
}
