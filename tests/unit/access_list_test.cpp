#include "security/access_list.h"

#include "security/access_list_text.h"
#include "settings_files.h"

#include <array>
#include <cstdio>
#include <gtest/gtest.h>

static std::string settings(const std::string &macs, const std::string &names) {
    return "#\nBssidNum=8\nAccessControlList1=" + macs + "\nNameListPerMAC1=" + names + "\n";
}

static std::string mac(int number) {
    std::array<char, 18> text;
    std::snprintf(text.data(), text.size(), "AA:BB:CC:DD:EE:%02X", static_cast<unsigned>(number) & 0xFFU);
    return text.data();
}

static Status add(int number, const std::string &name) {
    return ZAV_SetMacAddressControlAdd(2, mac(number).c_str(), name.c_str(), {});
}

static std::string listing() {
    std::array<char, 4000> text{};
    return ZAV_GetMacAddressControlList(2, text) == success ? text.data() : "failure";
}

TEST(AccessListText, IsSplitAndJoined) {
    std::array<std::string_view, 2> two;
    EXPECT_EQ(ParseStringForTok("", two, ';'), 0);
    EXPECT_EQ(ParseStringForTok(";", two, ';'), 2);
    EXPECT_EQ(ParseStringForTok("a;b;", two, ';'), -1);
    EXPECT_EQ(ParseStringForTok("a;b", two, ';'), 2);
    EXPECT_EQ(two, (std::array<std::string_view, 2>{"a", "b"}));
    std::string list = "old";
    EXPECT_EQ(BuildAccessListString(two, &list, static_cast<AccessListMode>(2), "c", 0), failure);
    for (const auto &[text, is_hex] : {std::pair("", true), {"09afAF:", true}, {"g", false}, {"a;", false}})
        EXPECT_EQ(IS_HEX(text), is_hex) << text;
}

TEST(AccessList, Holds64EntriesWithNamesOf30Characters) {
    write_file(file_24g, settings("", ""));
    const std::string name(30, 'n');
    for (int i = 0; i < 64; ++i)
        ASSERT_EQ(add(i, name), success) << i;
    const std::string full = read_file(file_24g);
    EXPECT_EQ(listing().size(), 64 * (17 + 1 + 30 + 1));
    testing::internal::CaptureStderr();
    EXPECT_EQ(add(64, ""), failure);
    EXPECT_EQ(add(63, "other"), unchanged);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "[ZAV-API] Error ZAV_SetMacAddressControlAdd ERROR: access list is full, cannot add more "
              "MACs.\n");
    EXPECT_EQ(read_file(file_24g), full);
}

// Names that another program stored can be longer than those that are added here.
TEST(AccessList, RefusesAnAddThatTheListingOrTheFileCannotTake) {
    const std::size_t beside = 2 * (17 + 2) + 3; // two addresses with their separators, the added name
    const std::string fits(3199 - beside, 'x'), none = "#\nBssidNum=8\n";
    // Settings filled up to that many bytes, and what an add to them answers.
    const auto check = [](const std::string &before, std::size_t size, Status expected, char last = '\n') {
        const std::string text = before + "P=" + std::string(size - before.size() - 3, 'p') + last;
        SCOPED_TRACE(before.substr(0, 60) + " " + std::to_string(size));
        write_file(file_24g, text);
        EXPECT_EQ(add(2, "new"), expected);
        EXPECT_EQ(read_file(file_24g) == text, expected != success) << "an add is done whole or not at all";
    };
    check(settings(mac(1), fits), 8000, success);
    EXPECT_EQ(listing().size(), 3199);
    check(settings(mac(1), fits + "x"), 8000, failure);
    check(settings(mac(1), "one"), 16383 - 18 - 4, success);
    check(settings(mac(1), "one"), 16383 - 18 - 3, failure);
    const std::size_t two_lines = (18 + 1 + 17 + 1) + (15 + 1 + 3 + 1); // key, "=", value, line feed
    check(none, 16383 - two_lines, success);
    check(none, 16383 - two_lines + 1, failure);
    check(none, 16383 - two_lines - 1, success, 'p'); // the last line is open and gets its line feed
    check(none, 16383 - two_lines, failure, 'p');
    write_file(file_24g, settings(mac(1), std::string(3199 - 19, 'x')));
    EXPECT_EQ(listing().size(), 3199);
    write_file(file_24g, settings(mac(1), std::string(3199 - 18, 'x')));
    EXPECT_EQ(listing(), "failure");
}

TEST(AccessList, DeletesWhateverTheListsHold) {
    const std::string three = mac(1) + ";" + mac(2) + ";" + mac(3), many(64, ';');
    struct Row {
        int number;
        std::string macs, names, left_macs, left_names;
        Status status;
    };
    const Row rows[] = {
        {1, three, "a;b;c", mac(2) + ";" + mac(3), "b;c", success},
        {2, three, "a;;c", mac(1) + ";" + mac(3), "a;c", success},
        {3, three, "a;b;", mac(1) + ";" + mac(2), "a;b", success},
        {1, mac(1), "a", "", "", success},
        {10, "aa:bb:cc:dd:ee:0a;aa:bb:cc:dd:ee:01", "a;b", mac(1), "b", success},
        {4, three, "a;b;c", three, "a;b;c", unchanged},
        {1, "0" + mac(1), "a", "0" + mac(1), "a", unchanged}, // stands in the text, but is no entry
        {2, three, "a;b", mac(1) + ";" + mac(3), "a;b", failure},
        {2, three, many, mac(1) + ";" + mac(3), many, failure},
        {1, mac(1) + many, many, mac(1) + many, many, failure},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(std::to_string(row.number) + " of " + row.macs.substr(0, 60) + " | " + row.names);
        write_file(file_24g, settings(row.macs, row.names));
        EXPECT_EQ(ZAV_SetMacAddressControlDelete(2, mac(row.number).c_str(), {}), row.status);
        EXPECT_EQ(read_file(file_24g), settings(row.left_macs, row.left_names));
    }
}
