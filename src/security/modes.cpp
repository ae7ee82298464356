#include "security/modes.h"

#include "backend/config_store.h"
#include "backend/interfaces.h"
#include "backend/log.h"
#include "backend/text.h"
#include "backend/value_lists.h"
#include "security/name_table.h"

#include <array>

namespace {

using StoredText = std::string_view; // of a literal, so its data is terminated

constexpr char authentication_key[] = "AuthMode";
constexpr char encryption_key[] = "EncrypType";

// By the letters; "n" stands for either band, first the row of 2.4 GHz.
constexpr Named<StoredText> standards[] = {
    {"0", "bg"}, {"1", "b"},  {"2", "a"},  {"3", "abg"}, {"4", "g"},    {"5", "abgn"},
    {"6", "n"},  {"7", "gn"}, {"8", "an"}, {"9", "bgn"}, {"10", "agn"}, {"11", "n"},
};
constexpr StoredText only_n_24g = "6", only_n_5g = "11";

constexpr Named<StoredText> basic_authentications[] = {
    {"OPEN", "None"}, {"SHARED", "SharedAuthentication"}, {"WEPAUTO", "WepAutoAuthentication"}};

constexpr Named<StoredText> basic_encryptions[] = {{"NONE", "None"}, {"WEP", "WEPEncryption"}};

constexpr Named<StoredText> wpa_encryptions[] = {
    {"TKIP", "TKIPEncryption"}, {"AES", "AESEncryption"}, {"TKIPAES", "TKIPandAESEncryption"}};

// A field as the tables know it; a longer one is in none of them.
using Field = std::array<char, 32>;

Status read_mode(const char *who, const char *key, int index, std::span<char> ret_mode) {
    Bss bss;
    if (find_bss(who, index, &bss) != success)
        return failure;
    return read_unbroken_list_text(bss, key, bss.number, ret_mode);
}

// Where the table does not know the stored mode, `otherwise` is answered.
template <std::size_t size>
Status read_named(const char *who, const char *key, const Named<StoredText> (&table)[size],
                  const char *otherwise, int index, std::span<char> ret_mode) {
    Field stored;
    if (read_mode(who, key, index, stored) != success)
        return failure;
    const char *mode = find_name(table, stored.data());
    copy_text(ret_mode, mode == nullptr ? otherwise : mode);
    return success;
}

template <std::size_t size>
Status write_named(const char *who, const char *key, const Named<StoredText> (&table)[size], const char *what,
                   int index, const char *mode) {
    Bss bss;
    if (find_bss(who, index, &bss) != success)
        return failure;
    const StoredText *stored = find_code(table, mode);
    if (stored == nullptr) {
        log_debug("[ZAV-API] %s illegal %s mode:%s.\n", who, what, mode);
        return failure;
    }
    return write_unbroken_list_text(who, bss, key, bss.number, stored->data());
}

// The letters that count, as bits.
unsigned letter_set(const char *letters) {
    constexpr std::string_view known = "abgn";
    unsigned set = 0;
    for (; *letters != '\0'; ++letters)
        if (const auto place = known.find(*letters); place != known.npos)
            set |= 1U << place;
    return set;
}

// nullptr for letters that make no standard.
const StoredText *find_standard(const char *letters, Radio radio) {
    const unsigned wanted = letter_set(letters);
    for (const auto &standard : standards) {
        if (letter_set(standard.name) != wanted)
            continue;
        return standard.code == only_n_24g && radio == Radio::band_5g ? &only_n_5g : &standard.code;
    }
    return nullptr;
}

} // namespace

Status ZAV_GetStandard(int index, std::span<char> ret_letters) {
    Bss bss;
    std::array<char, 16> stored;
    if (find_bss(__func__, index, &bss) != success || nvram_get_str(bss, "WirelessMode", stored) != success)
        return failure;
    // Only a code that begins with 1 can have a second digit.
    if (stored[0] != '1' && stored[0] != '\0')
        stored[1] = '\0';
    const char *letters = find_name(standards, stored.data());
    if (letters == nullptr)
        return failure;
    copy_text(ret_letters, letters);
    return success;
}

Status ZAV_SetStandard(int index, const char *letters) {
    Bss bss;
    if (find_bss(__func__, index, &bss) != success)
        return failure;
    const StoredText *code = find_standard(letters, bss.radio);
    if (code == nullptr)
        return failure;
    return nvram_set_str(bss, "WirelessMode", code->data());
}

Status ZAV_GetBeaconType(int, std::span<char> ret_type) {
    copy_text(ret_type, "BasicandWPAand11i");
    return success;
}

Status ZAV_SetBeaconType(int, const char *) { return failure; }

Status ZAV_GetBasicAuthenticationModes(int index, std::span<char> ret_mode) {
    return read_named(__func__, authentication_key, basic_authentications, "NOTBASIC", index, ret_mode);
}

Status ZAV_SetBasicAuthenticationModes(int index, const char *mode) {
    return write_named(__func__, authentication_key, basic_authentications, "authentication", index, mode);
}

Status ZAV_GetBasicEncryptionModes(int index, std::span<char> ret_mode) {
    return read_named(__func__, encryption_key, basic_encryptions, "NOTWEP", index, ret_mode);
}

Status ZAV_SetBasicEncryptionModes(int index, const char *mode) {
    return write_named(__func__, encryption_key, basic_encryptions, "encryption", index, mode);
}

Status ZAV_GetWpaAuthenticationModes(int index, std::span<char> ret_mode) {
    return read_mode(__func__, authentication_key, index, ret_mode);
}

Status ZAV_SetWpaBasicAuthenticationModes(int index, const char *mode) {
    Bss bss;
    if (find_bss(__func__, index, &bss) != success)
        return failure;
    return write_unbroken_list_text(__func__, bss, authentication_key, bss.number, mode);
}

Status ZAV_GetWpaEncryptionModes(int index, std::span<char> ret_mode) {
    Field stored;
    if (read_mode(__func__, encryption_key, index, stored) != success)
        return failure;
    const char *mode = find_name(wpa_encryptions, stored.data());
    if (mode == nullptr) {
        log_debug("[ZAV-API] %s not a WPA encryption mode:%s.\n", __func__, stored.data());
        return failure;
    }
    copy_text(ret_mode, mode);
    return success;
}

Status ZAV_SetWpaEncryptionModes(int index, const char *mode) {
    return write_named(__func__, encryption_key, wpa_encryptions, "encryption", index, mode);
}
