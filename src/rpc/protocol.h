#pragma once

#include <array>
#include <cstddef>
#include <string_view>

// The procedures of the protocol, one row each, made from the description in protocol/. The daemon, wlanctl
// and the tests read this table.

// A datagram of the RPC library, call or reply, has at most this many bytes.
constexpr unsigned longest_message = 8800;

enum class Kind : unsigned char { integer, unsigned_integer, unsigned_short, boolean, text };

struct Argument {
    const char *name;
    Kind kind;
    bool is_secret; // not for everyone's eyes: a key, a passphrase, a PIN
};

struct Arguments {
    static constexpr std::size_t most = 4;
    std::array<Argument, most> fields{};
    std::size_t count = 0;

    constexpr const Argument *begin() const { return fields.data(); }
    constexpr const Argument *end() const { return fields.data() + count; }
};

// What the answer holds. Everything but a bare code travels in the result record, with its code.
enum class Result : unsigned char {
    code,             // the return code alone
    none,             // the result record, of which only the code means anything
    integer,          // one signed 32-bit number
    unsigned_integer, // one unsigned 32-bit number
    text,             // a text with its terminating zero byte
    numbers,          // the words of a record
    image,            // the memory image of a record
};

struct Procedure {
    unsigned number;
    std::string_view name;
    Arguments arguments;
    Result result;
    std::size_t size; // bytes of the number, the text at the most, the words or the image
    bool is_secret;   // the answer: likewise
    bool runs_again;  // an action that is carried out once more when its call arrives twice
};

#include "rpc/protocol_rows.h"

// The row of that name, or nullptr.
constexpr const Procedure *find_procedure(std::string_view name) {
    for (const Procedure &procedure : protocol)
        if (procedure.name == name)
            return &procedure;
    return nullptr;
}

// By number, for the transport asks at every request.
inline constexpr auto protocol_runs_again = [] {
    std::array<bool, std::rbegin(protocol)->number + 1> runs_again{};
    for (const Procedure &procedure : protocol)
        runs_again.at(procedure.number) = procedure.runs_again;
    return runs_again;
}();

// Whether a call must not be carried out a second time because its reply was lost: the transport keeps the
// replies of these.
constexpr bool runs_again(unsigned number) {
    return number < protocol_runs_again.size() && protocol_runs_again.at(number);
}
