#include "backend/channels.h"

#include "backend/config_store.h"
#include "backend/driver_channel.h"
#include "backend/interfaces.h"
#include "backend/log.h"
#include "backend/text.h"
#include "backend/value_lists.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

namespace {

constexpr char sides_key[] = "HT_ExtChList";

constexpr int channels_24g = 13;
using Sides = std::array<int, channels_24g>;
constexpr int below = 0, above = 1;

int &side_of(Sides &sides, int channel) { return sides.at(static_cast<std::size_t>(channel) - 1); }

// Whether the value is this text; an absent one is not.
Status compare_key(int index, const char *key, const char *text, unsigned *ret_is_equal) {
    Bss bss;
    std::string stored;
    if (find_bss(index, &bss) != success)
        return failure;
    (void)nvram_get_whole(bss, key, &stored);
    *ret_is_equal = stored == text ? 1 : 0;
    return success;
}

bool is_legal_channel(const char *who, int channel) {
    if (channel >= 1 && channel <= channels_24g)
        return true;
    log_debug("[ZAV-API] %s illegal channel:%i.\n", who, channel);
    return false;
}

bool can_extend(const char *who, int channel, unsigned side) {
    if (!is_legal_channel(who, channel))
        return false;
    if (channel <= 4 && side != above) {
        log_debug("[ZAV-API] %s for channel:%i only above (1) channel extension can be set.\n", who, channel);
        return false;
    }
    if (channel >= 10 && side != below) {
        log_debug("[ZAV-API] %s for channel:%i only below (0) channel extension can be set.\n", who, channel);
        return false;
    }
    if (side > above) {
        log_debug("[ZAV-API] %s wrong value of channel extension. allowed value are 0/1 below/above \n", who);
        return false;
    }
    return true;
}

// The side in force is the one that the list has for the channel; one that it has none for changes nothing.
Status follow_channel(const Bss &bss, int channel, Sides &sides) {
    if (channel < 1 || channel > channels_24g)
        return unchanged;
    return nvram_set_int(bss, "HT_EXTCHA", side_of(sides, channel));
}

} // namespace

Status ZAV_GetChannel(int index, unsigned *ret_channel) {
    Bss bss;
    std::string stored;
    if (find_bss(index, &bss) != success || nvram_get_whole(bss, "Channel", &stored) != success)
        return failure;
    int channel = 0;
    scan_number(stored.c_str(), &channel);
    *ret_channel = static_cast<unsigned>(channel);
    log_debug("[ZAV-API] %s (NVRAM: channel=%d).\n", __func__, channel);
    return success;
}

Status ZAV_SetChannel(int index, unsigned channel) {
    const int number = static_cast<int>(channel);
    log_debug("[ZAV-API] %s entry (%d,%d).\n", __func__, index, number);
    Bss bss;
    if (find_bss(index, &bss) != success)
        return failure;
    std::array<char, 2> bandwidth{};
    if ((number == 140 || number == 165) &&
        (nvram_get_str(bss, "HT_BW", bandwidth) != success || bandwidth[0] == '1'))
        return failure;
    bool has_sides = true; // without their list the channel is stored all the same
    const Status result = nvram_set_together(bss, [&] {
        const Status stored = nvram_set_int(bss, "Channel", number);
        if (stored == failure || number == 0 || bss.radio != Radio::band_24g)
            return stored;
        Sides sides;
        has_sides = read_numbers(bss, sides_key, sides) == success;
        return has_sides ? code_of_two(stored, follow_channel(bss, number, sides)) : stored;
    });
    return has_sides ? result : failure;
}

Status ZAV_GetCurrentChannel(int index, unsigned *ret_channel) {
    if (check_index(__func__, index) != success)
        return failure;
    if (check_driver(__func__, DriverState::initialised) != success)
        return failure;
    std::array<char, 76> answer;
    if (ZAV_Show(index, "Channel", answer) != success)
        return failure;
    int channel = 0;
    scan_number(answer.data(), &channel);
    *ret_channel = static_cast<unsigned>(channel);
    return success;
}

Status ZAV_GetAutoChannelEnable(int index, unsigned *ret_enable) {
    return compare_key(index, "Channel", "0", ret_enable);
}

Status ZAV_SetAutoChannelEnable(int, unsigned) { return success; }

Status ZAV_GetExtensionChannel(int index, int channel, unsigned *ret_side) {
    Bss bss;
    Sides sides;
    if (find_bss(__func__, index, &bss) != success || !is_legal_channel(__func__, channel) ||
        bss.radio != Radio::band_24g || read_numbers(bss, sides_key, sides) != success)
        return failure;
    *ret_side = static_cast<unsigned>(side_of(sides, channel));
    return success;
}

Status ZAV_SetExtensionChannel(int index, int channel, unsigned side) {
    Bss bss;
    Sides sides;
    if (find_bss(__func__, index, &bss) != success || bss.radio != Radio::band_24g ||
        !can_extend(__func__, channel, side) || read_numbers(bss, sides_key, sides) != success)
        return failure;
    side_of(sides, channel) = static_cast<int>(side);
    return write_numbers(bss, sides_key, sides);
}

Status ZAV_GetIeee80211hEnable(int index, unsigned *ret_enable) {
    return compare_key(index, "IEEE80211H", "1", ret_enable);
}

Status ZAV_SetIeee80211hEnable(int index, unsigned enable) {
    Bss bss;
    if (find_bss(index, &bss) != success)
        return failure;
    if (bss.radio == Radio::band_24g) {
        log_debug("[ZAV-API] %s cannot be enabled for 2.4G interfaces.\n", __func__);
        return failure;
    }
    return nvram_set_str(bss, "IEEE80211H", enable != 0 ? "1" : "0");
}

Status ZAV_GetPossibleChannels(int index, std::span<char> ret_channels) {
    constexpr std::size_t longest_list = 149;
    std::array<char, longest_list + 2> answer; // one character more tells that the answer goes on
    (void)ZAV_Show(index, "supported_channels", answer);
    std::replace(answer.begin(), answer.begin() + std::strlen(answer.data()), ';', ',');
    std::string_view list(answer.data());
    if (list.size() > longest_list)
        list = list.substr(0, list.rfind(',', longest_list - 1) + 1); // half a number is another channel
    copy_text(ret_channels, list);
    log_debug("[ZAV-API] %s channels=%s.\n", __func__, ret_channels.data());
    return success;
}
