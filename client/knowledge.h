#pragma once

#include "rpc/protocol.h"

#include <cstddef>
#include <cstdint>
#include <span>

// What the description says of each procedure beside its row, for wlanctl. The tables are made from
// protocol/. Every text is there; "" where there is nothing to say.

enum class Form : unsigned char {
    number,        // of 1, 2, 4 or 8 bytes, the lowest first
    signed_number, // likewise
    text,          // up to a zero byte or the end of its place: any bytes
    address,       // a MAC address
    octets,
    record, // fields of its own
    table,  // records, as many as the first field of the whole says
};

enum class Shown : unsigned char { everywhere, not_in_tables, only_in_json };

// A field of an answer that is more than a number or a text.
struct Field {
    const char *name;         // the protocol's
    const char *speaking;     // a second one for people, where the protocol's says little
    Form form;                // of each place
    std::size_t offset, size; // of the first place, in bytes
    std::size_t places;       // one behind the other
    const char *unit, *meaning;
    Shown shown;
    std::span<const Field> fields; // of a record, or of each record of a table
};

// When a change acts: one of these, "at once" or "none".
inline constexpr std::string_view at_restart = "at the next restart", at_load = "at the next load";

struct NamedValue {
    const char *value, *meaning;
    bool answered_only; // the setter refuses it
};

struct Limits {
    bool known = false;
    std::int64_t least = 0, most = 0;
};

constexpr bool is_outside(const Limits &limits, std::int64_t value) {
    return limits.known && (value < limits.least || value > limits.most);
}

// What the values of an argument or an answer mean.
struct ValueMeaning {
    const char *meaning = "", *unit = "";
    Limits range{};    // what the daemon takes of a number
    Limits sensible{}; // what a radio can mean, where that is less
    Limits length{};   // bytes of a text that make sense
    Limits takes{};    // ... that the daemon takes, where that is more
    const char *rule = "";
    const char *pattern = ""; // a POSIX extended regular expression of texts that make sense
    std::span<const NamedValue> names{};
};

// What a client can ask to find out whether a cause of a failure applies.
enum class Ask : unsigned char { nothing, index, initialised, started, lock, folder, argument };

struct Cause {
    const char *text, *remedy;
    Ask ask;
};

struct Knowledge {
    const char *area, *summary, *scope, *effect;
    unsigned seconds; // an answer takes at the worst
    std::span<const ValueMeaning> arguments;
    std::span<const char *const> keys, driver, scripts, oddities, after;
    std::span<const unsigned char> fails; // numbers of causes, most likely first
    ValueMeaning result;
    std::span<const Field> fields; // of the answer
    const char *resets;            // what a user would miss after it
    const char *look;              // words behind wlanctl that show whether an action was done
    const char *setter, *clear;    // of a getter: what sets it, where that is no namesake; what empties it
    const char *same_as;           // of a setter: another that sets all that it sets
    const char *also;              // of a setter: what it changes that nothing reads
    const char *tr181, *since;
    const char *call, *prints; // an example
};

// How the settings files hold what the procedures name as keys.
struct SettingsFormat {
    std::span<const char *const> lists;     // a field for each BSS, with ";" between
    std::span<const char *const> from_zero; // %d counts the BSSes from 0, in all others from 1
    std::span<const char *const> elsewhere; // in no file of a radio
    std::size_t longest_file, longest_key;  // in bytes
};

const SettingsFormat &settings_format();
const Knowledge &knowledge_of(const Procedure &procedure);
const Cause &cause(unsigned char number);
