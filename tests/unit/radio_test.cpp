#include "radio/radio.h"

#include "observed.h"
#include "radio/bss_options.h"
#include "radio/ht.h"
#include "radio/wmm.h"
#include "settings_files.h"

#include <gtest/gtest.h>

using Get = Status (*)(int index, unsigned *ret_value);

static std::string list(const std::string &key, const std::string &first_three) {
    return key + "=" + first_three + ";0;0;0;0;0;0;0;0;0;0;0;0;0\n";
}

// The file has no room for a longer or another line: what goes with it must not be stored alone.
TEST(Radio, NoSecondSettingIsStoredWithoutTheFirst) {
    const std::string lines = "HT_BW=0\nRekeyMethod=" + std::string(15, ';') + "\n" +
                              list("RekeyInterval", "0;0;0"),
                      full = lines + std::string(16383 - sizeof file_head + 1 - lines.size(), 'x');
    start_with(full, "");
    EXPECT_EQ(ZAV_SetChannelBW(1, 1), failure);
    EXPECT_EQ(ZAV_SetWPAReAuthInterval(1, 5), failure);
    EXPECT_EQ(lines_of(file_24g), full);
}

TEST(Radio, AnyNumberButZeroSwitchesOn) {
    start_with("TxBurst=0\nBGProtection=2\n" + list("NoForwarding", "0;0;0") + list("HideSSID", "1;1;1"), "");
    for (const auto set :
         {ZAV_SetTxBurst, ZAV_SetBGProtection, ZAV_SetStationIsolate, ZAV_SetSsidAdvertisementEnabled})
        EXPECT_EQ(set(1, 7), success);
    EXPECT_EQ(lines_of(file_24g),
              "TxBurst=1\nBGProtection=0\n" + list("NoForwarding", "1;0;0") + list("HideSSID", "0;1;1"));
}

TEST(Radio, StoredTextsOfOtherFormsAreRead) {
    const struct {
        Get get;
        const char *line;
        Answer found;
    } stored[] = {
        {ZAV_GetBGProtection, "BGProtection=1\n", {success, 0}},
        {ZAV_GetDtimPeriod, "DtimPeriod= 12 TU\n", {success, 12}},
        {ZAV_GetSsidAdvertisementEnabled, "HideSSID=0;2\n", {success, 0}},
        {ZAV_GetChannelBW, "HT_BW=0\n", {success, 0}},
        {ZAV_GetChannelBW, "HT_BW=1\n", {failure, 99}},
        {ZAV_GetGuardInterval, "HT_AutoGI=1\n", {success, 2}},
        {ZAV_GetGuardInterval, "HT_AutoGI=0\n", {failure, 99}},
    };
    for (const auto &[get, line, found] : stored) {
        start_with(line, "");
        EXPECT_EQ(answer(get, 2), found) << line;
    }
}

// What a list has is kept where its own field is equal, and is brought to 16 fields where it is written.
TEST(Radio, ShortListsAreRewrittenUnlessTheFieldIsToBeKept) {
    start_with("HideSSID=0;0\nMaxStaNum=1;1\n", "");
    EXPECT_EQ(ZAV_SetSsidAdvertisementEnabled(2, 1), unchanged);
    EXPECT_EQ(ZAV_SetMaxStationNum(2, 1), success);
    EXPECT_EQ(lines_of(file_24g), "HideSSID=0;0\n" + list("MaxStaNum", "1;1;0"));
}

TEST(Radio, ListsHaveNoFieldForASeventeenthBss) {
    const std::string lines = "#\nBssidNum=17\nMaxStaNum=1\nNoForwarding=1\nAPTxop=1;2;3;4\n";
    start_with("", "");
    write_file(file_24g, lines);
    for (const auto set :
         {ZAV_SetMaxStationNum, ZAV_setWmmUaspdEnable, ZAV_SetWPAReAuthInterval, ZAV_SetInterworkIeEnable})
        EXPECT_EQ(set(17, 1), failure);
    EXPECT_EQ(answer(ZAV_GetMaxStationNum, 17), Answer(failure, 99));
    EXPECT_EQ(read_file(file_24g), lines);
    EXPECT_EQ(ZAV_SetWmmIcTxOp(17, 4, 70000), success);
    EXPECT_EQ(answer(ZAV_GetWmmIcTxOp, 17, 4), Answer(success, 70000));
}
