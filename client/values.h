#pragma once

#include "client/error.h"
#include "rpc/codec.h"
#include "rpc/protocol.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// One argument of a call: a text, or a number of any other kind.
struct Value {
    Kind kind = Kind::integer;
    std::int64_t number = 0;
    std::string text{};
};

// The arguments of a call, in wire order.
struct Values {
    std::vector<Value> list{};
};

// Encodes, and does nothing else: a client only sends arguments.
bool item(XDR *x, Values &values);

const char *kind_name(Kind kind);
const char *accepted_values(Kind kind);

// Whether an argument of that kind can be the number.
bool is_within(Kind kind, std::int64_t number);

// The argument that counts the interfaces from 1, where wlanctl also takes a name.
bool is_interface_index(const Argument &argument);

// What keeps a text from being sent.
Error check_text(const Argument &argument, const std::string &text);

// Reads a number as decimal or as 0x hexadecimal and a boolean also as a word. A text is itself, but `-` is
// standard input and `@FILE` a file, without one closing line feed, and `@@TEXT` is "@TEXT". An error names
// the argument and what it takes.
Error parse_value(const Argument &argument, std::string_view given, Value &ret_value);
