#pragma once

#include "backend/config_store.h"
#include "backend/interfaces.h"
#include "backend/status.h"

#include <array>
#include <limits>
#include <span>
#include <string_view>

// The kinds of settings. A setting is a row of its kind and two functions of one line, which hand themselves
// to the kind's reader and writer: these write the debug lines, find the BSS and its file, and turn the value
// into what is stored and back. Readers answer 0 or -1, writers 0, 2 (already stored) or -1; both answer -1
// for an index without a BSS and, but for writers of one value, for an absent key.

void setting_key_is_wrong(); // never defined: reaching it is the compile error

struct Key {
    const char *text;

    consteval Key(const char *literal) : text(literal) {
        const std::string_view key(literal);
        if (key.empty() || key.size() > longest_key || key.find_first_of("=; \n") != key.npos)
            setting_key_is_wrong();
    }
};

// Who reports an index without a BSS.
enum class Reported : unsigned char { by_nobody, by_isIndexValid, by_the_operation };

// A decimal number that all BSSes of a radio share; text that is no number reads as 0.
struct RadioNumber {
    Key key;
    Reported bad_index = Reported::by_nobody;
};
Status read_setting(const char *who, const RadioNumber &setting, int index, unsigned *ret_value);
Status write_setting(const char *who, const RadioNumber &setting, int index, unsigned value);

// A text that all BSSes of a radio share.
struct RadioText {
    Key key;
};
Status read_setting(const char *who, const RadioText &setting, int index, std::span<char> ret_text);
Status write_setting(const char *who, const RadioText &setting, int index, const char *text);

// A switch that all BSSes of a radio share. It is on when the stored text begins with that character, or,
// where it is exact, has no other.
struct RadioFlag {
    Key key;
    bool is_exact = false;
    Reported bad_index = Reported::by_nobody;
    const char *on = "1", *off = "0";
};
Status read_setting(const char *who, const RadioFlag &setting, int index, unsigned *ret_value);
Status write_setting(const char *who, const RadioFlag &setting, int index, unsigned value);

// A choice of three that is stored as two switches: what each value stores, in this order. The second is not
// written when the first fails. What a stored pair means, the getters know.
struct FlagPair {
    struct Texts {
        const char *first, *second;
    };
    Key first, second;
    std::array<Texts, 3> choices;
};
Status write_setting(const char *who, const FlagPair &setting, int index, unsigned value);

// A field for each BSS.
enum class FieldKind : unsigned char {
    number,
    flag,          // any value but 0 stores 1; a field that is neither fails the reader
    inverted_flag, // any value but 0 stores 0, and 0 reads as 1
};
struct BssList {
    Key key;
    FieldKind kind = FieldKind::number;
    unsigned most = std::numeric_limits<unsigned>::max();
    const char *range = nullptr; // what to say about a value above `most`; by default that it is illegal
    bool absent_is_zeros = false;
    bool keeps_equal = false; // a field that is equal already is left alone, however its list is written
    Reported bad_index = Reported::by_the_operation;
};
Status read_setting(const char *who, const BssList &setting, int index, unsigned *ret_value);
Status write_setting(const char *who, const BssList &setting, int index, unsigned value);

// A field for each of the four WMM access classes, 1 to 4, that all BSSes of a radio share.
struct ClassList {
    Key key;
};
Status read_setting(const char *who, const ClassList &setting, int index, int ac, unsigned *ret_value);
Status write_setting(const char *who, const ClassList &setting, int index, int ac, unsigned value);

// What settings that are like no other have in common with the kinds.
void log_get(const char *who, int index);
void log_set(const char *who, int index, unsigned value);
// The second answers -1 also for a BSS that lists have no field for.
Status find_reported_bss(const char *who, Reported bad_index, int index, Bss *ret_bss);
Status find_listed_bss(const char *who, Reported bad_index, int index, Bss *ret_bss);
// Whether the stored text begins with 1.
Status read_switch(const char *who, const Bss &bss, const Key &key, bool *ret_is_on);
