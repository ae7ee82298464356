#include "security/keys.h"

#include "backend/config_store.h"
#include "backend/interfaces.h"
#include "backend/log.h"
#include "backend/text.h"
#include "backend/value_lists.h"
#include "security/name_table.h"

#include <cstring>
#include <string>

namespace {

constexpr int first_wep_key = 1, last_wep_key = 4;
constexpr int wpa_key = 1; // there is only one

constexpr Named<int> wep_levels[] = {{0, "40-bit"}, {1, "104-bit"}};

// The keys of the settings file are named after the WEP key, and perhaps the BSS.
std::string wep_setting(int key_index, const char *what) {
    return "Key" + std::to_string(key_index).append(what);
}
std::string wep_key_setting(int key_index, const Bss &bss) {
    return wep_setting(key_index, "Str") + std::to_string(bss.number);
}
std::string wpa_key_setting(const Bss &bss) { return "WPAPSK" + std::to_string(bss.number); }

// The WEP key that is used; 0 stands for the first.
Status read_default_key(const Bss &bss, int *ret_key_index) {
    if (read_list_number(bss, "DefaultKeyID", bss.number, ret_key_index) != success)
        return failure;
    if (*ret_key_index == 0)
        *ret_key_index = first_wep_key;
    return success;
}

bool is_ascii_wep_key(std::size_t length) { return length == 5 || length == 13; }

// 5 or 13 characters, or twice as many hexadecimal digits.
bool is_wep_key(const char *who, const char *key) {
    const std::size_t length = std::strlen(key);
    if (is_ascii_wep_key(length))
        return true;
    if (length != 10 && length != 26) {
        log_debug("[ZAV-API] %s illegal number of characters in key:%d.\n", who, static_cast<int>(length));
        return false;
    }
    const char *const bad = key + std::strspn(key, "0123456789abcdefABCDEF");
    if (*bad != '\0')
        log_debug("[ZAV-API] %s illegal characters in hexadecimal key:%c.\n", who, *bad);
    return *bad == '\0';
}

bool fits_level(int level, std::size_t length) {
    const bool is_short = length == 5 || length == 10;
    return (level != 0 || is_short) && (level != 1 || !is_short);
}

Status read_wpa_key(const char *who, int index, int key_index, std::span<char> ret_key) {
    Bss bss;
    if (key_index != wpa_key) {
        log_debug("[ZAV-API] %s index %i not supported.\n", who, key_index);
        return failure;
    }
    return find_bss(index, &bss) == success ? nvram_get_str(bss, wpa_key_setting(bss), ret_key) : failure;
}

Status write_wpa_key(const char *who, int index, int key_index, const char *key, std::size_t least,
                     std::size_t most) {
    Bss bss;
    if (const std::size_t length = std::strlen(key); length < least || length > most) {
        log_debug("[ZAV-API] %s illegal key:%s.\n", who, key);
        return failure;
    }
    if (find_bss(who, index, &bss) != success)
        return failure;
    if (key_index != wpa_key) {
        log_debug("[ZAV-API] %s index %i not supported.\n", who, key_index);
        return failure;
    }
    return nvram_set_str(bss, wpa_key_setting(bss), key);
}

} // namespace

Status ZAV_GetWepKeyIndex(int index, unsigned *ret_key_index) {
    Bss bss;
    int key_index = 0;
    if (find_bss(__func__, index, &bss) != success || read_default_key(bss, &key_index) != success)
        return failure;
    *ret_key_index = static_cast<unsigned>(key_index);
    log_debug("[ZAV-API] %s key index:%i\n", __func__, key_index);
    return success;
}

Status ZAV_SetWepKeyIndex(int index, unsigned key_index) {
    Bss bss;
    if (key_index < first_wep_key || key_index > last_wep_key) {
        log_debug("[ZAV-API] %s illegal keyindex:%i.\n", __func__, static_cast<int>(key_index));
        return failure;
    }
    if (find_bss(__func__, index, &bss) != success)
        return failure;
    return write_list_number(bss, "DefaultKeyID", bss.number, static_cast<int>(key_index));
}

Status ZAV_GetWepEncryptionLevel(int index, std::span<char> ret_level) {
    Bss bss;
    int key_index = 0, level = 0;
    if (find_bss(__func__, index, &bss) != success || read_default_key(bss, &key_index) != success ||
        read_list_number(bss, wep_setting(key_index, "EncLevel"), bss.number, &level) != success)
        return failure;
    const char *name = find_name(wep_levels, level);
    if (name == nullptr)
        return failure;
    copy_text(ret_level, name);
    return success;
}

Status ZAV_SetWepEncryptionLevel(int index, const char *level) {
    Bss bss;
    int key_index = 0;
    const int *wanted = find_code(wep_levels, level);
    if (find_bss(__func__, index, &bss) != success || wanted == nullptr ||
        read_default_key(bss, &key_index) != success)
        return failure;
    return change_list_number(bss, wep_setting(key_index, "EncLevel"), bss.number, *wanted);
}

Status ZAV_GetWepKey(int index, int key_index, std::span<char> ret_key) {
    Bss bss;
    if (find_bss(__func__, index, &bss) != success)
        return failure;
    return nvram_get_str(bss, wep_key_setting(key_index, bss), ret_key);
}

Status ZAV_SetWepKey(int index, int key_index, const char *key) {
    if (key_index < first_wep_key || key_index > last_wep_key) {
        log_debug("[ZAV-API] %s illegal key index %i.\n", __func__, key_index);
        return failure;
    }
    Bss bss;
    int level = 0;
    const std::size_t length = std::strlen(key);
    // The type is stored before the key, so what the key could fail of is found out first.
    if (!is_wep_key(__func__, key) || !nvram_can_hold(__func__, key) || find_bss(index, &bss) != success ||
        read_list_number(bss, wep_setting(key_index, "EncLevel"), bss.number, &level) != success)
        return failure;
    if (!fits_level(level, length)) {
        log_error("[ZAV-API] Error %s key length is not compatible with encryption level.\n", __func__);
        return failure;
    }
    return nvram_set_together(bss, [&] {
        const Status type = write_list_number(bss, wep_setting(key_index, "Type"), bss.number,
                                              is_ascii_wep_key(length) ? 1 : 0);
        if (type == failure)
            return failure;
        return code_of_two(type, nvram_set_str(bss, wep_key_setting(key_index, bss), key));
    });
}

Status ZAV_GetWepKeyPassphrase(int index, std::span<char> ret_key) {
    Bss bss;
    int key_index = 0;
    if (find_bss(__func__, index, &bss) != success || read_default_key(bss, &key_index) != success)
        return failure;
    return ZAV_GetWepKey(index, key_index, ret_key);
}

Status ZAV_SetWepKeyPassphrase(int index, const char *key) {
    Bss bss;
    int key_index = 0;
    if (find_bss(__func__, index, &bss) != success || read_default_key(bss, &key_index) != success)
        return failure;
    return ZAV_SetWepKey(index, key_index, key);
}

Status ZAV_GetPreSharedKey(int index, int key_index, std::span<char> ret_key) {
    return read_wpa_key(__func__, index, key_index, ret_key);
}

Status ZAV_SetPreSharedKey(int index, int key_index, const char *key) {
    return write_wpa_key(__func__, index, key_index, key, 64, 64);
}

Status ZAV_GetKeyPassphrase(int index, int key_index, std::span<char> ret_passphrase) {
    return read_wpa_key(__func__, index, key_index, ret_passphrase);
}

Status ZAV_SetKeyPassphrase(int index, int key_index, const char *passphrase) {
    return write_wpa_key(__func__, index, key_index, passphrase, 8, 63);
}
