#include "rrm/driver_data.h"

#include "backend/lifecycle.h"
#include "backend/log.h"

Status find_name_of(const char *who, FindName find, int index, InterfaceName *ret_name, unsigned *ret_bss) {
    if (find(ret_name, index, ret_bss) == success)
        return success;
    log_debug("[ZAV-API] %s error searching for the name of interface with index %d\n", who, index);
    return failure;
}

Status ask_block(const char *who, FindName find, int index, const PrivateCommand &command,
                 std::span<std::byte> ret_block) {
    if (check_driver(who, driver_initialised) != success)
        return failure;
    InterfaceName ifname{};
    if (find_name_of(who, find, index, &ifname) != success)
        return failure;
    return ask_private(who, ifname, command, ret_block);
}

Status SetDriverDataOnTheFly(const char *command, const InterfaceName &ifname, int kind) {
    if (check_driver(__func__, driver_initialised) != success)
        return failure;
    const PrivateRequest request = kind == 1 ? PrivateRequest::show : PrivateRequest::statistics;
    return ask_private(__func__, ifname, {.request = request, .text = command, .shown = false}, {});
}
