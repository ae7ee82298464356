#include "rrm/air_time.h"

#include "backend/config_store.h"
#include "backend/log.h"
#include "backend/mac.h"
#include "backend/stations.h"
#include "backend/value_lists.h"
#include "rrm/driver_data.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <memory>
#include <strings.h>
#include <vector>

namespace {

constexpr char bss_weights_key[] = "BssWeights";
constexpr int highest_rated_station = 15;

// The stations of the BSS, in the order in which clients count them.
Status read_stations(int index, std::vector<StationRecord> *ret_stations) {
    const auto table = std::make_unique<StationTable>();
    Bss bss;
    if (ZAV_GetAssocDevicesTable(index, table.get()) != success || find_bss(index, &bss) != success)
        return failure;
    std::copy_if(table->stations.begin(), table->stations.begin() + table->count,
                 std::back_inserter(*ret_stations),
                 [&](const StationRecord &station) { return station.bss + 1U == bss.number; });
    return success;
}

// The driver's number of a station, which counts as missing when the driver gave it one that cannot be.
Status number_of(const StationRecord &station, unsigned *ret_number) {
    if (station.driver_number > highest_driver_number)
        return failure;
    *ret_number = station.driver_number;
    return success;
}

} // namespace

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

Status ZAV_SetBssWeight(int index, int weight) {
    if (weight < 0 || weight > highest_weight)
        return refuse_weight(__func__);
    InterfaceName air_time;
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
    Bss bss;
    if (find_bss(__func__, index, &bss) != success)
        return failure;
    if (weight < 0 || weight > highest_weight)
        return refuse_weight(__func__);
    return write_list_number(bss, bss_weights_key, bss.number, weight);
}

Status ZAV_GetBssWeight(int index, unsigned *ret_weight) {
    Bss bss;
    int weight = 0;
    if (find_bss_or_say(__func__, index, &bss) != success)
        return failure;
    if (read_list_number(bss, bss_weights_key, bss.number, &weight) != success) {
        log_debug("[ZAV-API] %s Can't get %s parameter from NVRAM\n", __func__, bss_weights_key);
        return failure;
    }
    *ret_weight = static_cast<unsigned>(weight);
    log_debug("[ZAV-API] %s outputIndex = %u\n", __func__, bss.number);
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

Status ZAV_GetZavinoStaIndexByStaIndex(int index, int station, unsigned *ret_number) {
    std::vector<StationRecord> stations;
    const auto place = static_cast<std::size_t>(static_cast<unsigned>(station)); // none has a negative one
    if (read_stations(index, &stations) != success || place >= stations.size() ||
        number_of(stations[place], ret_number) != success)
        return failure;
    log_debug("[ZAV-API] %s staidx=%d zvidx=%d\n", __func__, station, static_cast<int>(*ret_number));
    return success;
}

Status ZAV_GetZavinoStaIndexByMac(int index, const char *mac, unsigned *ret_number) {
    std::vector<StationRecord> stations;
    if (read_stations(index, &stations) != success)
        return failure;
    const auto found = std::find_if(stations.begin(), stations.end(), [mac](const StationRecord &station) {
        return strcasecmp(text_of(station.mac).data(), mac) == 0;
    });
    if (found == stations.end() || number_of(*found, ret_number) != success)
        return failure;
    log_debug("[ZAV-API] %s sta_mac=%s staidx=%d zvidx=%d\n", __func__, mac,
              static_cast<int>(found - stations.begin()), static_cast<int>(*ret_number));
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
