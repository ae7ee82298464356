#include "backend/site_survey.h"

#include "backend/driver_channel.h"
#include "backend/interfaces.h"
#include "backend/log.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <mutex>
#include <span>

namespace {

std::mutex survey_mutex;
SurveyBlock survey_24g, survey_5g; // under the mutex

SurveyBlock &block_of(Radio radio) { return radio == Radio::band_24g ? survey_24g : survey_5g; }

Status check_running(const char *who, int index) {
    log_debug("[ZAV-API] %s entry (index=%d).\n", who, index);
    if (isIndexValid(index) != success)
        return failure;
    return check_driver(who, DriverState::initialised);
}

Status find_block(const char *who, int index, const SurveyBlock **ret_block) {
    Bss bss;
    if (check_running(who, index) != success || find_bss(index, &bss) != success)
        return failure;
    *ret_block = &block_of(bss.radio);
    return success;
}

} // namespace

void publish_survey(Radio radio, const SurveyAnswer &answer) {
    static_assert(sizeof(SurveyAnswer) >= sizeof(SurveyBlock));
    const std::lock_guard held(survey_mutex);
    SurveyBlock &block = block_of(radio);
    std::memcpy(&block, answer.data(), sizeof block);
    block.count = static_cast<unsigned char>(std::min<unsigned>(block.count, most_neighbours));
}

Status ZAV_ApSiteSurvey(int index) {
    Bss bss;
    if (ZAV_getIfNameByIndex(index, &bss) != success)
        return failure;
    (void)ZAV_is24g(bss);                                 // for its line
    const auto answer = std::make_unique<SurveyAnswer>(); // zeros
    publish_survey(bss.radio, *answer);
    const Status asked = ask_private(__func__, bss.name, {.request = PrivateRequest::survey},
                                     std::as_writable_bytes(std::span(*answer)));
    if (asked == success)
        publish_survey(bss.radio, *answer);
    return asked;
}

Status ZAV_GetApScanNumOfEntries(int index, unsigned *ret_count) {
    const SurveyBlock *block = nullptr;
    if (find_block(__func__, index, &block) != success)
        return failure;
    const std::lock_guard held(survey_mutex);
    *ret_count = block->count;
    return success;
}

Status ZAV_GetApScanResult(int index, SurveyBlock *ret_block) {
    const SurveyBlock *block = nullptr;
    if (find_block(__func__, index, &block) != success)
        return failure;
    const std::lock_guard held(survey_mutex);
    *ret_block = *block;
    return success;
}

Status ZAV_ApAutoChannelSelect(int index) {
    unsigned first = 0, last = 0;
    if (check_running(__func__, index) != success ||
        ZAV_GetNumberOfEntriesPerInf(&first, &last, index) != success)
        return failure;
    return ZAV_Set(static_cast<int>(first), "AutoChannelSel=2");
}
