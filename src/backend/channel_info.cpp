#include "backend/channel_info.h"

#include "backend/log.h"
#include "backend/shell.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>

namespace {

constexpr char channel_info_file[] = "/etc/Wireless/ZAV750/ChannelInfo.txt";
constexpr char list_key[] = "OverwriteChannelList";
constexpr std::string_view blanks = " \t";
constexpr std::string_view line_ends("#\r\n\0", 4); // no text goes on behind a zero byte
constexpr int highest_channel = 255;
constexpr std::size_t bandwidth_begins = 4; // behind "2.4G"

// The country's place in the message is never filled in: it follows.
constexpr char country_not_found[] = "country code \"%s\" not found.";

using UsedChannels = std::bitset<highest_channel + 1>;

// The lines of a file, of any length, counted.
class Lines {
public:
    explicit Lines(std::FILE *file) : file_(file) {}
    Lines(const Lines &) = delete;
    Lines &operator=(const Lines &) = delete;
    ~Lines() { std::free(text_); }

    std::optional<std::string_view> next() {
        const ssize_t length = getline(&text_, &room_, file_);
        if (length < 0)
            return std::nullopt;
        ++number_;
        return std::string_view(text_, static_cast<std::size_t>(length));
    }
    unsigned number() const { return number_; }

private:
    std::FILE *file_;
    char *text_ = nullptr;
    std::size_t room_ = 0;
    unsigned number_ = 0;
};

std::string_view without_leading_blanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(blanks), text.size()));
}

// 0 where no number stands, or one too large.
int number_at(std::string_view text) {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

bool fits(std::string_view line, const ChannelSearch &search) {
    if (!line.starts_with(search.band))
        return false;
    const std::size_t digit = line.find_first_of("24", bandwidth_begins);
    return digit != line.npos && number_at(line.substr(digit)) == search.bandwidth;
}

// Puts one channel on the list; nullptr, or what is wrong with it.
const char *take_channel(std::string_view token, int bandwidth, UsedChannels *used, std::string *list) {
    const std::size_t open = token.find('('), close = token.find(')');
    if (open == token.npos || close == token.npos || close < open)
        return "found channel without name.";
    if (close + 1 != token.size())
        return "trailing symbols after channel name.";
    if (open == 0)
        return "found name without channel.";
    const std::string_view text = token.substr(open + 1, close - open - 1);
    const int channel = number_at(text);
    if (channel < 1 || channel > highest_channel)
        return "invalid channel value";
    const auto place = static_cast<std::size_t>(channel);
    // At 40 MHz a channel may stand once for each side of its extension.
    if (bandwidth == 20 && used->test(place))
        return "reusing channel value with 20MHz bandwidth";
    used->set(place);
    list->append(text).append(",");
    return nullptr;
}

const char *list_channels(std::string_view line, int bandwidth, std::string *ret_list) {
    const std::size_t colon = line.find(':', line.find_first_of("24", bandwidth_begins));
    if (colon == line.npos)
        return "found channel string without parameters.";
    UsedChannels used;
    std::string_view rest = without_leading_blanks(line.substr(colon + 1));
    while (!rest.empty()) {
        const std::string_view token = rest.substr(0, rest.find_first_of(blanks));
        if (const char *wrong = take_channel(token, bandwidth, &used, ret_list); wrong != nullptr)
            return wrong;
        rest = without_leading_blanks(rest.substr(token.size()));
    }
    ret_list->append("0");
    return nullptr;
}

bool skip_to_section(Lines *lines, std::string_view country) {
    while (const auto line = lines->next())
        if (line->starts_with('[') && line->substr(1).starts_with(country))
            return true;
    return false;
}

// What is wrong with the section, nullptr when it gave the list.
const char *search_section(Lines *lines, const ChannelSearch &search, std::string *ret_list) {
    while (const auto whole = lines->next()) {
        const auto line = without_leading_blanks(whole->substr(0, whole->find_first_of(line_ends)));
        if (line.starts_with('['))
            return "not found channel with specified settings.";
        if (fits(line, search))
            return list_channels(line, search.bandwidth, ret_list);
    }
    return country_not_found;
}

Status read_bandwidth(const SettingsFile &settings, int *ret_bandwidth) {
    std::string stored;
    if (nvram_get_whole(settings, "HT_BW", &stored) != success)
        return failure;
    *ret_bandwidth = stored == "1" ? 40 : 20;
    if (stored != "1" && stored != "0")
        log_error("HT_BW NVRAM key is not valid: %s\n", strerror(EINVAL));
    return success;
}

// In the file the list has a line feed of its own before the one that ends its line.
std::string with_list(std::string_view text, std::string_view list) {
    const std::string line = std::string("\n").append(list_key).append("=");
    const std::string value = std::string(list).append(list.empty() ? "" : "\n");
    const std::size_t place = text.find(line), begin = place + line.size();
    if (place == text.npos)
        return std::string(text).append(text.ends_with('\n') ? line.substr(1) : line).append(value) + "\n";
    std::string_view tail = text.substr(std::min(text.find('\n', begin), text.size()));
    if (tail.starts_with("\n\n"))
        tail.remove_prefix(1); // the old list's own
    return std::string(text.substr(0, begin)).append(value).append(tail);
}

Status store_list(const char *who, const SettingsFile &settings, std::string_view list) {
    return nvram_edit(who, settings, [list](const char *, std::string_view text, std::string *ret_text) {
        *ret_text = with_list(text, list);
        return success;
    });
}

} // namespace

Status find_channels(std::FILE *file, const ChannelSearch &search, std::string *ret_list,
                     ChannelFault *ret_fault) {
    Lines lines(file);
    ret_list->clear();
    const char *wrong = skip_to_section(&lines, search.country) ? search_section(&lines, search, ret_list)
                                                                : country_not_found;
    if (wrong == nullptr)
        return success;
    *ret_fault = {lines.number(), wrong, wrong == country_not_found ? search.country : ""};
    ret_list->clear();
    return failure;
}

Status ZAV_ChannelsForBandSet(const char *band, const SettingsFile &settings) {
    std::string used, country, list;
    if (nvram_get_whole(settings, "UseChannelInfo", &used) != success || used == "0")
        return RemoveChannelInfoFromNvram(settings);
    const std::unique_ptr<FILE, int (*)(FILE *)> file(std::fopen(channel_info_file, "re"), std::fclose);
    if (!file) {
        const char *why = strerror(errno);
        log_error("[ZAV-API] Error %s %s does not exits!!!!!!\n", __func__, channel_info_file);
        log_error("%s: %s\n", channel_info_file, why);
        return failure;
    }
    int bandwidth = 0;
    if (nvram_get_whole(settings, "CountryCode", &country) != success ||
        read_bandwidth(settings, &bandwidth) != success)
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
    return store_list(__func__, settings, list);
}

Status ZAV_ParseChannelInfo() {
    if (ZAV_ChannelsForBandSet("2.4", settings_24g) != success) {
        log_error("[ZAV-API] Error %s ERROR!!!Parsing channelinfo for 2.4G failed!!!\n", __func__);
        return failure;
    }
    if (ZAV_ChannelsForBandSet("5.2", settings_5g) != success) {
        log_error("[ZAV-API] Error %s ERROR!!!Parsing channelinfo for 5G failed!!!\n", __func__);
        return failure;
    }
    return success;
}

Status RemoveChannelInfoFromNvram(const SettingsFile &settings) {
    const char *who = __func__;
    return nvram_edit(who, settings, [who](const char *path, std::string_view text, std::string *) {
        if (text.find(list_key) == text.npos)
            return success;
        const std::string command = std::string("sed -i '/OverwriteChannelList/d' ") + path;
        log_debug("[ZAV-API] %s command=%s\n", who, command.c_str());
        return run_unchecked(who, command.c_str(), tool_deadline) == -1
                   ? failure
                   : success; // and its exit status does not count
    });
}

void makeParsingErrorMessage(std::span<char> ret_text, const char *file, unsigned line, const char *message,
                             std::string_view argument) {
    std::snprintf(ret_text.data(), ret_text.size(), "%s is not valid: line #%u - %s %.*s", file, line,
                  message, static_cast<int>(argument.size()), argument.data());
}
