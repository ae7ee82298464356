#include "security/radius.h"

#include "backend/config_store.h"
#include "backend/interfaces.h"
#include "backend/log.h"
#include "backend/text.h"
#include "backend/value_lists.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

// A text for each BSS; no more of it than `longest` characters is read.
struct TextList {
    const char *key;
    std::size_t longest;
};
constexpr TextList radius_address{"RADIUS_Server", 15};
constexpr TextList acct_address{"RADIUS_Acct_Server", 49};
constexpr TextList acct_key{"RADIUS_Acct_Key", 31};
constexpr std::size_t longest_radius_key = 64;

// A number for each BSS.
constexpr char radius_port[] = "RADIUS_Port";
constexpr char acct_port[] = "RADIUS_Acct_Port";
constexpr char reauth_interval[] = "session_timeout_interval";

std::span<char> room_for(std::span<char> buffer, std::size_t longest) {
    return buffer.first(std::min(buffer.size(), longest + 1));
}

Status get_text(const char *who, const TextList &list, int index, std::span<char> ret_text) {
    Bss bss;
    if (find_bss(who, index, &bss) != success)
        return failure;
    return read_list_text(bss, list.key, bss.number, room_for(ret_text, list.longest));
}

Status set_address(const char *who, const TextList &list, int index, const char *address,
                   std::span<char> ret_stored) {
    Bss bss;
    if (find_bss(who, index, &bss) != success)
        return failure;
    const std::string_view text(address);
    const bool is_valid = isIpAddressValid(address) == 1;
    const bool is_none = text.empty() || text == "0" || text == "0.0.0.0";
    if (!is_valid && !is_none) {
        log_debug("[ZAV-API] %s illegal Ip Address\n", who);
        return failure;
    }
    const char *const stored = is_none ? "1.1.1.1" : address;
    copy_text(ret_stored, stored);
    return write_list_text(who, bss, list.key, bss.number, stored);
}

Status get_number(const char *who, const char *key, int index, unsigned *ret_value) {
    Bss bss;
    int value = 0;
    if (find_bss(who, index, &bss) != success || read_list_number(bss, key, bss.number, &value) != success)
        return failure;
    *ret_value = static_cast<unsigned>(value);
    return success;
}

Status set_port(const char *who, const char *key, int index, unsigned port) {
    Bss bss;
    if (find_bss(who, index, &bss) != success)
        return failure;
    if (port > 65535) {
        log_debug("[ZAV-API] %s illegal Port number\n", who);
        return failure;
    }
    return write_list_number(bss, key, bss.number, port == 0 ? 1 : static_cast<int>(port));
}

// The authentication key is a setting of its own for each BSS.
std::string radius_key(const Bss &bss) { return "RADIUS_Key" + std::to_string(bss.number); }

bool is_address(std::string_view text) {
    unsigned dots = 0, digits = 0;
    for (const char c : text) {
        if (c >= '0' && c <= '9') {
            if (++digits == 4)
                return false;
        } else if (c == '.' && digits > 0 && dots < 3) {
            ++dots;
            digits = 0;
        } else {
            return false;
        }
    }
    return dots == 3 && digits > 0;
}

} // namespace

int isIpAddressValid(const char *text) {
    if (is_address(text))
        return 1;
    log_error("[ZAV-API] Error %s illegal ip address!\n", __func__);
    return 0;
}

Status ZAV_GetRadiusServerAddress(int index, std::span<char> ret_address) {
    return get_text(__func__, radius_address, index, ret_address);
}

Status ZAV_SetRadiusServerAddress(int index, const char *address, std::span<char> ret_stored) {
    return set_address(__func__, radius_address, index, address, ret_stored);
}

Status ZAV_GetRadiusServerPort(int index, unsigned *ret_port) {
    return get_number(__func__, radius_port, index, ret_port);
}

Status ZAV_SetRadiusServerPort(int index, unsigned port) {
    return set_port(__func__, radius_port, index, port);
}

Status ZAV_GetRadiusServerKey(int index, std::span<char> ret_key) {
    Bss bss;
    if (find_bss(__func__, index, &bss) != success)
        return failure;
    return nvram_get_str(bss, radius_key(bss), room_for(ret_key, longest_radius_key));
}

Status ZAV_SetRadiusServerKey(int index, const char *key) {
    Bss bss;
    if (find_bss(__func__, index, &bss) != success)
        return failure;
    return nvram_set_str(bss, radius_key(bss), key);
}

Status ZAV_GetRadiusReAuthInterval(int index, unsigned *ret_interval) {
    return get_number(__func__, reauth_interval, index, ret_interval);
}

Status ZAV_SetRadiusReAuthInterval(int index, unsigned interval) {
    Bss bss;
    if (find_bss(__func__, index, &bss) != success)
        return failure;
    const int seconds = static_cast<int>(interval);
    if (seconds < 60 && seconds != 0) {
        log_debug("[ZAV-API] %s illegal interval:%i smaller than 60.\n", __func__, seconds);
        return failure;
    }
    return write_list_number(bss, reauth_interval, bss.number, seconds);
}

Status ZAV_GetAcctServerAddress(int index, std::span<char> ret_address) {
    return get_text(__func__, acct_address, index, ret_address);
}

Status ZAV_SetAcctServerAddress(int index, const char *address, std::span<char> ret_stored) {
    return set_address(__func__, acct_address, index, address, ret_stored);
}

Status ZAV_GetAcctServerPort(int index, unsigned *ret_port) {
    return get_number(__func__, acct_port, index, ret_port);
}

Status ZAV_SetAcctServerPort(int index, unsigned port) { return set_port(__func__, acct_port, index, port); }

Status ZAV_GetAcctServerKey(int index, std::span<char> ret_key) {
    return get_text(__func__, acct_key, index, ret_key);
}

Status ZAV_SetAcctServerKey(int index, const char *key) {
    Bss bss;
    if (find_bss(__func__, index, &bss) != success)
        return failure;
    return write_list_text(__func__, bss, acct_key.key, bss.number, key);
}
