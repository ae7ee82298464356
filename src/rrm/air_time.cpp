#include "rrm/air_time.h"

#include "backend/config_store.h"
#include "backend/log.h"
#include "backend/mac.h"
#include "backend/stations.h"
#include "backend/value_lists.h"
#include "rrm/driver_data.h"

#include <cstdio>
#include <functional>
#include <memory>
#include <numeric>
#include <string>
#include <strings.h>

namespace {

constexpr int highest_weight = 100;
constexpr int remove_weight = -1;
constexpr char bss_weights_key[] = "BssWeights";
constexpr char station_weights_key[] = "StaWeights";
constexpr std::size_t most_station_weights = 32;
constexpr std::size_t longest_station_weights = 2000;
constexpr int highest_rated_station = 15;

Status refuse_weight(const char *who) {
    log_debug("[ZAV-API] %s invalid weight. weight should be in Range of 0-100\n", who);
    return failure;
}

void send_weight(const char *who, char level, unsigned number, int weight, const InterfaceName &ifname) {
    std::array<char, 64> command;
    std::snprintf(command.data(), command.size(), "fairness.-%c.%u.%u", level, number,
                  static_cast<unsigned>(weight));
    log_debug("[ZAV-API] %s cmd=%s\n", who, command.data());
    (void)SetDriverDataOnTheFly(command.data(), ifname, 1); // the settings are what counts
}

// The driver's number of the first station of the BSS that is the wanted one.
Status find_driver_number(int index, const std::function<bool(const StationRecord &)> &is_wanted,
                          unsigned *ret_number) {
    const auto table = std::make_unique<StationTable>();
    InterfaceName ifname;
    unsigned bss = 0;
    if (ZAV_GetAssocDevicesTable(index, table.get()) != success ||
        GET_IFNAME_FROM_INDEX(&ifname, index, &bss) != success)
        return failure;
    for (const StationRecord &station : std::span(table->stations).first(table->count)) {
        if (station.bss + 1U != bss || !is_wanted(station))
            continue;
        if (station.driver_number > highest_driver_number)
            break;
        *ret_number = station.driver_number;
        return success;
    }
    return failure;
}

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

Status store_station_weight(const char *who, const InterfaceName &ifname, const MacBytes &mac, int weight) {
    std::string stored(longest_station_weights + 1, '\0');
    if (nvram_get_str(ifname.data(), station_weights_key, stored) != success) {
        log_debug("[ZAV-API] %s Can't get %s parameter from NVRAM\n", who, station_weights_key);
        return failure;
    }
    log_debug("[ZAV-API] %s Received data: %.16s...\n", who, stored.c_str());
    KeptWeights kept;
    if (keep_weights(who, stored.c_str(), mac, &kept) != success)
        return failure;
    if (weight != remove_weight)
        append_weight(mac, static_cast<unsigned>(weight), &kept.list);
    return nvram_set_str(ifname.data(), station_weights_key, kept.list.c_str());
}

} // namespace

Status ZAV_SetBssWeight(int index, int weight) {
    if (weight < 0 || weight > highest_weight)
        return refuse_weight(__func__);
    InterfaceName air_time{};
    unsigned bss = 0;
    if (GET_ATM_IFNAME_FROM_INDEX(&air_time, index, &bss) == success)
        send_weight(__func__, 'b', bss - 1, weight, air_time);
    if (ZAV_SetBssWeightsToNvram(index, weight) != success) {
        log_error("[ZAV-API] Error %s couldn't write BssWeights into NVRAM.\n", __func__);
        return failure;
    }
    return success;
}

Status ZAV_SetBssWeightsToNvram(int index, int weight) {
    log_debug("[ZAV-API] %s entry (index=%d, weight=%d).\n", __func__, index, weight);
    InterfaceName ifname;
    unsigned bss = 0;
    if (check_index(__func__, index) != success || GET_IFNAME_FROM_INDEX(&ifname, index, &bss) != success)
        return failure;
    if (weight < 0 || weight > highest_weight)
        return refuse_weight(__func__);
    return write_list_number(ifname.data(), bss_weights_key, bss, weight);
}

Status ZAV_GetBssWeight(int index, unsigned *ret_weight) {
    InterfaceName ifname;
    unsigned bss = 0;
    int weight = 0;
    if (find_name_of(__func__, GET_IFNAME_FROM_INDEX, index, &ifname, &bss) != success)
        return failure;
    if (read_list_number(ifname.data(), bss_weights_key, bss, &weight) != success) {
        log_debug("[ZAV-API] %s Can't get %s parameter from NVRAM\n", __func__, bss_weights_key);
        return failure;
    }
    *ret_weight = static_cast<unsigned>(weight);
    log_debug("[ZAV-API] %s outputIndex = %u\n", __func__, bss);
    return success;
}

Status ZAV_GetStaWeight(int index, const char *, unsigned *ret_weight) {
    unsigned stations = 0;
    if (ZAV_GetAssocDevicesNum(index, &stations) != success)
        return failure;
    if (stations == 0) {
        if (ret_weight != nullptr)
            *ret_weight = 0;
        log_debug("[ZAV-API] %s No stations connected!\n", __func__);
        return failure;
    }
    if (ret_weight == nullptr)
        return failure;
    *ret_weight = highest_weight / stations;
    log_debug("[ZAV-API] %s All stations has the equal weights: %d%%\n", __func__,
              static_cast<int>(*ret_weight));
    return success;
}

Status ZAV_SetAirTimeStaWeight(int, const char *, int) {
    log_error(
        "[ZAV-API] Error %s An error has been occurred: there no STA weight selection for this platform!\n",
        __func__);
    return failure;
}

Status ZAV_DelAirTimeStaByMac(int, const char *) {
    log_error("[ZAV-API] Error %s No STA weights set, nothing to delete\n", __func__);
    return failure;
}

Status zavChangeOrRemoveStaWeight(int index, const char *mac, int weight) {
    InterfaceName ifname, air_time;
    if (find_name_of(__func__, GET_IFNAME_FROM_INDEX, index, &ifname) != success ||
        find_name_of(__func__, GET_ATM_IFNAME_FROM_INDEX, index, &air_time) != success)
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
    return store_station_weight(__func__, ifname, bytes, weight);
}

Status ZAV_GetZavinoStaIndexByStaIndex(int index, int station, unsigned *ret_number) {
    long long passed = -1;
    if (find_driver_number(
            index, [&](const StationRecord &) { return ++passed == station; }, ret_number) != success)
        return failure;
    log_debug("[ZAV-API] %s staidx=%d zvidx=%d\n", __func__, station, static_cast<int>(*ret_number));
    return success;
}

Status ZAV_GetZavinoStaIndexByMac(int index, const char *mac, unsigned *ret_number) {
    int passed = -1;
    const auto is_wanted = [&](const StationRecord &record) {
        ++passed;
        return strcasecmp(text_of(record.mac).data(), mac) == 0;
    };
    if (find_driver_number(index, is_wanted, ret_number) != success)
        return failure;
    log_debug("[ZAV-API] %s sta_mac=%s staidx=%d zvidx=%d\n", __func__, mac, passed,
              static_cast<int>(*ret_number));
    return success;
}

Status ZAV_GetAirTimeStats(int index, AirTimeBlock *ret_block) {
    if (ret_block == nullptr) {
        log_debug("[ZAV-API] %s driverFairnessData is not initialized\n", __func__);
        return failure;
    }
    constexpr std::size_t announced_length = 5121;
    return ask_block(__func__, GET_ATM_IFNAME_FROM_INDEX, index,
                     {PrivateRequest::show, "fairness.-F", announced_length},
                     std::as_writable_bytes(std::span(ret_block, 1)));
}

Status ZAV_GetFramesInQueueData(int index, QueueBlock *ret_block) {
    return ask_block(__func__, GET_IFNAME_FROM_INDEX, index, {PrivateRequest::statistics, "sched.-D"},
                     std::as_writable_bytes(std::span(ret_block, 1)));
}

Status ZAV_GetRateData(int index, int station, std::span<std::byte, rate_block_size> ret_block) {
    if (station < 0 || station > highest_rated_station) {
        log_debug("[ZAV-API] %s invalid staNum. Weight should be in Range of 0-15\n", __func__);
        return failure;
    }
    unsigned number = 0;
    if (ZAV_GetZavinoStaIndexByStaIndex(index, station, &number) != success) {
        log_debug("[ZAV-API] %s wrong index!\n", __func__);
        return failure;
    }
    std::array<char, 32> command;
    std::snprintf(command.data(), command.size(), "ratestd.-D.%u", number);
    return ask_block(__func__, GET_IFNAME_FROM_INDEX, index, {PrivateRequest::statistics, command.data()},
                     ret_block);
}

void print_access_categories(const char *title, const std::array<unsigned long, 5> &counters) {
    log_debug("%s BE=%lu, BK=%lu, VI=%lu, VO=%lu, MGMT=%lu, TOTAL=%lu\n", title, counters[0], counters[1],
              counters[2], counters[3], counters[4], std::accumulate(counters.begin(), counters.end(), 0UL));
}
