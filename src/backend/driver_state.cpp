#include "backend/driver_state.h"

#include "backend/driver_record.h"
#include "backend/log.h"

#include <atomic>
#include <mutex>

namespace {

std::mutex change_mutex; // held over each change and the writing of the record
std::atomic<DriverState> driver_state{DriverState::stopped};
std::atomic<Radios> loaded_for{Radios::both};
std::atomic<unsigned> known_24g{0}, known_5g{0};
std::atomic<bool> vlan_file_reset{true};
InitOutcome init_outcome; // under the mutex

} // namespace

void change_driver(const std::function<void(KnownDriver *)> &change) {
    const std::lock_guard held(change_mutex);
    const KnownDriver before{driver_state, loaded_for, {known_24g, known_5g}, vlan_file_reset, init_outcome};
    KnownDriver driver = before;
    change(&driver);
    if (driver == before)
        return;
    driver_state = driver.state;
    loaded_for = driver.loaded_for;
    known_24g = driver.counts.on_24g;
    known_5g = driver.counts.on_5g;
    vlan_file_reset = driver.vlan_file_is_reset;
    init_outcome = driver.init;
    if (driver.state != DriverState::stopped)
        write_driver_record(driver);
    else if (before.state != DriverState::stopped)
        remove_driver_record();
}

void set_driver_state(DriverState state) {
    change_driver([state](KnownDriver *driver) { driver->state = state; });
}

bool advance_driver_state(DriverState from, DriverState to) {
    bool advanced = false;
    change_driver([&](KnownDriver *driver) {
        advanced = driver->state == from;
        if (advanced)
            driver->state = to;
    });
    return advanced;
}

bool driver_is(DriverState least) { return driver_state >= least; }

Status check_driver(const char *who, DriverState least) {
    if (driver_is(least))
        return success;
    log_debug("[ZAV-API] %s The driver is not initialized\n", who);
    return failure;
}

void set_interfaces_up(Radios radios) {
    change_driver([radios](KnownDriver *driver) {
        driver->loaded_for = radios;
        if (radios == Radios::only_24g)
            driver->counts.on_5g = 0;
        if (radios == Radios::only_5g)
            driver->counts.on_24g = 0;
    });
}

Radios interfaces_up() { return loaded_for; }

BssCounts known_counts() { return {known_24g, known_5g}; }

bool vlan_file_is_reset() { return vlan_file_reset; }

void set_vlan_file_is_reset(bool is_reset) {
    change_driver([is_reset](KnownDriver *driver) { driver->vlan_file_is_reset = is_reset; });
}

void set_init_outcome(InitOutcome outcome) {
    change_driver([outcome](KnownDriver *driver) { driver->init = outcome; });
}

void set_known_driver(DriverState state, BssCounts counts) {
    change_driver([state, counts](KnownDriver *driver) {
        *driver = {state, driver->loaded_for, counts, false, {}};
    });
}
