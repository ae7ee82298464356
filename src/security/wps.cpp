#include "security/wps.h"

#include "backend/config_store.h"
#include "backend/driver_channel.h"
#include "backend/log.h"
#include "backend/text.h"
#include "backend/value_lists.h"
#include "security/wps_info.h"
#include "security/wps_names.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace {

constexpr unsigned registrar_enabled = 0x4; // in the configuration mode
constexpr int only_registrar = 1;
constexpr int configured = 2; // a configuration status

using Command = std::array<char, 48>;

template <class Value>
Status tell(int index, const std::type_identity_t<Line<Value>> &form, Value value) {
    Command command;
    std::snprintf(command.data(), command.size(), form.text, value);
    return ZAV_Set(index, command.data());
}

Status read_info(const char *who, int index, WscInfo *ret_info) {
    const Status result = ZAV_parseWscInfoCommand(index, ret_info);
    if (result != success)
        log_debug("[ZAV-API] %s error parsing WscInfo.\n", who);
    return result;
}

// The same for the operations whose failure shows without debug lines.
Status read_info_or_complain(const char *who, int index, WscInfo *ret_info) {
    const Status result = ZAV_parseWscInfoCommand(index, ret_info);
    if (result != success)
        log_error("[ZAV-API] Error %s error parsing WscInfo.\n", who);
    return result;
}

using Pin = std::array<char, 12>;

// 4 or 8 characters as they are; of 9 the digits, which must be 8.
Status take_pin(const char *who, std::string_view given, Pin *ret_pin) {
    std::size_t length = 0;
    if (given.size() == 4 || given.size() == 8) {
        copy_text(*ret_pin, given);
        return success;
    }
    if (given.size() == 9) {
        for (const char c : given)
            if (std::isdigit(static_cast<unsigned char>(c)) != 0)
                ret_pin->at(length++) = c;
        ret_pin->at(length) = '\0';
    }
    if (length == 8)
        return success;
    log_error("[ZAV-API] Error %s illegal password length.\n", who);
    return failure;
}

Status generate_pin(const char *who, const WpsRadio &radio, Pin *ret_pin) {
    log_debug("[ZAV-API] %s Input string is zero! start generating new password Automatically\n", who);
    if (ZAV_Set(radio.first_index, "WscGenPinCode=1") != success) {
        log_error("[ZAV-API] Error %s Fail to generate new password!\n", who);
        return failure;
    }
    log_debug("[ZAV-API] %s Done generating new password Automatically\n", who);
    return ZAV_GetWpsDevicePassword(radio.first_index, *ret_pin);
}

// Idle and success count only with the status that belongs to them; without a known state a failure still
// shows by its status.
const char *state_text(const WscInfo &info) {
    constexpr int idle = 0, success_state = 4;
    constexpr int not_used = 0, idle_status = 1, failed = 2, configured_status = 34;
    const char *name = find_name(wps_states, info.State);
    const bool is_idle = info.Status == not_used || info.Status == idle_status;
    if ((info.State == idle && !is_idle) || (info.State == success_state && info.Status != configured_status))
        name = nullptr;
    else if (name == nullptr && info.Status == failed)
        name = "Failed";
    return name == nullptr ? "Unknown result" : name;
}

// The driver takes the mode from the settings again.
Status tell_enabled(const WpsRadio &radio) {
    int mode = 0;
    if (read_list_number(radio.first, "WscConfMode", 1, &mode) != success)
        return failure;
    return tell(radio.first_index, "WscConfMode=%d", mode);
}

Status tell_disabled(const WpsRadio &radio) {
    if (ZAV_Set(radio.first_index, "WscStop") != success)
        return failure;
    return ZAV_Set(radio.first_index, "WscConfMode=0");
}

bool is_uuid(std::string_view text) {
    if (text.size() != 36)
        return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool is_dash_place = i == 8 || i == 13 || i == 18 || i == 23;
        if (is_dash_place ? text[i] != '-' : std::isxdigit(static_cast<unsigned char>(text[i])) == 0)
            return false;
    }
    return true;
}

} // namespace

Status ZAV_GetWpsEnable(int index, unsigned *ret_enable) {
    WpsRadio radio;
    int enabled = 0;
    if (find_wps_radio(index, &radio) != success ||
        read_list_number(radio.first, "WscEnable", 1, &enabled) != success)
        return failure;
    *ret_enable = enabled != 0 ? 1 : 0;
    return success;
}

Status ZAV_SetWpsEnable(int index, unsigned enable) {
    WpsRadio radio;
    if (find_wps_radio(index, &radio) != success)
        return failure;
    const Status stored = write_list_number(radio.first, "WscEnable", 1, static_cast<int>(enable));
    if (stored == failure)
        return failure;
    const Status told = enable != 0 ? tell_enabled(radio) : tell_disabled(radio);
    return told == failure ? failure : stored;
}

Status ZAV_SetWpsPushButton(int index) {
    WpsRadio radio;
    if (find_wps_radio(index, &radio) != success)
        return failure;
    (void)ZAV_Set(radio.first_index, "WscMode=2");
    return ZAV_Set(radio.first_index, "WscGetConf=1");
}

Status ZAV_SetWpsPinStart(int index, const char *pin) {
    WpsRadio radio;
    Pin taken;
    if (find_wps_radio(index, &radio) != success || take_pin(__func__, pin, &taken) != success)
        return failure;
    (void)ZAV_Set(radio.first_index, "WscMode=1");
    log_debug("[ZAV-API] %s WscPinCode=%s\n", __func__, taken.data());
    (void)tell<const char *>(radio.first_index, "WscPinCode=%s", taken.data());
    return ZAV_Set(radio.first_index, "WscGetConf=1");
}

Status ZAV_SetWpsCancel(int index) {
    WpsRadio radio;
    if (find_wps_radio(index, &radio) != success)
        return failure;
    return ZAV_Set(radio.first_index, "WscStop");
}

Status ZAV_GetWpsDevicePassword(int index, std::span<char> ret_pin) {
    WscInfo info;
    if (read_info_or_complain(__func__, index, &info) != success)
        return failure;
    copy_text(ret_pin, info.PinCode.data());
    return success;
}

Status ZAV_SetWpsDevicePassword(int index, const char *pin, std::span<char> ret_stored) {
    WpsRadio radio;
    Pin taken{};
    if (find_wps_radio(index, &radio) != success)
        return failure;
    if (std::string_view(pin) == "0") {
        if (generate_pin(__func__, radio, &taken) != success)
            return failure;
    } else if (take_pin(__func__, pin, &taken) != success || !nvram_can_hold(__func__, taken.data()) ||
               tell<const char *>(radio.first_index, "WscVendorPinCode=%s", taken.data()) != success) {
        return failure;
    }
    copy_text(ret_stored, taken.data());
    return nvram_set_str(radio.first, "WscVendorPinCode", taken.data());
}

Status ZAV_GetWpsVersion(int index, unsigned *ret_version) {
    WscInfo info;
    if (read_info_or_complain(__func__, index, &info) != success)
        return failure;
    *ret_version = info.Version;
    return success;
}

Status ZAV_GetWpsConfigMethodsSupported(int, std::span<char> ret_methods) {
    copy_text(ret_methods, "Label,Display,PushButton,Keypad");
    return success;
}

Status ZAV_GetWpsConfigMethodsEnabled(int index, std::span<char> ret_methods) {
    WscInfo info;
    if (read_info(__func__, index, &info) != success)
        return failure;
    std::array<char, 64> text{};
    std::size_t length = 0;
    for (const auto &method : wps_methods)
        if ((info.ConfigMethods & method.code) != 0)
            length += static_cast<std::size_t>(
                std::snprintf(text.data() + length, text.size() - length, "%s,", method.name));
    text.at(length) = '\n';
    copy_text(ret_methods, text.data());
    return success;
}

Status ZAV_SetWpsConfigMethodsEnabled(int index, const char *methods) {
    WpsRadio radio;
    WscInfo info;
    if (read_info(__func__, index, &info) != success || find_wps_radio(index, &radio) != success)
        return failure;
    unsigned bits = info.ConfigMethods;
    for (const auto &method : wps_methods)
        bits = std::strstr(methods, method.name) != nullptr ? bits | method.code : bits & ~method.code;
    std::array<char, 12> text;
    std::snprintf(text.data(), text.size(), "%x", bits);
    const Status stored = nvram_set_str(radio.first, "WscConfMethods", text.data());
    if (stored == failure)
        return failure;
    return tell(radio.first_index, "WscConfigMethods=0x%x", bits) == failure ? failure : stored;
}

Status ZAV_GetWpsSetupLock(int index, unsigned *ret_on) {
    WscInfo info;
    if (read_info(__func__, index, &info) != success)
        return failure;
    *ret_on = info.SetupLock != 0 ? 1 : 0;
    return success;
}

Status ZAV_SetWpsSetupLock(int index, unsigned on) {
    WpsRadio radio;
    if (find_wps_radio(index, &radio) != success)
        return failure;
    return ZAV_Set(radio.first_index, on != 0 ? "WscSetupLock=1" : "WscSetupLock=0");
}

Status ZAV_GetWpsConfigurationState(int index, std::span<char> ret_state) {
    WscInfo info;
    if (read_info(__func__, index, &info) != success)
        return failure;
    copy_text(ret_state, info.ConfStatus == configured ? "Configured" : "Not configured");
    return success;
}

Status ZAV_GetWpsLastConfigurationError(int index, std::span<char> ret_error) {
    WscInfo info;
    if (read_info(__func__, index, &info) != success)
        return failure;
    const char *name = find_name(wps_errors, info.LastConfigError);
    if (name == nullptr) {
        log_debug("[ZAV-API] %s wps illegal last config error number:%i.\n", __func__,
                  static_cast<int>(info.LastConfigError));
        return failure;
    }
    copy_text(ret_error, name);
    return success;
}

Status ZAV_GetWpsResultStatus(int index, std::span<char> ret_state) {
    WscInfo info;
    if (read_info(__func__, index, &info) != success)
        return failure;
    copy_text(ret_state, state_text(info));
    return success;
}

Status ZAV_GetWpsStatus(int index, std::span<char> ret_status) {
    WscInfo info;
    if (read_info(__func__, index, &info) != success)
        return failure;
    const char *name = find_name(wps_statuses, info.Status);
    copy_text(ret_status, name == nullptr ? "Unknown status" : name);
    return success;
}

Status ZAV_GetWpsRegistrarNumEntries(int, unsigned *ret_count) {
    *ret_count = 1;
    return success;
}

Status ZAV_GetWpsRegistrarEnabled(int index, int registrar, unsigned *ret_enable) {
    WscInfo info;
    if (registrar != only_registrar || read_info(__func__, index, &info) != success)
        return failure;
    *ret_enable = (static_cast<unsigned>(info.ConfMode) & registrar_enabled) != 0 ? 1 : 0;
    return success;
}

// The stored mode and the driver's may differ: each keeps its other bits.
Status ZAV_SetWpsRegistrarEnabled(int index, int registrar, unsigned enable) {
    WpsRadio radio;
    WscInfo info;
    NumberList stored;
    if (registrar != only_registrar || read_info(__func__, index, &info) != success ||
        find_wps_radio(index, &radio) != success ||
        read_numbers(radio.first, "WscConfMode", stored) != success)
        return failure;
    const auto changed = [enable](int mode) {
        const auto bits = static_cast<unsigned>(mode);
        return static_cast<int>(enable != 0 ? bits | registrar_enabled : bits & ~registrar_enabled);
    };
    if (tell(radio.first_index, "WscConfMode=%i", changed(info.ConfMode)) != success)
        return failure;
    stored[0] = changed(stored[0]);
    return write_numbers(radio.first, "WscConfMode", stored);
}

Status ZAV_GetWpsUuid(int index, std::span<char> ret_uuid) {
    WscInfo info;
    if (read_info(__func__, index, &info) != success)
        return failure;
    copy_text(ret_uuid, info.Uuid.data());
    return success;
}

Status ZAV_SetWpsUuid(int index, const char *uuid) {
    WpsRadio radio;
    if (find_wps_radio(index, &radio) != success || !is_uuid(uuid))
        return failure;
    std::array<char, 37> digits{};
    std::copy_if(uuid, uuid + std::strlen(uuid), digits.begin(), [](char c) { return c != '-'; });
    return nvram_set_pair(radio.first, {"WSC_UUID_Str1", uuid}, {"WSC_UUID_E1", digits.data()});
}

Status ZAV_GetWpsDeviceName(int index, std::span<char> ret_name) {
    WpsRadio radio;
    if (find_wps_radio(index, &radio) != success)
        return failure;
    log_debug("[ZAV-API] %s interface ifname: %s\n", __func__, radio.first.name.data());
    if (check_driver(__func__, DriverState::loaded) != success)
        return failure;
    std::array<char, 501> answer{}; // the driver writes 500 bytes at the most
    const PrivateCommand command{.request = PrivateRequest::wps_device,
                                 .shown = false,
                                 .no_socket = "[ZAV-API] Error %s ioctl sock failed!\n"};
    if (ask_private(__func__, radio.first.name, command,
                    std::as_writable_bytes(std::span(answer).first<500>())) != success)
        return failure;
    std::string_view rest = answer.data(), word;
    for (int i = 0; i < 7; ++i)
        word = take_word(&rest);
    if (word.empty())
        return failure;
    copy_text(ret_name, word);
    log_debug("[ZAV-API] %s (%s).\n", __func__, ret_name.data());
    return success;
}

Status ZAV_GetWpsSetupLockedState(int, std::span<char>) { return failure; }

Status ZAV_GetWpsRegistrarEstablished(int, unsigned *) { return failure; }

Status ZAV_GetWpsRegistrarUuid(int, int, std::span<char>) { return failure; }

Status ZAV_GetWpsRegistrarDeviceName(int, int, std::span<char>) { return failure; }
