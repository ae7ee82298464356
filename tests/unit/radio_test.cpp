#include "radio/radio.h"

#include "observed.h"
#include "radio/bss_options.h"
#include "radio/ht.h"
#include "radio/wmm.h"
#include "settings_files.h"

#include <climits>
#include <gtest/gtest.h>

using Get = Status (*)(int index, unsigned *ret_value);
using Set = Status (*)(int index, unsigned value);

static std::string list(const std::string &key, const std::string &first_three) {
    return key + "=" + first_three + ";0;0;0;0;0;0;0;0;0;0;0;0;0\n";
}

// What the setter does without the key; the getter fails, or takes an absent list for zeros.
enum class Absent { creates, fails, is_zeros };

// A setting of each kind and those that are like no other: BSS 2 of a band, whose file has `before`.
static const struct Row {
    Get get;
    Set set;
    std::string before;
    unsigned read, value;
    std::string after;
    Absent absent = Absent::creates;
} rows[] = {
    {ZAV_GetFragThreshold, ZAV_SetFragThreshold, "FragThreshold=-1\n", UINT_MAX, 256, "FragThreshold=256\n"},
    {ZAV_GetTxBurst, ZAV_SetTxBurst, "TxBurst=1\n", 1, 0, "TxBurst=0\n"},
    {ZAV_GetBssIsolate, ZAV_SetBssIsolate, "NoForwardingBTNBSSID=0\n", 0, 1, "NoForwardingBTNBSSID=1\n"},
    {ZAV_GetBGProtection, ZAV_SetBGProtection, "BGProtection=0\n", 1, 0, "BGProtection=2\n"},
    {ZAV_GetChannelBW, ZAV_SetChannelBW, "HT_BSSCoexistence=1\nHT_BW=1\n", 1, 2,
     "HT_BSSCoexistence=0\nHT_BW=1\n"},
    {ZAV_GetMaxStationNum, ZAV_SetMaxStationNum, list("MaxStaNum", "9;8;7"), 8, 255,
     list("MaxStaNum", "9;255;7"), Absent::fails},
    {ZAV_GetStationIsolate, ZAV_SetStationIsolate, list("NoForwarding", "2;0;3"), 0, 1,
     list("NoForwarding", "2;1;3"), Absent::fails},
    {ZAV_GetSsidAdvertisementEnabled, ZAV_SetSsidAdvertisementEnabled, list("HideSSID", "0;1;1"), 0, 1,
     list("HideSSID", "0;0;1"), Absent::fails},
    {ZAV_GetInterworkIeEnable, ZAV_SetInterworkIeEnable, list("wifiInterworkIeEnable", "0;0;0"), 0, 1,
     list("wifiInterworkIeEnable", "0;1;0"), Absent::is_zeros},
    {ZAV_GetWPAReAuthInterval, ZAV_SetWPAReAuthInterval,
     "RekeyMethod=PKT;DISABLE;of any length;;;;;;;;;;;;;\n" + list("RekeyInterval", "1;0;3"), 0, 60,
     "RekeyMethod=PKT;TIME;of any length;;;;;;;;;;;;;\n" + list("RekeyInterval", "1;60;3"), Absent::fails},
    {[](int index, unsigned *ret_tx_op) { return ZAV_GetWmmOgTxOp(index, 3, ret_tx_op); },
     [](int index, unsigned tx_op) { return ZAV_SetWmmOgTxOp(index, 3, tx_op); }, "BSSTxop=4;5;6;7\n", 6,
     70000, "BSSTxop=4;5;70000;7\n", Absent::fails},
};

static void walk(const Row &row, int index, const char *file, const char *other_file) {
    const std::string around = "Z=0\n", lines = around + row.before;
    SCOPED_TRACE(lines + std::to_string(index));
    start_with(lines, lines);
    EXPECT_EQ(answer(row.get, index), Answer(success, row.read));
    EXPECT_EQ(row.set(index, row.value), success);
    EXPECT_EQ(row.set(index, row.value), unchanged);
    EXPECT_EQ(answer(row.get, index), Answer(success, row.value));
    for (const int wrong : {0, 17, -1, INT_MIN}) {
        EXPECT_EQ(answer(row.get, wrong), Answer(failure, 99));
        EXPECT_EQ(row.set(wrong, row.read), failure);
    }
    EXPECT_EQ(lines_of(file), around + row.after);
    EXPECT_EQ(lines_of(other_file), lines);
    start_with(around, around);
    EXPECT_EQ(answer(row.get, index),
              row.absent == Absent::is_zeros ? Answer(success, 0) : Answer(failure, 99));
    EXPECT_EQ(row.set(index, row.value), row.absent == Absent::fails ? failure : success);
    EXPECT_EQ(lines_of(file), around + (row.absent == Absent::fails ? "" : row.after));
    EXPECT_EQ(lines_of(other_file), around);
}

TEST(Radio, EveryKindIsReadAndStored) {
    for (const Row &row : rows) {
        walk(row, 2, file_24g, file_5g);
        walk(row, 10, file_5g, file_24g);
    }
}

TEST(Radio, ThereAreFourClasses) {
    start_with("BSSTxop=1;2;3;4\n", "");
    for (const int ac : {0, 5, -1, INT_MAX}) {
        EXPECT_EQ(answer(ZAV_GetWmmOgTxOp, 1, ac), Answer(failure, 99)) << ac;
        EXPECT_EQ(ZAV_SetWmmOgTxOp(1, ac, 9), failure) << ac;
    }
    EXPECT_EQ(lines_of(file_24g), "BSSTxop=1;2;3;4\n");
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
    EXPECT_EQ(answer(ZAV_GetWmmIcTxOp, 17, 4), Answer(success, 4));
}
