#include "backend/interfaces.h"

#include "backend/log.h"
#include "backend/text.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <string_view>

namespace {

unsigned refresh(unsigned BssCounts::*count, const SettingsFile &settings, Radios loaded_without) {
    if (const unsigned known = known_counts().*count; known != 0)
        return known;
    unsigned found = 0;
    change_driver([&](KnownDriver *driver) {
        std::array<char, 16> text{};
        if (nvram_get_str(settings, "BssidNum", text) != success || driver->loaded_for == loaded_without)
            return;
        const long long stored = std::strtoll(text.data(), nullptr, 10);
        found = static_cast<unsigned>(std::clamp<long long>(stored, 0, most_bss_in_a_band));
        driver->counts.*count = found;
    });
    return found;
}

Bss make_bss(Radio radio, unsigned number) {
    const std::string_view beginning = radio == Radio::band_24g ? "zvi0" : "zv0";
    Bss bss{radio, number, {}};
    std::copy(beginning.begin(), beginning.end(), bss.name.begin());
    std::to_chars(bss.name.data() + beginning.size(), bss.name.data() + bss.name.size() - 1, number - 1);
    return bss;
}

} // namespace

BssCounts refresh_counts() {
    const unsigned on_5g = refresh(&BssCounts::on_5g, settings_5g, Radios::only_24g);
    const unsigned on_24g = refresh(&BssCounts::on_24g, settings_24g, Radios::only_5g);
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

Status find_bss(int index, Bss *ret_bss) {
    const BssCounts counts = refresh_counts();
    if (index < 1 || static_cast<unsigned>(index) > counts.total())
        return failure;
    const auto position = static_cast<unsigned>(index);
    *ret_bss = position <= counts.on_24g ? make_bss(Radio::band_24g, position)
                                         : make_bss(Radio::band_5g, position - counts.on_24g);
    return success;
}

Status find_bss(const char *who, int index, Bss *ret_bss) {
    const Status found = find_bss(index, ret_bss);
    if (found != success)
        log_debug("[ZAV-API] %s illegal index:%i.\n", who, index);
    return found;
}

Status isIndexValid(int index) { return check_index(__func__, index); }

Status check_index(const char *who, int index) {
    Bss bss;
    return find_bss(who, index, &bss);
}

Status GET_IFNAME_FROM_INDEX(InterfaceName *ret_name, int index, unsigned *ret_bss) {
    Bss bss;
    if (find_bss(index, &bss) != success)
        return failure;
    *ret_name = bss.name;
    if (ret_bss != nullptr)
        *ret_bss = bss.number;
    return success;
}

Status GET_ATM_IFNAME_FROM_INDEX(InterfaceName *ret_name, int index, unsigned *ret_bss) {
    Bss bss;
    if (find_bss(index, &bss) != success)
        return failure;
    *ret_name = {};
    copy_text(*ret_name, bss.radio == Radio::band_24g ? "atm24g" : "atm5g");
    if (ret_bss != nullptr)
        *ret_bss = bss.number;
    return success;
}

Status ZAV_getIfNameByIndex(int index, Bss *ret_bss) {
    log_debug("[ZAV-API] %s entry (index=%d).\n", __func__, index);
    if (isIndexValid(index) != success || check_driver(__func__, DriverState::initialised) != success ||
        find_bss(index, ret_bss) != success)
        return failure;
    log_debug("[ZAV-API] %s ifname=%s.\n", __func__, ret_bss->name.data());
    return success;
}

int ZAV_is24g(const Bss &bss) {
    log_debug("[ZAV-API] %s ifname=%s, %s.\n", __func__, bss.name.data(), script_word(bss.radio));
    return bss.radio == Radio::band_24g ? 1 : 0;
}
