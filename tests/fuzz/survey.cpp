// A driver's answer to a survey, as far as the reply to a client.

#undef NDEBUG
#include "api/site_survey.h"
#include "backend/interfaces.h"

#include <algorithm>
#include <cassert>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static SurveyAnswer answer;
    static scan_table table;
    set_known_driver(DriverState::initialised, {0, 1});
    answer.fill('\0');
    std::copy_n(data, std::min(size, answer.size()), answer.begin());
    publish_survey(Radio::band_5g, answer);
    unsigned count = 0;
    assert(wlan_getApScanNumOfEntries(1, &count) == success && wlan_getApScanResult(1, &table) == success);
    assert(count == std::min<unsigned>(size == 0 ? 0 : data[0], 64) && table.count == count);
    const auto *const begin = reinterpret_cast<const char *>(&table.entries[count]);
    const auto *const end = reinterpret_cast<const char *>(&table + 1);
    assert(std::all_of(begin, end, [](char byte) { return byte == 0; }));
    for (unsigned i = 0; i < count; ++i)
        assert(table.entries[i].number >= -128 && table.entries[i].number <= 127);
    return 0;
}
