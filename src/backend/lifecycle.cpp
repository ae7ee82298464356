#include "backend/lifecycle.h"

#include "backend/driver_channel.h"
#include "backend/interfaces.h"
#include "backend/log.h"
#include "backend/shell.h"
#include "backend/value_lists.h"

#include <chrono>
#include <mutex>
#include <thread>

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

// Counts the successful stops, so that an init that a stop has overtaken can tell.
std::atomic<unsigned> stops{0};
std::mutex init_begin_mutex; // a stop comes before an init begins or behind it, not in the middle

const BandCommands *find_band(unsigned band) {
    for (const BandCommands &commands : band_commands)
        if (commands.band == band)
            return &commands;
    return nullptr;
}

Status wps_enabled(int index, int *ret_enabled) {
    InterfaceName ifname;
    if (GET_IFNAME_FROM_INDEX(&ifname, index, nullptr) != success)
        return failure;
    return read_list_number(ifname.data(), "WscEnable", 1, ret_enabled);
}

// The driver comes up with WPS on, whatever the settings say.
Status switch_wps_mode_off(int first_index) { return ZAV_Set(first_index, "WscConfMode=0"); }

Status switch_wps_mode_off_if_disabled(int first_index) {
    int enabled = 0;
    if (wps_enabled(first_index, &enabled) != success)
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

Status begin_init(const char *who, unsigned *ret_stops) {
    const std::lock_guard held(init_begin_mutex);
    if (!driver_loaded) {
        log_error("[ZAV-API] Error %s The driver/s was not loaded!\n", who);
        return failure;
    }
    *ret_stops = stops;
    return driver_initialised.exchange(true) ? failure : success;
}

} // namespace

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
    InterfacesUp = commands->band; // before the counts: a look-up meanwhile leaves the other band out
    if (band == 24)
        BssidNumZv00 = 0;
    if (band == 5)
        BssidNumZvi00 = 0;
    if (run_command(__func__, commands->load) != success)
        return failure;
    driver_loaded = true;
    return success;
}

Status ZAV_Init() {
    log_debug("[ZAV-API] %s  entry.\n", __func__);
    unsigned begun = 0;
    if (begin_init(__func__, &begun) != success)
        return failure;
    const BandCommands *commands = find_band(InterfacesUp);
    if (commands == nullptr || run_command(__func__, commands->init) != success)
        return failure;
    if (stops != begun)
        return failure; // what runs now is not the driver of this init
    const int running = GET_RUNNING_INTERFACES();
    if (running == 0 || settle_wps(running) != success)
        return failure;
    std::this_thread::sleep_for(settling_time);
    if (stops != begun)
        return failure; // nothing is left that could join a bridge
    const BandCommands *settled = find_band(static_cast<unsigned>(running));
    return run_command(__func__, settled == nullptr ? dual_commands.vlans : settled->vlans);
}

Status ZAV_Stop() {
    log_debug("[ZAV-API] %s entry.\n", __func__);
    if (run_command(__func__, "$zav_install_dir/zv_host.sh removevlans dual br0_remains") != success ||
        run_command(__func__, "$zav_install_dir/zv_host.sh stop all") != success)
        return failure;
    const std::lock_guard held(init_begin_mutex);
    ++stops;
    driver_initialised = false;
    driver_loaded = false;
    BssidNumZvi00 = 0;
    BssidNumZv00 = 0;
    vlan_file_is_reset = false;
    return success;
}

Status ZAV_Restart(int index) {
    if (check_index(__func__, index) != success)
        return failure;
    if (!driver_initialised)
        return success;
    unsigned first = 0, last = 0;
    int enabled = 0;
    InterfaceName ifname;
    if (ZAV_GetNumberOfEntriesPerInf(&first, &last, index) != success ||
        GET_IFNAME_FROM_INDEX(&ifname, index, nullptr) != success || wps_enabled(index, &enabled) != success)
        return failure;
    log_debug("[ZAV-API] %s restarting interfaces...\n", __func__);
    const char *command = is_24g_name(ifname.data()) ? "$zav_install_dir/zv_host.sh restart_interfaces 24g"
                                                     : "$zav_install_dir/zv_host.sh restart_interfaces 5g";
    if (run_command(__func__, command) != success)
        return failure;
    return enabled != 0 ? success : switch_wps_mode_off(static_cast<int>(first));
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
