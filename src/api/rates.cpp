#include "api/rates.h"

#include "api/wrapper.h"
#include "backend/driver_channel.h"
#include "backend/text.h"

#include <array>
#include <cstdio>
#include <cstring>

namespace {

// The driver knows one list. Its failure has been reported by the operation that asked.
Status same_rates(const char *who, int index, std::span<char> ret_rates) {
    const Status result = wlan_getPossibleDataTransmitRates(index, ret_rates);
    if (result == success)
        log_debug("[ZAV-API] %s txRates are:%s\n", who, ret_rates.data());
    return result;
}

} // namespace

Status format_rates(const char *answer, std::span<char> ret_rates) {
    copy_text(ret_rates, "");
    const char *title = std::strstr(answer, "MaxDesireRate");
    const char *bar = title == nullptr ? nullptr : std::strchr(title, '|');
    if (bar == nullptr)
        return failure;
    const char *next = bar[1] == '\0' ? bar + 1 : bar + 2; // one blank stands behind the bar
    std::size_t length = 0;
    const char *end = nullptr;
    int rate = 0; // in units of 500 kbit/s
    while (*next != '\0' && scan_number(next, &rate, &end)) {
        // A number counts only with a blank behind it: the last one of an unfinished line is not meant.
        const char *blank = std::strchr(end, ' ');
        if (blank == nullptr)
            break;
        next = blank + 1;
        std::array<char, 20> text;
        std::snprintf(text.data(), text.size(), "%s%d%s", length == 0 ? "" : ",", rate / 2,
                      rate % 2 != 0 ? ".5" : "");
        const std::size_t added = std::strlen(text.data());
        if (length + added >= ret_rates.size())
            break;
        copy_text(ret_rates.subspan(length), text.data());
        length += added;
    }
    return success;
}

Status wlan_getPossibleDataTransmitRates(int index, std::span<char> ret_rates) {
    log_debug("[ZAV-API] %s wlan_getPossibleDataTransmitRates int index=%d\n", __func__, index);
    copy_text(ret_rates, "");
    std::array<char, 1024> answer;
    Status result = ZAV_Show(index, "BasicRate", answer);
    if (result == success)
        result = format_rates(answer.data(), ret_rates);
    return report(__func__, result, "txRates are:%s\n", ret_rates);
}

Status wlan_getBasicDataTransmitRates(int index, std::span<char> ret_rates) {
    return same_rates(__func__, index, ret_rates);
}

Status wlan_getOperationalDataTransmitRates(int index, std::span<char> ret_rates) {
    return same_rates(__func__, index, ret_rates);
}

Status wlan_setBasicDataTransmitRates(int index, const char *rates) {
    log_entry_with(__func__, index, Line<const char *>("txRates=%s\n"), rates);
    return success;
}

Status wlan_setOperationalDataTransmitRates(int index, const char *rates) {
    log_entry_with(__func__, index, Line<const char *>("txRates=%s\n"), rates);
    return success;
}
