#include "rrm/driver_data.h"

#include "backend/log.h"

namespace {

Status found_or_say(const char *who, int index, Status found) {
    if (found != success)
        log_debug("[ZAV-API] %s error searching for the name of interface with index %d\n", who, index);
    return found;
}

} // namespace

Status find_bss_or_say(const char *who, int index, Bss *ret_bss) {
    return found_or_say(who, index, find_bss(index, ret_bss));
}

Status ask_block(const char *who, FindName find, int index, const PrivateCommand &command,
                 std::span<std::byte> ret_block) {
    InterfaceName ifname;
    if (check_driver(who, DriverState::initialised) != success ||
        found_or_say(who, index, find(&ifname, index, nullptr)) != success)
        return failure;
    return ask_private(who, ifname, command, ret_block);
}

Status SetDriverDataOnTheFly(const char *command, const InterfaceName &ifname, int kind) {
    if (check_driver(__func__, DriverState::initialised) != success)
        return failure;
    const PrivateRequest request = kind == 1 ? PrivateRequest::show : PrivateRequest::statistics;
    return ask_private(__func__, ifname, {.request = request, .text = command, .shown = false}, {});
}
