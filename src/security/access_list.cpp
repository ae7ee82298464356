#include "security/access_list.h"

#include "backend/config_store.h"
#include "backend/driver_channel.h"
#include "backend/interfaces.h"
#include "backend/log.h"
#include "backend/mac.h"
#include "backend/text.h"
#include "security/access_list_text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

constexpr std::size_t most_entries = 64;
constexpr std::size_t mac_length = 17;
constexpr std::size_t longest_name = 30;
constexpr std::size_t longest_listing = 3199;

constexpr char policy_key[] = "AccessPolicy", macs_key[] = "AccessControlList",
               names_key[] = "NameListPerMAC";

// The keys count the BSSes from 0.
std::string key_of(const char *key, const Bss &bss) { return key + std::to_string(bss.number - 1); }

// One of the two lists; the tokens point into its text. The count is -1 for more than 64 tokens.
struct StoredList {
    StoredList() = default;
    StoredList(const StoredList &) = delete;
    StoredList &operator=(const StoredList &) = delete;

    std::string text;
    std::array<std::string_view, most_entries> table;
    int count = 0;
    bool is_missing = false;

    std::span<const std::string_view> tokens() const {
        return std::span(table).first(static_cast<std::size_t>(std::max(count, 0)));
    }
};

void read_list(const Bss &bss, const char *key, StoredList *ret_list) {
    ret_list->is_missing = nvram_get_whole(bss, key_of(key, bss), &ret_list->text) != success;
    ret_list->count = ParseStringForTok(ret_list->text, ret_list->table, ';');
}

void report_missing(const char *who, const StoredList &list, const char *what) {
    if (list.is_missing)
        log_error("[ZAV-API] Error %s ERROR: Error at getting the %s List\n", who, what);
}

void read_macs(const char *who, const Bss &bss, StoredList *ret_macs) {
    read_list(bss, macs_key, ret_macs);
    report_missing(who, *ret_macs, "macs");
}

// As they are compared and rewritten: in upper case.
void read_upper_macs(const char *who, const Bss &bss, StoredList *ret_macs) {
    read_macs(who, bss, ret_macs);
    STR_TO_UPPERCASE(ret_macs->text);
}

// What follows from the numbers of addresses and names, once the names are read.
Status check_names(const char *who, const StoredList &macs, const StoredList &names) {
    report_missing(who, names, "name");
    if (names.count == macs.count)
        return success;
    log_error("[ZAV-API] Error %s ERROR: coruppted access list.\n", who);
    return failure;
}

bool is_mac(std::string_view text) { return text.size() == mac_length && IS_HEX(text); }

Status take_mac(const char *who, const char *mac, std::span<char> ret_mac) {
    if (!is_mac(mac)) {
        log_error("[ZAV-API] Error %s ERROR: input is not a valid mac address:%s.\n", who, mac);
        return failure;
    }
    copy_text(ret_mac, mac);
    STR_TO_UPPERCASE(ret_mac);
    return success;
}

Status check_name(const char *who, std::string_view name) {
    if (name.size() > longest_name || name.find('\n') != name.npos) {
        log_error("[ZAV-API] Error %s ERROR: Bad input name!\n", who);
        return failure;
    }
    if (name.find(';') != name.npos) {
        log_error("[ZAV-API] Error %s ERROR: Bad input name -the name cannot contain ';'\n", who);
        return failure;
    }
    return success;
}

constexpr Line<const char *> too_long_to_change =
    "[ZAV-API] Error %s ERROR: The access list is exceed the max length of 64 entries!\n";
constexpr Line<const char *> too_long_to_read =
    "[ZAV-API] Error %s error:The access list is exceed the max length of 64 entries!\n";

Status check_limit(const char *who, const Line<const char *> &line, const StoredList &macs) {
    if (macs.count < 0)
        log_error(line.text, who);
    return macs.count < 0 ? failure : success;
}

// The list with one entry more.
std::string with_entry(const StoredList &list, std::string_view item) {
    std::string changed;
    (void)BuildAccessListString(list.tokens(), &changed, AccessListMode::append, item, 0);
    return changed;
}

// An add that the file or the listing cannot take must not leave an address without its name.
Status check_room(const char *who, const Bss &bss, const StoredList &macs, const std::string &new_macs,
                  const StoredList &names, const std::string &new_names) {
    const KeyValue both_lists[] = {{key_of(macs_key, bss), new_macs}, {key_of(names_key, bss), new_names}};
    const bool is_listed = names.count == macs.count; // else the names will not be written
    if (!nvram_can_take(who, bss, std::span(both_lists).first(is_listed ? 2 : 1)))
        return failure;
    // A listing ends each address with "=" and each name with ";".
    if (is_listed && new_macs.size() + 1 + new_names.size() + 1 > longest_listing) {
        log_error("[ZAV-API] Error %s ERROR: no room for another entry.\n", who);
        return failure;
    }
    return success;
}

Status store_list(const Bss &bss, const char *key, const std::string &list) {
    return nvram_set_str(bss, key_of(key, bss), list.c_str()) == failure ? failure : success;
}

Status store_without(const Bss &bss, const char *key, const StoredList &list, std::size_t position) {
    std::string changed;
    if (BuildAccessListString(list.tokens(), &changed, AccessListMode::remove, "", position) != success)
        return failure;
    return store_list(bss, key, changed);
}

// Both lists are stored together. Where they do not match, the addresses alone are: another program's lists
// are not for this one to mend.
Status add_entry(const char *who, const Bss &bss, std::string_view mac, const char *name,
                 bool *ret_is_paired) {
    StoredList macs, names;
    read_upper_macs(who, bss, &macs);
    if (macs.text.find(mac) != macs.text.npos)
        return unchanged;
    if (check_limit(who, too_long_to_change, macs) != success)
        return failure;
    if (macs.count == static_cast<int>(most_entries)) {
        log_error("[ZAV-API] Error %s ERROR: access list is full, cannot add more MACs.\n", who);
        return failure;
    }
    read_list(bss, names_key, &names);
    const std::string new_macs = with_entry(macs, mac), new_names = with_entry(names, name);
    if (check_room(who, bss, macs, new_macs, names, new_names) != success ||
        store_list(bss, macs_key, new_macs) != success)
        return failure;
    *ret_is_paired = check_names(who, macs, names) == success;
    if (!*ret_is_paired)
        return success;
    return store_list(bss, names_key, new_names);
}

Status delete_entry(const char *who, const Bss &bss, std::string_view mac, bool *ret_is_paired) {
    StoredList macs, names;
    read_upper_macs(who, bss, &macs);
    if (macs.text.find(mac) == macs.text.npos)
        return unchanged;
    if (check_limit(who, too_long_to_change, macs) != success)
        return failure;
    const auto tokens = macs.tokens();
    const auto entry = std::find(tokens.begin(), tokens.end(), mac);
    if (entry == tokens.end())
        return unchanged;
    const auto position = static_cast<std::size_t>(entry - tokens.begin());
    if (store_without(bss, macs_key, macs, position) != success)
        return failure;
    read_list(bss, names_key, &names);
    *ret_is_paired = check_names(who, macs, names) == success;
    if (!*ret_is_paired)
        return success;
    return store_without(bss, names_key, names, position);
}

void tell_driver(int index, const char *command, const char *value) {
    std::array<char, 48> text;
    std::snprintf(text.data(), text.size(), "%s=%s", command, value);
    (void)ZAV_Set(index, text.data());
}

Status tell_changed(int index, const char *command, const MacText &mac, Status stored) {
    if (stored == success)
        tell_driver(index, command, mac.data());
    return stored;
}

} // namespace

Status ZAV_GetMacAddressControlEnabled(int index, unsigned *ret_policy) {
    log_debug("[ZAV-API] %s entry (%d).\n", __func__, index);
    Bss bss;
    std::array<char, 64> stored;
    if (find_bss(index, &bss) != success || nvram_get_str(bss, key_of(policy_key, bss), stored) != success)
        return failure;
    log_debug("[ZAV-API] %s (%s).\n", __func__, stored.data());
    if (stored[0] < '0' || stored[0] > '2')
        return failure;
    *ret_policy = static_cast<unsigned>(stored[0] - '0');
    return success;
}

Status ZAV_SetMacAddressControlEnabled(int index, unsigned policy) {
    log_debug("[ZAV-API] %s entry (%d).\n", __func__, index);
    Bss bss;
    if (policy > 2 || find_bss(index, &bss) != success)
        return failure;
    const auto digit = std::to_string(policy);
    const Status result = nvram_set_str(bss, key_of(policy_key, bss), digit.c_str());
    tell_driver(index, "AccessPolicy", digit.c_str());
    return result;
}

Status ZAV_SetMacAddressControlClear(int index) {
    log_debug("[ZAV-API] %s entry (%d).\n", __func__, index);
    Bss bss;
    if (find_bss(index, &bss) != success ||
        nvram_set_together(bss, [&] {
            return store_list(bss, macs_key, "") == success ? store_list(bss, names_key, "") : failure;
        }) != success)
        return failure;
    tell_driver(index, "ACLClearAll", "1");
    return success;
}

Status ZAV_SetMacAddressControlAdd(int index, const char *mac, const char *name, std::span<char> ret_stored) {
    const char *const who = __func__;
    Bss bss;
    MacText upper;
    if (find_bss(who, index, &bss) != success || take_mac(who, mac, upper) != success ||
        check_name(who, name) != success)
        return failure;
    copy_text(ret_stored, upper.data());
    bool is_paired = true;
    const Status stored =
        nvram_set_together(bss, [&] { return add_entry(who, bss, upper.data(), name, &is_paired); });
    return tell_changed(index, "ACLAddEntry", upper, is_paired ? stored : failure);
}

Status ZAV_SetMacAddressControlDelete(int index, const char *mac, std::span<char> ret_stored) {
    const char *const who = __func__;
    Bss bss;
    MacText upper;
    if (find_bss(who, index, &bss) != success || take_mac(who, mac, upper) != success)
        return failure;
    copy_text(ret_stored, upper.data());
    bool is_paired = true;
    const Status stored =
        nvram_set_together(bss, [&] { return delete_entry(who, bss, upper.data(), &is_paired); });
    return tell_changed(index, "ACLDelEntry", upper, is_paired ? stored : failure);
}

Status ZAV_GetMacAddressControlList(int index, std::span<char> ret_list) {
    Bss bss;
    StoredList macs, names;
    if (find_bss(index, &bss) != success)
        return failure;
    read_macs(__func__, bss, &macs);
    if (check_limit(__func__, too_long_to_read, macs) != success)
        return failure;
    for (const std::string_view mac : macs.tokens())
        if (!is_mac(mac)) {
            log_error("[ZAV-API] Error %s access list is corrupted! not valid mac address %s\n", __func__,
                      std::string(mac).c_str());
            return failure;
        }
    read_list(bss, names_key, &names);
    if (check_names(__func__, macs, names) != success)
        return failure;
    std::string listing;
    for (std::size_t i = 0; i < macs.tokens().size(); ++i)
        listing.append(macs.tokens()[i]).append("=").append(names.tokens()[i]).append(";");
    if (listing.size() > longest_listing) {
        log_error("[ZAV-API] Error %s ERROR: the access list passes %zu characters.\n", __func__,
                  longest_listing);
        return failure;
    }
    copy_text(ret_list, listing);
    return success;
}

Status ZAV_GetMacAddressControlCount(int index, unsigned *ret_count) {
    Bss bss;
    StoredList macs;
    if (find_bss(index, &bss) != success)
        return failure;
    read_macs(__func__, bss, &macs);
    if (check_limit(__func__, too_long_to_read, macs) != success)
        return failure;
    *ret_count = static_cast<unsigned>(macs.count);
    return success;
}
