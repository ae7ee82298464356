#include "rrm/unreached.h"

#include "backend/config_store.h"
#include "backend/log.h"
#include "backend/mac.h"
#include "rrm/air_time.h"
#include "rrm/driver_data.h"

#include <cstdio>
#include <numeric>
#include <string>

namespace {

constexpr int remove_weight = -1;
constexpr char station_weights_key[] = "StaWeights";
constexpr std::size_t most_station_weights = 32;
constexpr std::size_t longest_station_weights = 2000;

// The stored list without the entry of one address.
struct KeptWeights {
    std::string list;
    std::size_t count = 0;
};

void append_weight(const MacBytes &mac, unsigned weight, std::string *list) {
    list->append(text_of(mac).data()).append(",").append(std::to_string(weight)).append(";");
}

Status keep_weights(const char *who, const char *stored, const MacBytes &without, KeptWeights *ret_kept) {
    const char *next = stored;
    for (int entry = 0;; ++entry) {
        MacBytes mac{};
        unsigned weight = 0;
        int length = 0;
        const int fields = std::sscanf(next, "%2hhx:%2hhx:%2hhx:%2hhx:%2hhx:%2hhx,%u;%n", &mac[0], &mac[1],
                                       &mac[2], &mac[3], &mac[4], &mac[5], &weight, &length);
        if (fields < 1 || (fields == 7 && length == 0))
            return success;
        if (fields != 7) {
            log_debug("[ZAV-API] %s Wrong format, can't parse [%d]: %.24s...\n", who, entry, next);
            return failure;
        }
        next += length;
        if (mac == without)
            continue;
        append_weight(mac, weight, &ret_kept->list);
        if (++ret_kept->count == most_station_weights) {
            log_debug("[ZAV-API] %s Buffer overflow, while reading from the parameter\n", who);
            return failure;
        }
    }
}

Status store_station_weight(const char *who, const SettingsFile &file, const MacBytes &mac, int weight) {
    std::string stored(longest_station_weights + 1, '\0');
    if (nvram_get_str(file, station_weights_key, stored) != success) {
        log_debug("[ZAV-API] %s Can't get %s parameter from NVRAM\n", who, station_weights_key);
        return failure;
    }
    log_debug("[ZAV-API] %s Received data: %.16s...\n", who, stored.c_str());
    KeptWeights kept;
    if (keep_weights(who, stored.c_str(), mac, &kept) != success)
        return failure;
    if (weight != remove_weight)
        append_weight(mac, static_cast<unsigned>(weight), &kept.list);
    return nvram_set_str(file, station_weights_key, kept.list.c_str());
}

} // namespace

Status zavChangeOrRemoveStaWeight(int index, const char *mac, int weight) {
    Bss bss;
    InterfaceName air_time;
    if (find_bss_or_say(__func__, index, &bss) != success ||
        GET_ATM_IFNAME_FROM_INDEX(&air_time, index, nullptr) != success)
        return failure;
    MacBytes bytes{};
    if (std::sscanf(mac, "%2hhx:%2hhx:%2hhx:%2hhx:%2hhx:%2hhx", &bytes[0], &bytes[1], &bytes[2], &bytes[3],
                    &bytes[4], &bytes[5]) != 6) {
        log_debug("[ZAV-API] %s wrong mac address or mac address format: %s\n", __func__, mac);
        return failure;
    }
    if (weight < remove_weight || weight > highest_weight)
        return refuse_weight(__func__);
    unsigned number = 0;
    if (ZAV_GetZavinoStaIndexByMac(index, mac, &number) == success) {
        log_debug("[ZAV-API] %s entry (index=%d, ZvStaIdx=%d, weight=%d).\n", __func__, index,
                  static_cast<int>(number), weight);
        send_weight(__func__, 'c', number, weight, air_time);
    } else {
        log_debug("[ZAV-API] %s station with this mac address is not associated\n", __func__);
        log_debug("[ZAV-API] %s update NVRAM only\n", __func__);
    }
    return store_station_weight(__func__, bss, bytes, weight);
}

void print_access_categories(const char *title, const std::array<unsigned long, 5> &counters) {
    log_debug("%s BE=%lu, BK=%lu, VI=%lu, VO=%lu, MGMT=%lu, TOTAL=%lu\n", title, counters[0], counters[1],
              counters[2], counters[3], counters[4], std::accumulate(counters.begin(), counters.end(), 0UL));
}
