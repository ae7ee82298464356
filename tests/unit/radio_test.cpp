#include "radio/radio.h"

#include "radio/bss_options.h"
#include "radio/ht.h"
#include "radio/wmm.h"
#include "settings_files.h"

#include <climits>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>

using Get = std::function<Status(int index, unsigned *ret_value)>;
using Set = std::function<Status(int index, unsigned value)>;
using GetOfClass = Status (*)(int, int, unsigned *);
using SetOfClass = Status (*)(int, int, unsigned);

// What a setting does without its key: the setter fails or creates it, the getter fails or takes it for
// zeros.
enum class Absent { creates, fails, is_zeros };

// BSS 2 of a band, whose file has `before`.
struct Row {
    const char *name;
    Get get; // none where another setting is read
    Set set;
    std::string before;
    unsigned read, value;
    std::string after;
    Absent absent = Absent::creates;
};

static std::string list(const std::string &key, const std::string &first_three) {
    return key + "=" + first_three + ";0;0;0;0;0;0;0;0;0;0;0;0;0\n";
}

struct OfClass {
    GetOfClass get;
    SetOfClass set;
    const char *key;
};

static const OfClass classes[] = {
    {ZAV_GetWmmOgAifsn, ZAV_SetWmmOgAifsn, "BSSAifsn"},
    {ZAV_GetWmmOgEcwMin, ZAV_SetWmmOgEcwMin, "BSSCwmin"},
    {ZAV_GetWmmOgEcwMax, ZAV_SetWmmOgEcwMax, "BSSCwmax"},
    {ZAV_GetWmmOgTxOp, ZAV_SetWmmOgTxOp, "BSSTxop"},
    {ZAV_GetWmmOgAckPolicy, ZAV_SetWmmOgAckPolicy, "AckPolicy"},
    {ZAV_GetWmmIcAifsn, ZAV_SetWmmIcAifsn, "APAifsn"},
    {ZAV_GetWmmIcEcwMin, ZAV_SetWmmIcEcwMin, "APCwmin"},
    {ZAV_GetWmmIcEcwMax, ZAV_SetWmmIcEcwMax, "APCwmax"},
    {ZAV_GetWmmIcTxOp, ZAV_SetWmmIcTxOp, "APTxop"},
    {ZAV_GetWmmIcAckPolicy, ZAV_SetWmmIcAckPolicy, "AckPolicy"},
};

static const Row rows[] = {
    {"BGProtection", ZAV_GetBGProtection, ZAV_SetBGProtection, "BGProtection=0\n", 1, 0, "BGProtection=2\n"},
    {"BeaconInterval", ZAV_GetBeaconInterval, ZAV_SetBeaconInterval, "BeaconPeriod=100\n", 100, UINT_MAX,
     "BeaconPeriod=-1\n"},
    {"AcctUpdateInterval", ZAV_GetAcctUpdateInterval, ZAV_SetAcctUpdateInterval, "Acct_Interim_Interval=5\n",
     5, 600, "Acct_Interim_Interval=600\n"},
    {"DtimPeriod", ZAV_GetDtimPeriod, ZAV_SetDtimPeriod, "DtimPeriod=1\n", 1, 3, "DtimPeriod=3\n"},
    {"TxPreamble", ZAV_GetTxPreamble, ZAV_SetTxPreamble, "TxPreamble=0\n", 0, 1, "TxPreamble=1\n"},
    {"RTSThreshold", ZAV_GetRTSThreshold, ZAV_SetRTSThreshold, "RTSThreshold=2347\n", 2347, 0,
     "RTSThreshold=0\n"},
    {"FragThreshold", ZAV_GetFragThreshold, ZAV_SetFragThreshold, "FragThreshold=-1\n", UINT_MAX, 256,
     "FragThreshold=256\n"},
    {"ShortSlot", ZAV_GetShortSlot, ZAV_SetShortSlot, "ShortSlot=1\n", 1, 0, "ShortSlot=0\n"},
    {"TxBurst", ZAV_GetTxBurst, ZAV_SetTxBurst, "TxBurst=1\n", 1, 0, "TxBurst=0\n"},
    {"ShortRetryLimit", ZAV_GetShortRetryLimit, ZAV_SetShortRetryLimit, "ShortRetryLimit=7\n", 7, 8,
     "ShortRetryLimit=8\n"},
    {"LongRetryLimit", ZAV_GetLongRetryLimit, ZAV_SetLongRetryLimit, "LongRetryLimit=4\n", 4, 5,
     "LongRetryLimit=5\n"},
    {"HTMcs", ZAV_GetHTMcs, ZAV_SetHTMcs, "HT_MCS=33\n", 33, 7, "HT_MCS=7\n"},
    {"ChannelBW 1", ZAV_GetChannelBW, ZAV_SetChannelBW, "HT_BSSCoexistence=0\nHT_BW=0\n", 0, 1,
     "HT_BSSCoexistence=1\nHT_BW=1\n"},
    {"ChannelBW 2", ZAV_GetChannelBW, ZAV_SetChannelBW, "HT_BSSCoexistence=1\nHT_BW=1\n", 1, 2,
     "HT_BSSCoexistence=0\nHT_BW=1\n"},
    {"ChannelBW 0", ZAV_GetChannelBW, ZAV_SetChannelBW, "HT_BSSCoexistence=0\nHT_BW=1\n", 2, 0,
     "HT_BSSCoexistence=1\nHT_BW=0\n"},
    {"HTMode", ZAV_GetHTMode, ZAV_SetHTMode, "HT_OpMode=0\n", 0, 1, "HT_OpMode=1\n"},
    {"GuardInterval 0", ZAV_GetGuardInterval, ZAV_SetGuardInterval, "HT_AutoGI=0\nHT_GI=0\n", 1, 0,
     "HT_AutoGI=0\nHT_GI=1\n"},
    {"GuardInterval 1", ZAV_GetGuardInterval, ZAV_SetGuardInterval, "HT_AutoGI=1\nHT_GI=1\n", 2, 1,
     "HT_AutoGI=0\nHT_GI=0\n"},
    {"GuardInterval 2", ZAV_GetGuardInterval, ZAV_SetGuardInterval, "HT_AutoGI=0\nHT_GI=1\n", 0, 2,
     "HT_AutoGI=1\nHT_GI=1\n"},
    {"Amsdu", ZAV_GetAmsdu, ZAV_SetAmsdu, "HT_AMSDU=0\n", 0, 1, "HT_AMSDU=1\n"},
    {"BADecline", ZAV_GetBADecline, ZAV_SetBADecline, "HT_BADecline=0\n", 0, 1, "HT_BADecline=1\n"},
    {"BlockAck", ZAV_GetBlockAck, ZAV_SetBlockAck, "HT_AutoBA=1\n", 1, 0, "HT_AutoBA=0\n"},
    {"NProtection", ZAV_GetNProtection, ZAV_SetNProtection, "HT_PROTECT=1\n", 1, 0, "HT_PROTECT=0\n"},
    {"WPAPreAuth", ZAV_GetWPAPreAuth, ZAV_SetWPAPreAuth, "PreAuth=0\n", 0, 1, "PreAuth=1\n"},
    {"BssIsolate", ZAV_GetBssIsolate, ZAV_SetBssIsolate, "NoForwardingBTNBSSID=0\n", 0, 1,
     "NoForwardingBTNBSSID=1\n"},
    {"SideBand", ZAV_GetSideBand, ZAV_SetSideBand, "HT_EXTCHA=1\n", 1, 0, "HT_EXTCHA=0\n"},
    {"HTTxStream", ZAV_GetHTTxStream, ZAV_SetHTTxStream, "HT_TxStream=2\n", 2, 1, "HT_TxStream=1\n"},
    {"HTRxStream", ZAV_GetHTRxStream, ZAV_SetHTRxStream, "HT_RxStream=3\n", 3, 1, "HT_RxStream=1\n"},
    {"HTStbc", ZAV_GetHTStbc, ZAV_SetHTStbc, "HT_STBC=1\n", 1, 2, "HT_STBC=2\n"},
    {"HTRDG", ZAV_GetHTRDG, ZAV_SetHTRDG, "HT_RDG=0\n", 0, 3, "HT_RDG=3\n"},
    {"IGMPSnooping", ZAV_GetIGMPSnooping, ZAV_SetIGMPSnooping, "ZvClassEnable=1\n", 1, 0,
     "ZvClassEnable=0\n"},
    {"ImplicitBeamforming", ZAV_GetImplicitBeamformingEnable, ZAV_SetImplicitBeamformingEnable,
     "ZvITxBfEn=0\n", 0, 1, "ZvITxBfEn=1\n"},
    {"WmmEnable", ZAV_GetWmmEnable, ZAV_SetWmmEnable, list("WmmCapable", "1;0;1"), 0, 1,
     list("WmmCapable", "1;1;1"), Absent::fails},
    {"StationIsolate", ZAV_GetStationIsolate, ZAV_SetStationIsolate, list("NoForwarding", "2;0;3"), 0, 1,
     list("NoForwarding", "2;1;3"), Absent::fails},
    {"SsidAdvertisement", ZAV_GetSsidAdvertisementEnabled, ZAV_SetSsidAdvertisementEnabled,
     list("HideSSID", "0;1;1"), 0, 1, list("HideSSID", "0;0;1"), Absent::fails},
    {"MaxStationNum", ZAV_GetMaxStationNum, ZAV_SetMaxStationNum, list("MaxStaNum", "9;8;7"), 8, 255,
     list("MaxStaNum", "9;255;7"), Absent::fails},
    {"WPAReAuthInterval on", ZAV_GetWPAReAuthInterval, ZAV_SetWPAReAuthInterval,
     "RekeyMethod=PKT;DISABLE;of any length;;;;;;;;;;;;;\n" + list("RekeyInterval", "1;0;3"), 0, 60,
     "RekeyMethod=PKT;TIME;of any length;;;;;;;;;;;;;\n" + list("RekeyInterval", "1;60;3"), Absent::fails},
    {"WPAReAuthInterval off", ZAV_GetWPAReAuthInterval, ZAV_SetWPAReAuthInterval,
     "RekeyMethod=;TIME;;;;;;;;;;;;;;\n" + list("RekeyInterval", "1;2;3"), 2, 0,
     "RekeyMethod=;DISABLE;;;;;;;;;;;;;;\n" + list("RekeyInterval", "1;0;3"), Absent::fails},
    {"InterworkIeEnable", ZAV_GetInterworkIeEnable, ZAV_SetInterworkIeEnable,
     list("wifiInterworkIeEnable", "0;0;0"), 0, 1, list("wifiInterworkIeEnable", "0;1;0"), Absent::is_zeros},
    {"InterworkIeAccessNetType", ZAV_GetInterworkIeAccessNetType, ZAV_SetInterworkIeAccessNetType,
     list("wifiInterworkIeAccessNetType", "0;2;0"), 2, 15, list("wifiInterworkIeAccessNetType", "0;15;0"),
     Absent::is_zeros},
    {"WmmUaspdEnable", nullptr, ZAV_setWmmUaspdEnable,
     list("NoForwarding", "3;0;1") + list("APSDCapable", "1;1;0"), 0, 1,
     list("NoForwarding", "3;0;1") + list("APSDCapable", "3;1;1"), Absent::fails},
};

// The settings of access classes as rows: class 3.
static std::vector<Row> all_rows() {
    std::vector<Row> all(std::begin(rows), std::end(rows));
    for (const auto &[get, set, key] : classes)
        all.push_back({key, [get = get](int index, unsigned *ret_value) { return get(index, 3, ret_value); },
                       [set = set](int index, unsigned value) { return set(index, 3, value); },
                       std::string(key) + "=4;5;6;7\n", 6, 70000, std::string(key) + "=4;5;70000;7\n",
                       Absent::fails});
    return all;
}

static void expect_read(const Row &row, int index, Status status, unsigned expected) {
    unsigned value = 99;
    if (!row.get)
        return;
    EXPECT_EQ(row.get(index, &value), status) << index;
    EXPECT_EQ(value, status == success ? expected : 99) << index;
}

static void walk(const Row &row, int index, const char *file, const char *other_file) {
    SCOPED_TRACE(row.name + std::string(", index ") + std::to_string(index));
    const std::string around = "Z=0\n", lines = around + row.before;
    start_with(lines, lines);
    expect_read(row, index, success, row.read);
    EXPECT_EQ(row.set(index, row.value), success);
    EXPECT_EQ(lines_of(file), around + row.after);
    EXPECT_EQ(row.set(index, row.value), unchanged);
    EXPECT_EQ(lines_of(file), around + row.after);
    EXPECT_EQ(lines_of(other_file), lines);
    expect_read(row, index, success, row.value);
    for (const int wrong : {0, 17, -1, INT_MIN}) {
        expect_read(row, wrong, failure, 0);
        EXPECT_EQ(row.set(wrong, row.read), failure);
    }
    EXPECT_EQ(lines_of(file), around + row.after);
}

static void walk_absent(const Row &row, int index, const char *file, const char *other_file) {
    SCOPED_TRACE(row.name + std::string(" without its key, index ") + std::to_string(index));
    start_with("Z=0\n", "Z=0\n");
    expect_read(row, index, row.absent == Absent::is_zeros ? success : failure, 0);
    EXPECT_EQ(row.set(index, row.value), row.absent == Absent::fails ? failure : success);
    EXPECT_EQ(lines_of(file), "Z=0\n" + (row.absent == Absent::fails ? "" : row.after));
    EXPECT_EQ(lines_of(other_file), "Z=0\n");
}

TEST(Radio, EverySettingIsReadAndStored) {
    for (const Row &row : all_rows()) {
        walk(row, 2, file_24g, file_5g);
        walk(row, 10, file_5g, file_24g);
        walk_absent(row, 2, file_24g, file_5g);
    }
}

TEST(Radio, ValuesOutOfRangeStoreNothing) {
    const std::string lines = "HT_BSSCoexistence=1\nHT_BW=0\nHT_AutoGI=1\nHT_GI=1\nMaxStaNum=1\n";
    const std::pair<Set, unsigned> refused[] = {
        {ZAV_SetChannelBW, 3},         {ZAV_SetChannelBW, UINT_MAX},
        {ZAV_SetGuardInterval, 3},     {ZAV_SetGuardInterval, UINT_MAX},
        {ZAV_SetMaxStationNum, 256},   {ZAV_SetMaxStationNum, UINT_MAX},
        {ZAV_SetInterworkIeEnable, 2}, {ZAV_SetInterworkIeAccessNetType, 16},
    };
    start_with(lines, lines);
    for (const auto &[set, value] : refused)
        EXPECT_EQ(set(1, value), failure) << value;
    EXPECT_EQ(lines_of(file_24g), lines);
    for (const auto &[get, set, key] : classes)
        for (const int ac : {0, 5, -1, INT_MAX}) {
            unsigned value = 99;
            start_with(std::string(key) + "=1;2;3;4\n", "");
            EXPECT_EQ(get(1, ac, &value), failure) << key << ac;
            EXPECT_EQ(set(1, ac, 9), failure) << key << ac;
            EXPECT_EQ(lines_of(file_24g), std::string(key) + "=1;2;3;4\n");
            EXPECT_EQ(value, 99);
        }
}

TEST(Radio, AnyNumberButZeroSwitchesOn) {
    const std::pair<Set, const char *> switches[] = {
        {ZAV_SetTxBurst, "TxBurst=1\n"},
        {ZAV_SetBGProtection, "BGProtection=0\n"},
        {ZAV_SetStationIsolate, "NoForwarding=1\n"},
        {ZAV_SetSsidAdvertisementEnabled, "HideSSID=0\n"},
    };
    for (const auto &[set, line] : switches) {
        start_with("NoForwarding=0\nHideSSID=1\n", "");
        EXPECT_EQ(set(1, 7), success) << line;
        const std::string stored = lines_of(file_24g), key(line, std::strcspn(line, "="));
        EXPECT_EQ(stored[stored.find(key) + key.size() + 1], line[key.size() + 1]) << stored;
    }
}

TEST(Radio, StoredTextsOfOtherFormsAreRead) {
    const struct {
        Get get;
        const char *line;
        Status status;
        unsigned value;
    } stored[] = {
        {ZAV_GetTxBurst, "TxBurst=10\n", success, 1},
        {ZAV_GetTxBurst, "TxBurst=\n", success, 0},
        {ZAV_GetTxBurst, "TxBurst=on\n", success, 0},
        {ZAV_GetBssIsolate, "NoForwardingBTNBSSID=10\n", success, 0},
        {ZAV_GetSideBand, "HT_EXTCHA= 1\n", success, 0},
        {ZAV_GetBGProtection, "BGProtection=01\n", success, 1},
        {ZAV_GetBGProtection, "BGProtection=1\n", success, 0},
        {ZAV_GetDtimPeriod, "DtimPeriod=two\n", success, 0},
        {ZAV_GetDtimPeriod, "DtimPeriod= 12 TU\n", success, 12},
        {ZAV_GetStationIsolate, "NoForwarding=0;2\n", failure, 99},
        {ZAV_GetStationIsolate, "NoForwarding=0\n", success, 0},
        {ZAV_GetSsidAdvertisementEnabled, "HideSSID=0;2\n", success, 0},
        {ZAV_GetChannelBW, "HT_BW=0\n", success, 0},
        {ZAV_GetChannelBW, "HT_BW=1\n", failure, 99},
        {ZAV_GetGuardInterval, "HT_AutoGI=1\n", success, 2},
        {ZAV_GetGuardInterval, "HT_AutoGI=0\n", failure, 99},
    };
    for (const auto &[get, line, status, value] : stored) {
        unsigned found = 99;
        start_with(line, "");
        EXPECT_EQ(get(2, &found), status) << line;
        EXPECT_EQ(found, value) << line;
    }
}

// What a list has is kept where its own field is equal, and is brought to 16 fields where it is written.
TEST(Radio, ShortListsAreRewrittenUnlessTheFieldIsToBeKept) {
    start_with("WmmCapable=1;1\nHideSSID=0;0\nMaxStaNum=1;1\nRekeyInterval=3\nAPTxop=1\n", "");
    EXPECT_EQ(ZAV_SetWmmEnable(2, 1), unchanged);
    EXPECT_EQ(ZAV_SetSsidAdvertisementEnabled(2, 1), unchanged);
    EXPECT_EQ(ZAV_SetMaxStationNum(2, 1), success);
    EXPECT_EQ(ZAV_SetWPAReAuthInterval(1, 9), failure) << "there is no method";
    EXPECT_EQ(ZAV_SetWmmIcTxOp(2, 3, 5), success);
    EXPECT_EQ(lines_of(file_24g), "WmmCapable=1;1\nHideSSID=0;0\n" + list("MaxStaNum", "1;1;0") +
                                      "RekeyInterval=3\nAPTxop=1;0;5;0\n");
}

TEST(Radio, ListsHaveNoFieldForASeventeenthBss) {
    start_with("", "");
    write_file(file_24g, "#\nBssidNum=17\nMaxStaNum=1\nNoForwarding=1\nAPTxop=1;2;3;4\n");
    const std::string before = read_file(file_24g);
    unsigned value = 99;
    for (const Set &set : {Set(ZAV_SetMaxStationNum), Set(ZAV_setWmmUaspdEnable),
                           Set(ZAV_SetWPAReAuthInterval), Set(ZAV_SetInterworkIeEnable)})
        EXPECT_EQ(set(17, 1), failure);
    EXPECT_EQ(ZAV_GetMaxStationNum(17, &value), failure);
    EXPECT_EQ(read_file(file_24g), before);
    EXPECT_TRUE(ZAV_GetWmmIcTxOp(17, 4, &value) == success && value == 4);
}

TEST(Radio, CountryCodeIsAnyText) {
    start_with("CountryCode=US\n", "CountryCode=DE\n");
    std::array<char, 4> code{};
    EXPECT_TRUE(ZAV_GetCountryCode(9, code) == success && code.data() == std::string("DE"));
    EXPECT_EQ(ZAV_SetCountryCode(3, "%s too long"), success);
    EXPECT_EQ(ZAV_SetCountryCode(3, "%s too long"), unchanged);
    EXPECT_EQ(lines_of(file_24g) + lines_of(file_5g), "CountryCode=%s too long\nCountryCode=DE\n");
    EXPECT_TRUE(ZAV_GetCountryCode(1, code) == success && code.data() == std::string("%s "));
    EXPECT_EQ(ZAV_SetCountryCode(17, "FR"), failure);
}

TEST(Radio, FccSwitchIsThatOfThe5GhzRadio) {
    start_with("FCC_14_30=0\n", "FCC_14_30=0\n");
    EXPECT_TRUE(ZAV_SetFCC_14_30_Enable(7) == success && ZAV_SetFCC_14_30_Enable(1) == unchanged);
    EXPECT_EQ(lines_of(file_24g) + lines_of(file_5g), "FCC_14_30=0\nFCC_14_30=1\n");
}
