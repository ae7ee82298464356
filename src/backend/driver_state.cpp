#include "backend/driver_state.h"

#include "backend/log.h"

#include <atomic>

namespace {

std::atomic<DriverState> driver_state{DriverState::stopped};
std::atomic<bool> vlan_file_reset{true};

} // namespace

void set_driver_state(DriverState state) { driver_state = state; }

bool advance_driver_state(DriverState from, DriverState to) {
    return driver_state.compare_exchange_strong(from, to);
}

bool driver_is(DriverState least) { return driver_state >= least; }

Status check_driver(const char *who, DriverState least) {
    if (driver_is(least))
        return success;
    log_debug("[ZAV-API] %s The driver is not initialized\n", who);
    return failure;
}

bool vlan_file_is_reset() { return vlan_file_reset; }

void set_vlan_file_is_reset(bool is_reset) { vlan_file_reset = is_reset; }
