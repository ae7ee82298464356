#include "backend/unreached.h"

#include "backend/driver_channel.h"
#include "backend/log.h"
#include "backend/result_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

int ZAV_is5g(const Bss &bss) { return ZAV_is24g(bss) == 0 ? 1 : 0; }

Status ZAV_GetMaxBitRate(int index, std::span<char> ret_rate) {
    log_debug("[ZAV-API] %s entry (%d).\n", __func__, index);
    if (check_driver(__func__, DriverState::initialised) != success)
        return failure;
    Bss bss;
    int rate = 0;
    if (find_bss(index, &bss) != success)
        return failure;
    const Asked asked = ask_bit_rate(bss.name, &rate);
    if (asked == Asked::no_socket)
        log_error("[ZAV-API] Error %s ioctl sock failed!\n", __func__);
    if (asked == Asked::refused)
        log_error("[ZAV-API] Error %s ioctl failed %s (%d).\n", __func__, strerror(errno), errno);
    if (asked != Asked::answered)
        return failure;
    std::snprintf(ret_rate.data(), ret_rate.size(), "%i", rate / 1000000);
    log_debug("[ZAV-API] %s (%s).\n", __func__, ret_rate.data());
    return success;
}

Status get_str_value(const char *path, std::span<char> ret_text) {
    return ret_text.size() < 2 ? failure : read_first_line(__func__, path, ret_text);
}
