#include "client/values.h"

#include "client/file.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <fmt/format.h>
#include <memory>
#include <optional>

namespace {

constexpr std::size_t call_header = 40; // of a call without credentials
constexpr std::size_t longest_text = longest_message - call_header - BYTES_PER_XDR_UNIT;

struct KindText {
    Kind kind;
    const char *name;
    const char *accepted;
    std::int64_t least, most;
};

constexpr KindText kinds[] = {
    {Kind::integer, "int", "a whole number from -2147483648 to 2147483647", INT32_MIN, INT32_MAX},
    {Kind::unsigned_integer, "unsigned", "a whole number from 0 to 4294967295", 0, UINT32_MAX},
    {Kind::unsigned_short, "ushort", "a whole number from 0 to 65535", 0, UINT16_MAX},
    {Kind::boolean, "bool", "0, 1, true, false, on, off, yes or no", 0, 1},
    {Kind::text, "text", "a text", 0, 0},
};

const KindText &kind_text(Kind kind) {
    for (const KindText &each : kinds)
        if (each.kind == kind)
            return each;
    return kinds[0];
}

std::optional<std::int64_t> parse_number(std::string_view given) {
    const bool hexadecimal = given.starts_with("0x") || given.starts_with("0X");
    if (hexadecimal)
        given.remove_prefix(2);
    std::int64_t number = 0;
    const auto [end, failed] = std::from_chars(given.begin(), given.end(), number, hexadecimal ? 16 : 10);
    const bool sign_in_hexadecimal = hexadecimal && given.starts_with('-');
    if (failed != std::errc{} || end != given.end() || sign_in_hexadecimal)
        return std::nullopt;
    return number;
}

std::optional<std::int64_t> parse_boolean(std::string_view given) {
    for (const char *word : {"1", "true", "on", "yes"})
        if (given == word)
            return 1;
    for (const char *word : {"0", "false", "off", "no"})
        if (given == word)
            return 0;
    return std::nullopt;
}

Error read_text(std::string_view given, std::string &ret_text) {
    const bool file_named = given.starts_with('@') && !given.starts_with("@@");
    if (given != "-" && !file_named) {
        ret_text = given.substr(given.starts_with("@@") ? 1 : 0);
        return {};
    }
    // One more than fits, and a line feed: what is too long is told with the argument's name.
    const std::string path{given.substr(file_named ? 1 : 0)};
    if (Error error = read_file(path, longest_text + 2, ret_text))
        return error;
    if (ret_text.ends_with('\n'))
        ret_text.pop_back();
    return {};
}

bool encode(XDR *x, Value &value) {
    switch (value.kind) {
    case Kind::integer: {
        auto number = static_cast<int>(value.number);
        return item(x, number);
    }
    case Kind::unsigned_integer: {
        auto number = static_cast<unsigned>(value.number);
        return item(x, number);
    }
    case Kind::unsigned_short: {
        auto number = static_cast<unsigned short>(value.number);
        return item(x, number);
    }
    case Kind::boolean: {
        bool flag = value.number != 0;
        return item(x, flag);
    }
    case Kind::text: {
        char *text = value.text.data();
        return item(x, text);
    }
    }
    return false;
}

} // namespace

bool item(XDR *x, Values &values) {
    if (x->x_op != XDR_ENCODE)
        return x->x_op == XDR_FREE;
    for (Value &value : values.list)
        if (!encode(x, value))
            return false;
    return true;
}

const char *kind_name(Kind kind) { return kind_text(kind).name; }

const char *accepted_values(Kind kind) { return kind_text(kind).accepted; }

bool is_within(Kind kind, std::int64_t number) {
    return number >= kind_text(kind).least && number <= kind_text(kind).most;
}

bool is_interface_index(const Argument &argument) {
    return argument.kind == Kind::integer && argument.name == std::string_view{"index"};
}

Error check_text(const Argument &argument, const std::string &text) {
    if (text.find('\0') != std::string::npos)
        return {Trouble::usage, fmt::format("argument '{}' (text) cannot hold a zero byte", argument.name)};
    if (text.size() > longest_text)
        return {Trouble::usage,
                fmt::format("argument '{}' (text) is longer than the {} bytes that a call holds",
                            argument.name, longest_text)};
    return {};
}

Error parse_value(const Argument &argument, std::string_view given, Value &ret_value) {
    ret_value.kind = argument.kind;
    if (argument.kind == Kind::text) {
        if (Error error = read_text(given, ret_value.text))
            return error;
        return check_text(argument, ret_value.text);
    }
    const KindText &kind = kind_text(argument.kind);
    const auto number = argument.kind == Kind::boolean ? parse_boolean(given) : parse_number(given);
    if (!number || !is_within(argument.kind, *number))
        return {Trouble::usage, fmt::format("argument '{}' ({}): '{}' is not {}", argument.name, kind.name,
                                            given, kind.accepted)};
    ret_value.number = *number;
    return {};
}
