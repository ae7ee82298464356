#include "api/restart.h"

#include "api/worker.h"
#include "api/wrapper.h"
#include "backend/lifecycle.h"

#include <cstdint>
#include <mutex>
#include <semaphore>
#include <utility>

namespace {

constexpr std::uint16_t restart_everything = 0xFFFF;
constexpr std::uint16_t mask_24g = 0x00FF, mask_5g = 0xFF00; // eight BSSes a radio
constexpr int first_index_24g = 1, first_index_5g = 9;

std::mutex restart_mask_mutex;
std::uint16_t restart_mask_next = 0;
std::counting_semaphore<> restart_thread_semaphore{1}; // a post for each request; the first wake finds none
bool restart_thread_runs = false;                      // asked by the request thread alone

std::uint16_t take_mask() {
    const std::lock_guard held(restart_mask_mutex);
    return std::exchange(restart_mask_next, std::uint16_t{0});
}

void restart(const char *who, std::uint16_t mask) {
    if (mask != 0)
        log_error("=ww= Now restart wlan with mask:%04x\n", mask);
    if (mask == restart_everything) {
        (void)report(who, ZAV_RestartAll(), "restart all finished.\n");
        return;
    }
    if ((mask & mask_5g) != 0)
        (void)report(who, ZAV_Restart(first_index_5g), "restart finished.\n");
    if ((mask & mask_24g) != 0)
        (void)report(who, ZAV_Restart(first_index_24g), "restart finished.\n");
}

void *restart_thread_function(void *) {
    log_debug("[ZAV-API] %s wlan restart - restart thread started.\n", __func__);
    for (;;) {
        restart_thread_semaphore.acquire();
        restart(__func__, take_mask());
    }
}

// Adds to the pending mask; asking for everything is the mask with all bits.
Status request(std::uint16_t added) {
    if (!restart_thread_runs)
        (void)wlan_restart_thread_start();
    const std::lock_guard held(restart_mask_mutex);
    restart_mask_next = static_cast<std::uint16_t>(restart_mask_next | added);
    restart_thread_semaphore.release();
    return success;
}

} // namespace

Status wlan_restart(int index) {
    const std::uint32_t bit = std::uint32_t{1} << ((static_cast<std::uint32_t>(index) - 1) % 32);
    return request(static_cast<std::uint16_t>(bit));
}

Status wlan_restart_all() { return request(restart_everything); }

Status wlan_restart_thread_start() {
    restart_thread_runs = start_worker(restart_thread_function);
    if (!restart_thread_runs)
        report_no_worker(__func__);
    return restart_thread_runs ? success : failure;
}
