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

using Key = std::array<char, 32>;

// The keys of a BSS.
struct Place {
    InterfaceName ifname;
    Key policy, macs, names;
};

// One of the two lists; the tokens point into its text. The count is -1 for more than 64 tokens.
struct StoredList {
    std::string text;
    std::array<std::string_view, most_entries> table;
    int count = 0;
    bool is_missing = false;

    std::span<const std::string_view> tokens() const {
        return std::span(table).first(static_cast<std::size_t>(std::max(count, 0)));
    }
};

Status find_place(int index, Place *ret_place) {
    unsigned bss = 0;
    if (GET_IFNAME_FROM_INDEX(&ret_place->ifname, index, &bss) != success)
        return failure;
    const unsigned position = bss - 1; // these keys count from 0
    std::snprintf(ret_place->policy.data(), ret_place->policy.size(), "AccessPolicy%u", position);
    std::snprintf(ret_place->macs.data(), ret_place->macs.size(), "AccessControlList%u", position);
    std::snprintf(ret_place->names.data(), ret_place->names.size(), "NameListPerMAC%u", position);
    return success;
}

void split(StoredList *list) { list->count = ParseStringForTok(list->text, list->table, ';'); }

void read_list(const Place &place, const Key &key, StoredList *ret_list) {
    ret_list->is_missing = nvram_get_whole(place.ifname.data(), key.data(), &ret_list->text) != success;
    split(ret_list);
}

void report_missing(const char *who, const StoredList &list, const char *what) {
    if (list.is_missing)
        log_error("[ZAV-API] Error %s ERROR: Error at getting the %s List\n", who, what);
}

void read_macs(const char *who, const Place &place, StoredList *ret_macs) {
    read_list(place, place.macs, ret_macs);
    report_missing(who, *ret_macs, "macs");
}

// As they are compared and rewritten: in upper case.
void read_upper_macs(const char *who, const Place &place, StoredList *ret_macs) {
    read_macs(who, place, ret_macs);
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
Status check_room(const char *who, const Place &place, const StoredList &macs, const std::string &new_macs,
                  const StoredList &names, const std::string &new_names) {
    const Setting both_lists[] = {{place.macs.data(), new_macs}, {place.names.data(), new_names}};
    const bool is_listed = names.count == macs.count; // else the names will not be written
    if (!nvram_can_take(who, place.ifname.data(), std::span(both_lists).first(is_listed ? 2 : 1)))
        return failure;
    // A listing ends each address with "=" and each name with ";".
    if (is_listed && new_macs.size() + 1 + new_names.size() + 1 > longest_listing) {
        log_error("[ZAV-API] Error %s ERROR: no room for another entry.\n", who);
        return failure;
    }
    return success;
}

Status store_list(const Place &place, const Key &key, const std::string &list) {
    return nvram_set_str(place.ifname.data(), key.data(), list.c_str()) == failure ? failure : success;
}

Status store_without(const Place &place, const Key &key, const StoredList &list, std::size_t position) {
    std::string changed;
    if (BuildAccessListString(list.tokens(), &changed, AccessListMode::remove, "", position) != success)
        return failure;
    return store_list(place, key, changed);
}

void tell_driver(int index, const char *command, const char *value) {
    std::array<char, 48> text;
    std::snprintf(text.data(), text.size(), "%s=%s", command, value);
    (void)ZAV_Set(index, text.data());
}

} // namespace

Status ZAV_GetMacAddressControlEnabled(int index, unsigned *ret_policy) {
    log_debug("[ZAV-API] %s entry (%d).\n", __func__, index);
    Place place;
    std::array<char, 64> stored;
    if (find_place(index, &place) != success ||
        nvram_get_str(place.ifname.data(), place.policy.data(), stored) != success)
        return failure;
    log_debug("[ZAV-API] %s (%s).\n", __func__, stored.data());
    if (stored[0] < '0' || stored[0] > '2')
        return failure;
    *ret_policy = static_cast<unsigned>(stored[0] - '0');
    return success;
}

Status ZAV_SetMacAddressControlEnabled(int index, unsigned policy) {
    log_debug("[ZAV-API] %s entry (%d).\n", __func__, index);
    Place place;
    if (policy > 2 || find_place(index, &place) != success)
        return failure;
    const auto digit = std::to_string(policy);
    const Status result = nvram_set_str(place.ifname.data(), place.policy.data(), digit.c_str());
    tell_driver(index, "AccessPolicy", digit.c_str());
    return result;
}

Status ZAV_SetMacAddressControlClear(int index) {
    log_debug("[ZAV-API] %s entry (%d).\n", __func__, index);
    Place place;
    if (find_place(index, &place) != success || store_list(place, place.macs, "") != success ||
        store_list(place, place.names, "") != success)
        return failure;
    tell_driver(index, "ACLClearAll", "1");
    return success;
}

Status ZAV_SetMacAddressControlAdd(int index, const char *mac, const char *name, std::span<char> ret_stored) {
    Place place;
    MacText upper;
    if (check_index(__func__, index) != success || find_place(index, &place) != success ||
        take_mac(__func__, mac, upper) != success || check_name(__func__, name) != success)
        return failure;
    copy_text(ret_stored, upper.data());
    StoredList macs, names;
    read_upper_macs(__func__, place, &macs);
    if (macs.text.find(upper.data()) != macs.text.npos)
        return unchanged;
    if (check_limit(__func__, too_long_to_change, macs) != success)
        return failure;
    if (macs.count == static_cast<int>(most_entries)) {
        log_error("[ZAV-API] Error %s ERROR: access list is full, cannot add more MACs.\n", __func__);
        return failure;
    }
    read_list(place, place.names, &names);
    const std::string new_macs = with_entry(macs, upper.data()), new_names = with_entry(names, name);
    if (check_room(__func__, place, macs, new_macs, names, new_names) != success ||
        store_list(place, place.macs, new_macs) != success || check_names(__func__, macs, names) != success ||
        store_list(place, place.names, new_names) != success)
        return failure;
    tell_driver(index, "ACLAddEntry", upper.data());
    return success;
}

Status ZAV_SetMacAddressControlDelete(int index, const char *mac, std::span<char> ret_stored) {
    Place place;
    MacText upper;
    if (check_index(__func__, index) != success || find_place(index, &place) != success ||
        take_mac(__func__, mac, upper) != success)
        return failure;
    copy_text(ret_stored, upper.data());
    StoredList macs, names;
    read_upper_macs(__func__, place, &macs);
    if (macs.text.find(upper.data()) == macs.text.npos)
        return unchanged;
    if (check_limit(__func__, too_long_to_change, macs) != success)
        return failure;
    const auto tokens = macs.tokens();
    const auto entry = std::find(tokens.begin(), tokens.end(), std::string_view(upper.data()));
    if (entry == tokens.end())
        return unchanged;
    const auto position = static_cast<std::size_t>(entry - tokens.begin());
    if (store_without(place, place.macs, macs, position) != success)
        return failure;
    read_list(place, place.names, &names);
    if (check_names(__func__, macs, names) != success ||
        store_without(place, place.names, names, position) != success)
        return failure;
    tell_driver(index, "ACLDelEntry", upper.data());
    return success;
}

Status ZAV_GetMacAddressControlList(int index, std::span<char> ret_list) {
    Place place;
    StoredList macs, names;
    if (find_place(index, &place) != success)
        return failure;
    read_macs(__func__, place, &macs);
    if (check_limit(__func__, too_long_to_read, macs) != success)
        return failure;
    for (const std::string_view mac : macs.tokens())
        if (!is_mac(mac)) {
            log_error("[ZAV-API] Error %s access list is corrupted! not valid mac address %s\n", __func__,
                      std::string(mac).c_str());
            return failure;
        }
    read_list(place, place.names, &names);
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
    Place place;
    StoredList macs;
    if (find_place(index, &place) != success)
        return failure;
    read_macs(__func__, place, &macs);
    if (check_limit(__func__, too_long_to_read, macs) != success)
        return failure;
    *ret_count = static_cast<unsigned>(macs.count);
    return success;
}
