#include "backend/interfaces.h"

#include "backend/config_store.h"
#include "backend/lifecycle.h"
#include "backend/log.h"
#include "backend/shell.h"
#include "backend/text.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <mutex>

namespace {

std::mutex counts_mutex; // held where a count or InterfacesUp changes

// A count is read once and kept until the driver is stopped or loaded for the other band alone.
unsigned refresh(std::atomic<unsigned> &count, const char *ifname, unsigned loaded_without) {
    if (const unsigned known = count; known != 0)
        return known;
    const std::lock_guard held(counts_mutex); // over the reading too: what is stored must not be outdated
    std::array<char, 16> text{};
    if (nvram_get_str(ifname, "BssidNum", text) != success || InterfacesUp == loaded_without)
        return 0;
    const long long stored = std::strtoll(text.data(), nullptr, 10);
    const auto clamped = static_cast<unsigned>(std::clamp<long long>(stored, 0, most_bss_in_a_band));
    count = clamped;
    return clamped;
}

// One BSS: its band and its number there.
struct Position {
    bool is_24g;
    unsigned number;
};

Status find_position(int index, Position *ret_position, const char *who = nullptr) {
    const BssCounts counts = refresh_counts();
    if (index < 1 || static_cast<unsigned>(index) > counts.total()) {
        if (who != nullptr)
            log_debug("[ZAV-API] %s illegal index:%i.\n", who, index);
        return failure;
    }
    const auto position = static_cast<unsigned>(index);
    *ret_position =
        position <= counts.on_24g ? Position{true, position} : Position{false, position - counts.on_24g};
    return success;
}

void write_name(const Position &position, InterfaceName *ret_name) {
    const std::string_view beginning = position.is_24g ? "zvi0" : "zv0";
    *ret_name = {}; // the whole name travels to the driver
    std::copy(beginning.begin(), beginning.end(), ret_name->begin());
    std::to_chars(ret_name->data() + beginning.size(), ret_name->data() + ret_name->size() - 1,
                  position.number - 1);
}

} // namespace

void set_interfaces_up(unsigned band) {
    const std::lock_guard held(counts_mutex);
    InterfacesUp = band;
    if (band == 24)
        BssidNumZv00 = 0;
    if (band == 5)
        BssidNumZvi00 = 0;
}

void forget_counts() {
    const std::lock_guard held(counts_mutex);
    BssidNumZvi00 = 0;
    BssidNumZv00 = 0;
}

BssCounts refresh_counts() {
    const unsigned on_5g = refresh(BssidNumZv00, "zv00", 24);
    const unsigned on_24g = refresh(BssidNumZvi00, "zvi00", 5);
    return {on_24g, on_5g};
}

Status ZAV_GetNumberOfEntries(unsigned *ret_count) {
    *ret_count = refresh_counts().total();
    return success;
}

Status ZAV_GetNumberOfEntriesPerInf(unsigned *ret_first, unsigned *ret_last, int index) {
    const BssCounts counts = refresh_counts();
    if (index < 1 || static_cast<unsigned>(index) > counts.total() || ret_first == nullptr)
        return failure;
    const bool is_24g = static_cast<unsigned>(index) <= counts.on_24g;
    *ret_first = is_24g ? 1 : counts.on_24g + 1;
    if (ret_last == nullptr)
        return failure;
    *ret_last = is_24g ? counts.on_24g : counts.total();
    return success;
}

Status isIndexValid(int index) { return check_index(__func__, index); }

Status check_index(const char *who, int index) {
    Position position;
    return find_position(index, &position, who);
}

Status GET_IFNAME_FROM_INDEX(InterfaceName *ret_name, int index, unsigned *ret_bss) {
    Position position;
    if (find_position(index, &position) != success)
        return failure;
    write_name(position, ret_name);
    if (ret_bss != nullptr)
        *ret_bss = position.number;
    return success;
}

Status find_bss(const char *who, int index, Bss *ret_bss) {
    Position position;
    if (find_position(index, &position, who) != success)
        return failure;
    write_name(position, &ret_bss->ifname);
    ret_bss->number = position.number;
    return success;
}

Status GET_ATM_IFNAME_FROM_INDEX(InterfaceName *ret_name, int index, unsigned *ret_bss) {
    Position position;
    if (find_position(index, &position) != success)
        return failure;
    *ret_name = {};
    copy_text(*ret_name, position.is_24g ? "atm24g" : "atm5g");
    if (ret_bss != nullptr)
        *ret_bss = position.number;
    return success;
}

Status ZAV_getIfNameByIndex(int index, InterfaceName *ret_name) {
    log_debug("[ZAV-API] %s entry (index=%d).\n", __func__, index);
    if (isIndexValid(index) != success)
        return failure;
    if (check_driver(__func__, driver_initialised) != success)
        return failure;
    if (GET_IFNAME_FROM_INDEX(ret_name, index, nullptr) != success)
        return failure;
    log_debug("[ZAV-API] %s ifname=%s.\n", __func__, ret_name->data());
    return success;
}

int ZAV_is24g(const char *ifname) {
    const bool is_24g = is_24g_name(ifname);
    log_debug("[ZAV-API] %s ifname=%s, %s.\n", __func__, ifname, is_24g ? "24g" : "5g");
    return is_24g ? 1 : 0;
}

int ZAV_is5g(const char *ifname) { return ZAV_is24g(ifname) == 0 ? 1 : 0; }

int GET_RUNNING_INTERFACES() {
    constexpr char command[] = "ifconfig";
    log_debug("[ZAV-API] %s command=%s.\n", __func__, command);
    bool has_24g = false, has_5g = false;
    const Status read = read_command(__func__, command, tool_deadline, [&](std::string_view line) {
        has_24g = has_24g || line.starts_with("zvi0");
        has_5g = has_5g || line.starts_with("zv0");
    });
    if (read != success)
        return failure;
    if (has_24g)
        return has_5g ? 245 : 24;
    return has_5g ? 5 : 0;
}

int isInterfacesRunningOnBand(int index) {
    InterfaceName ifname;
    if (GET_IFNAME_FROM_INDEX(&ifname, index, nullptr) != success)
        return 0;
    const int running = GET_RUNNING_INTERFACES();
    return running == 245 || running == (is_24g_name(ifname.data()) ? 24 : 5) ? 1 : 0;
}
