#include "backend/channels.h"

#include "backend/channel_info.h"
#include "backend/config_store.h"
#include "backend/driver_channel.h"
#include "backend/interfaces.h"
#include "backend/lifecycle.h"
#include "backend/log.h"
#include "backend/shell.h"
#include "backend/text.h"
#include "backend/value_lists.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

namespace {

constexpr char channel_info_file[] = "/etc/Wireless/ZAV750/ChannelInfo.txt";
constexpr char list_key[] = "OverwriteChannelList";

constexpr int channels_24g = 13;
using Sides = std::array<int, channels_24g>;
constexpr int below = 0, above = 1;

int &side_of(Sides &sides, int channel) { return sides.at(static_cast<std::size_t>(channel) - 1); }

Status read_key(int index, const char *key, std::string *ret_text) {
    InterfaceName ifname;
    if (GET_IFNAME_FROM_INDEX(&ifname, index, nullptr) != success)
        return failure;
    return nvram_get_whole(ifname.data(), key, ret_text);
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

// The side in force is the one that the list has for the channel.
Status follow_channel(const InterfaceName &ifname, int channel) {
    Sides sides;
    if (read_numbers(ifname.data(), "HT_ExtChList", sides) != success)
        return failure;
    return nvram_set_int(ifname.data(), "HT_EXTCHA", side_of(sides, channel));
}

Status read_bandwidth(const char *ifname, int *ret_bandwidth) {
    std::string stored;
    if (nvram_get_whole(ifname, "HT_BW", &stored) != success)
        return failure;
    *ret_bandwidth = stored == "1" ? 40 : 20;
    if (stored != "1" && stored != "0")
        log_error("HT_BW NVRAM key is not valid: %s\n", strerror(EINVAL));
    return success;
}

// A command that fails has said so itself.
Status remove_list_line(const char *who, const char *path) {
    const std::string command = std::string("sed -i '/OverwriteChannelList/d' ") + path;
    log_debug("[ZAV-API] %s command=%s\n", who, command.c_str());
    return run_unchecked(who, command.c_str(), tool_deadline) == -1 ? failure : success;
}

} // namespace

Status ZAV_GetChannel(int index, unsigned *ret_channel) {
    std::string stored;
    if (read_key(index, "Channel", &stored) != success)
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
    InterfaceName ifname;
    if (GET_IFNAME_FROM_INDEX(&ifname, index, nullptr) != success)
        return failure;
    std::array<char, 2> bandwidth{};
    if ((number == 140 || number == 165) &&
        (nvram_get_str(ifname.data(), "HT_BW", bandwidth) != success || bandwidth[0] == '1'))
        return failure;
    const Status stored = nvram_set_int(ifname.data(), "Channel", number);
    if (stored == failure || !is_24g_name(ifname.data()) || number < 1 || number > channels_24g)
        return stored;
    return both(stored, follow_channel(ifname, number));
}

Status ZAV_GetCurrentChannel(int index, unsigned *ret_channel) {
    if (check_index(__func__, index) != success)
        return failure;
    if (check_driver(__func__, driver_initialised) != success)
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
    std::string stored;
    if (read_key(index, "Channel", &stored) != success)
        return failure;
    *ret_enable = stored == "0" ? 1 : 0;
    return success;
}

Status ZAV_SetAutoChannelEnable(int, unsigned) { return success; }

Status ZAV_GetExtensionChannel(int index, int channel, unsigned *ret_side) {
    InterfaceName ifname;
    Sides sides;
    if (check_index(__func__, index) != success || !is_legal_channel(__func__, channel) ||
        GET_IFNAME_FROM_INDEX(&ifname, index, nullptr) != success || !is_24g_name(ifname.data()) ||
        read_numbers(ifname.data(), "HT_ExtChList", sides) != success)
        return failure;
    *ret_side = static_cast<unsigned>(side_of(sides, channel));
    return success;
}

Status ZAV_SetExtensionChannel(int index, int channel, unsigned side) {
    InterfaceName ifname;
    Sides sides;
    if (check_index(__func__, index) != success ||
        GET_IFNAME_FROM_INDEX(&ifname, index, nullptr) != success || !is_24g_name(ifname.data()) ||
        !can_extend(__func__, channel, side) || read_numbers(ifname.data(), "HT_ExtChList", sides) != success)
        return failure;
    side_of(sides, channel) = static_cast<int>(side);
    return write_numbers(ifname.data(), "HT_ExtChList", sides);
}

Status ZAV_GetIeee80211hEnable(int index, unsigned *ret_enable) {
    std::string stored;
    if (read_key(index, "IEEE80211H", &stored) != success)
        return failure;
    *ret_enable = stored == "1" ? 1 : 0;
    return success;
}

Status ZAV_SetIeee80211hEnable(int index, unsigned enable) {
    InterfaceName ifname;
    if (GET_IFNAME_FROM_INDEX(&ifname, index, nullptr) != success)
        return failure;
    if (is_24g_name(ifname.data())) {
        log_debug("[ZAV-API] %s cannot be enabled for 2.4G interfaces.\n", __func__);
        return failure;
    }
    return nvram_set_str(ifname.data(), "IEEE80211H", enable != 0 ? "1" : "0");
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

Status ZAV_ChannelsForBandSet(const char *band, const char *ifname) {
    std::string used, country, list;
    if (nvram_get_whole(ifname, "UseChannelInfo", &used) != success || used == "0")
        return RemoveChannelInfoFromNvram(ifname);
    const std::unique_ptr<FILE, int (*)(FILE *)> file(std::fopen(channel_info_file, "re"), std::fclose);
    if (!file) {
        const char *why = strerror(errno);
        log_error("[ZAV-API] Error %s %s does not exits!!!!!!\n", __func__, channel_info_file);
        log_error("%s: %s\n", channel_info_file, why);
        return failure;
    }
    int bandwidth = 0;
    if (nvram_get_whole(ifname, "CountryCode", &country) != success ||
        read_bandwidth(ifname, &bandwidth) != success)
        return failure;
    if (country.empty())
        country = "00";
    ChannelFault fault{};
    const Status found = find_channels(file.get(), {country, band, bandwidth}, &list, &fault);
    if (std::ferror(file.get()) != 0) {
        log_error("[ZAV-API] Error %s %s cannot be read\n", __func__, channel_info_file);
        return failure;
    }
    if (found != success) {
        std::array<char, 256> message;
        makeParsingErrorMessage(message, channel_info_file, fault.line, fault.message, fault.argument);
        log_error(": %s:: %s\n", __func__, message.data());
    }
    return nvram_set_closed_str(ifname, list_key, list.c_str()) == failure ? failure : success;
}

Status ZAV_ParseChannelInfo() {
    if (ZAV_ChannelsForBandSet("2.4", "zvi00") != success) {
        log_error("[ZAV-API] Error %s ERROR!!!Parsing channelinfo for 2.4G failed!!!\n", __func__);
        return failure;
    }
    if (ZAV_ChannelsForBandSet("5.2", "zv00") != success) {
        log_error("[ZAV-API] Error %s ERROR!!!Parsing channelinfo for 5G failed!!!\n", __func__);
        return failure;
    }
    return success;
}

Status RemoveChannelInfoFromNvram(const char *ifname) {
    return nvram_change_by_command(__func__, ifname, list_key, remove_list_line);
}

void makeParsingErrorMessage(std::span<char> ret_text, const char *file, unsigned line, const char *message,
                             std::string_view argument) {
    std::snprintf(ret_text.data(), ret_text.size(), "%s is not valid: line #%u - %s %.*s", file, line,
                  message, static_cast<int>(argument.size()), argument.data());
}
