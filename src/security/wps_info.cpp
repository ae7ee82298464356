#include "security/wps_info.h"

#include "backend/config_store.h"
#include "backend/driver_channel.h"
#include "backend/log.h"
#include "backend/running_interfaces.h"
#include "backend/text.h"
#include "backend/value_lists.h"

#include <cstdlib>
#include <span>
#include <string_view>

namespace {

constexpr std::size_t token_count = 13, longest_token = 50;

using Tokens = std::array<std::array<char, longest_token + 1>, token_count>;

// How many there are, at most as many as are wanted. Nothing is left of one that is too long, so that it
// stands for no field.
int split(std::string_view answer, Tokens *ret_tokens) {
    int count = 0;
    for (auto &token : *ret_tokens) {
        const std::string_view word = take_word(&answer);
        if (word.empty())
            break;
        copy_text(token, word.size() > longest_token ? "" : word);
        ++count;
    }
    return count;
}

// What stands behind the title, or nullptr.
const char *behind(const char *token, std::string_view title) {
    return std::string_view(token).starts_with(title) ? token + title.size() : nullptr;
}

// Base 16, or 0 for one that the number itself names.
template <class Number>
bool take(const std::array<char, longest_token + 1> &token, std::string_view title, int base,
          Number *ret_number) {
    const char *text = behind(token.data(), title);
    char *end = nullptr;
    const long long value = text == nullptr ? 0 : std::strtoll(text, &end, base);
    if (text == nullptr || end == text)
        return false;
    *ret_number = static_cast<Number>(value);
    return true;
}

bool take_text(const std::array<char, longest_token + 1> &token, std::string_view title,
               std::span<char> ret_text) {
    const char *text = behind(token.data(), title);
    if (text == nullptr || *text == '\0')
        return false;
    copy_text(ret_text, text);
    return true;
}

Status read_hexadecimal(const WpsRadio &radio, const char *key, unsigned *ret_value) {
    std::array<char, 32> text;
    if (nvram_get_str(radio.first, key, text) != success)
        return failure;
    char *end = nullptr;
    *ret_value = static_cast<unsigned>(std::strtoul(text.data(), &end, 16));
    return end == text.data() ? failure : success;
}

// The number at the start of the value; 0 where there is none.
Status read_first_number(const WpsRadio &radio, const char *key, int *ret_value) {
    return read_list_number(radio.first, key, 1, ret_value);
}

Status read_stored_info(const WpsRadio &radio, WscInfo *ret_info) {
    int supports_version_2 = 0;
    copy_text(ret_info->Mode, "N/A");
    if (read_first_number(radio, "WscConfMode", &ret_info->ConfMode) != success ||
        read_hexadecimal(radio, "WscConfMethods", &ret_info->ConfigMethods) != success ||
        read_first_number(radio, "WscConfStatus", &ret_info->ConfStatus) != success ||
        nvram_get_str(radio.first, "WscVendorPinCode", ret_info->PinCode) != success ||
        nvram_get_str(radio.first, "WSC_UUID_Str1", ret_info->Uuid) != success ||
        read_first_number(radio, "WscV2Support", &supports_version_2) != success ||
        read_first_number(radio, "WscConfigTimeout", &ret_info->ConfigTimeout) != success)
        return failure;
    ret_info->Version = supports_version_2 == 1 ? 2 : 1;
    return success;
}

} // namespace

Status find_wps_radio(int index, WpsRadio *ret_radio) {
    unsigned first = 0, last = 0;
    if (isIndexValid(index) != success || ZAV_GetNumberOfEntriesPerInf(&first, &last, index) != success)
        return failure;
    ret_radio->first_index = static_cast<int>(first);
    return find_bss(ret_radio->first_index, &ret_radio->first);
}

Status parse_wsc_info(const char *who, const char *answer, WscInfo *ret_info) {
    Tokens tokens;
    if (const int count = split(answer, &tokens); count < static_cast<int>(token_count)) {
        log_debug("[ZAV-API] %s WscInfo, not enough params returned %i.\n", who, count);
        return failure;
    }
    const bool complete = take(tokens[0], "WscConfMode=", 0, &ret_info->ConfMode) &&
                          take(tokens[1], "WscConfigMethods=", 16, &ret_info->ConfigMethods) &&
                          take(tokens[2], "WscUseUPnP=", 0, &ret_info->UseUPnP) &&
                          take_text(tokens[3], "WscMode=", ret_info->Mode) &&
                          take(tokens[4], "WscConfStatus=", 0, &ret_info->ConfStatus) &&
                          take_text(tokens[5], "WscPinCode(Enrollee)=", ret_info->PinCode) &&
                          take(tokens[6], "WscState=", 0, &ret_info->State) &&
                          take(tokens[7], "WscStatus=", 0, &ret_info->Status) &&
                          take_text(tokens[8], "Uuid=", ret_info->Uuid) &&
                          take(tokens[9], "wpsVersion=0x", 16, &ret_info->Version) &&
                          take(tokens[10], "WpsLastConfigError=0x", 16, &ret_info->LastConfigError) &&
                          take(tokens[11], "WpsSetupLock=", 0, &ret_info->SetupLock) &&
                          take(tokens[12], "WpsConfigTimeout=", 0, &ret_info->ConfigTimeout);
    if (!complete)
        return failure;
    ret_info->Version >>= 4; // 0x20 is version 2.0
    return success;
}

Status ZAV_parseWscInfoCommand(int index, WscInfo *ret_info) {
    WpsRadio radio;
    *ret_info = {};
    if (find_wps_radio(index, &radio) != success)
        return failure;
    if (!driver_is(DriverState::loaded) || isInterfacesRunningOnBand(index) == 0)
        return read_stored_info(radio, ret_info);
    std::array<char, 1024> answer;
    if (ZAV_Show(radio.first_index, "WscInfo", answer) != success)
        return failure;
    return parse_wsc_info(__func__, answer.data(), ret_info);
}
