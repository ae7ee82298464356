#include "api/site_survey.h"

#include "api/worker.h"
#include "api/wrapper.h"
#include "backend/interfaces.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <semaphore>

namespace {

std::atomic<unsigned> scan_status_24g{scan_never}, scan_status_5g{scan_never};
std::binary_semaphore first_step_done{0}; // requests come one at a time, and each waits for its thread

std::atomic<unsigned> &status_of(Radio radio) {
    return radio == Radio::band_24g ? scan_status_24g : scan_status_5g;
}

Status find_radio(int index, Radio *ret_radio) {
    Bss bss;
    if (ZAV_getIfNameByIndex(index, &bss) != success)
        return failure;
    (void)ZAV_is24g(bss); // for its line
    *ret_radio = bss.radio;
    return success;
}

void *ap_scan_thread_function(void *argument) {
    const int index = *static_cast<const int *>(argument); // gone after the first step
    log_debug("[ZAV-API] %s ap scan thread started.\n", __func__);
    Radio radio{};
    const Status found = find_radio(index, &radio);
    if (found == success)
        set_ap_scan_thread_status(radio, scan_running);
    first_step_done.release();
    if (found != success)
        return nullptr;
    const Status result = ZAV_ApSiteSurvey(index);
    set_ap_scan_thread_status(radio, result == failure ? scan_failed : scan_finished);
    log_debug("[ZAV-API] %s %s thread done with %u\n", __func__,
              radio == Radio::band_24g ? "2.4 GHz" : "5.2 GHz", status_of(radio).load());
    return nullptr;
}

// The wire's fields are zeros before.
template <class Octets, std::size_t wire, std::size_t driver>
void copy_octets(Octets (&to)[wire], const Octets (&from)[driver]) {
    static_assert(driver <= wire);
    std::memcpy(to, from, driver);
}

template <std::size_t wire, std::size_t driver>
void copy_up_to_end(char (&to)[wire], const char (&from)[driver]) {
    std::memcpy(to, from, strnlen(from, std::min(wire, driver)));
}

void convert_record(const SurveyRecord &from, scan_entry *to) {
    copy_octets(to->bssid, from.bssid);
    copy_up_to_end(to->ssid, from.ssid);
    copy_octets(to->octets1, from.octets1);
    to->byte1 = from.byte1;
    copy_octets(to->octets2, from.octets2);
    to->byte2 = from.byte2;
    copy_octets(to->octets3, from.octets3);
    to->byte3 = from.byte3;
    to->byte4 = from.byte4;
    copy_up_to_end(to->text1, from.text1);
    to->char1 = from.char1;
    copy_up_to_end(to->text2, from.text2);
    copy_up_to_end(to->text3, from.text3);
    copy_up_to_end(to->text4, from.text4);
    to->number = from.number; // NOLINT(bugprone-signed-char-misuse): it is a number, and signed
    to->byte5 = from.byte5;
}

} // namespace

void set_ap_scan_thread_status(Radio radio, unsigned status) {
    if (status <= scan_finished)
        status_of(radio) = status;
}

Status wlan_ApSiteSurvey(int index) {
    Radio radio{};
    if (find_radio(index, &radio) != success)
        return failure;
    if (status_of(radio) == scan_running) {
        log_debug("[ZAV-API] %s %s scanning still processing, wait.\n", __func__,
                  radio == Radio::band_24g ? "2.4GHz" : "5.2GHz");
        return failure;
    }
    if (!start_worker(ap_scan_thread_function, &index)) {
        const int error = errno;
        set_ap_scan_thread_status(radio, scan_failed);
        log_debug("[ZAV-API] %s Error creating ap scan thread : %d, %s.\n", __func__, error, strerror(error));
        return failure;
    }
    first_step_done.acquire();
    return success;
}

Status wlan_ApSiteSurveyStatus(int index, unsigned *ret_status) {
    Radio radio{};
    if (find_radio(index, &radio) != success)
        return failure;
    *ret_status = status_of(radio);
    return success;
}

Status wlan_getApScanNumOfEntries(int index, unsigned *ret_count) {
    log_debug("[ZAV-API] %s entry.\n", __func__);
    return report_failure(__func__, ZAV_GetApScanNumOfEntries(index, ret_count));
}

Status wlan_getApScanResult(int index, scan_table *ret_table) {
    SurveyBlock block;
    const Status result = report_failure(__func__, ZAV_GetApScanResult(index, &block));
    if (result != failure)
        convert_survey(block, ret_table);
    return result;
}

Status wlan_apAutoChannelSelect(int index) {
    return report_failure(__func__, ZAV_ApAutoChannelSelect(index));
}

void convert_survey(const SurveyBlock &block, scan_table *ret_table) {
    *ret_table = {};
    ret_table->count = block.count;
    for (unsigned i = 0; i < block.count; ++i)
        convert_record(block.records[i], &ret_table->entries[i]);
}
