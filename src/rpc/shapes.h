#pragma once

#include "backend/log.h"
#include "backend/status.h"
#include "rpc/records.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

// The forms of a server procedure. Each writes its entry line, calls the API operation once, turns what came
// out into the result record and returns 1: send the reply. Lines are what follows "[ZAV-API] NAME  WLAN RPC
// server : ". The functions reply_... are the second half, for procedures with an entry line of their own.

template <class... Values>
void say(const char *who, const Line<Values...> &line, std::type_identity_t<Values>... values) {
    log_checked_after(who, "  WLAN RPC server : ", line.text, values...);
}

// The entry line of procedures that name none of their arguments; the second as some have it.
void say_name(const char *who);
void say_name_with_one_blank(const char *who);

// The values first, zeros behind them: as many elements as the values have bytes. The array is allocated and
// released with the result.
void fill_numbers(wlan_config_result_data_t *result, std::span<const unsigned> values);
// 64-bit values of either sign as two words each, the low one first.
void fill_wide_numbers(wlan_config_result_data_t *result, std::span<const std::int64_t> values);
void fill_text(wlan_config_result_data_t *result, const char *text);
// The memory image of a record.
void fill_record(wlan_config_result_data_t *result, std::span<const std::byte> record);
void fill_nothing(wlan_config_result_data_t *result);

inline wlan_config_return_code_e code_of(Status status) {
    return static_cast<wlan_config_return_code_e>(status);
}

// Numbers of either sign and booleans are shown signed.
inline int shown(int value) { return value; }
inline int shown(unsigned value) { return static_cast<int>(value); }
inline int shown(bool value) { return value ? 1 : 0; }
inline const char *shown(const char *text) { return text; }

template <class Value>
using ValueLine = std::type_identity_t<Line<decltype(shown(Value{}))>>;

template <class Value, class Operand>
int set(const char *who, Status (*operation)(int, Operand), ValueLine<Value> line, int index, Value value,
        wlan_config_return_code_e *result) {
    say(who, line, shown(value));
    *result = code_of(operation(index, static_cast<Operand>(value)));
    return 1;
}

// With a selector before the value: an access category, the number of a key or of a registrar.
template <class Value, class Operand>
int set_selected(const char *who, Status (*operation)(int, int, Operand), ValueLine<Value> line, int index,
                 int selector, Value value, wlan_config_return_code_e *result) {
    say(who, line, shown(value));
    *result = code_of(operation(index, selector, static_cast<Operand>(value)));
    return 1;
}

// An action of an interface; its entry line is its name.
int run_action(const char *who, Status (*operation)(int), int index, wlan_config_return_code_e *result);

int reply_number(Status status, unsigned value, wlan_config_result_data_t *result); // and no value line
int reply_number(const char *who, Line<int> line, Status status, unsigned value,
                 wlan_config_result_data_t *result);
int get_number(const char *who, Status (*operation)(int, unsigned *), Line<int> line, int index,
               wlan_config_result_data_t *result);
int get_number_of_class(const char *who, Status (*operation)(int, int, unsigned *), Line<int> line, int index,
                        int ac, wlan_config_result_data_t *result);

// A 64-bit count; without an entry line.
int get_count(const char *who, Status (*operation)(int, std::uint64_t *), Line<long long> line, int index,
              wlan_config_result_data_t *result);

// `text` is the procedure's zeroed buffer; its size bounds what a client can receive.
int reply_text(const char *who, Line<const char *> line, Status status, const char *text,
               wlan_config_result_data_t *result);

template <std::size_t room>
int get_text(const char *who, Status (*operation)(int, std::span<char>), Line<const char *> line, int index,
             wlan_config_result_data_t *result) {
    std::array<char, room> text{};
    say(who, Line<int>("[index %d]\n"), index);
    const Status status = operation(index, text);
    return reply_text(who, line, status, text.data(), result);
}

// The same with the name as the entry line.
template <std::size_t room>
int get_text_by_name(const char *who, Status (*operation)(int, std::span<char>), Line<const char *> line,
                     int index, wlan_config_result_data_t *result) {
    std::array<char, room> text{};
    say_name(who);
    const Status status = operation(index, text);
    return reply_text(who, line, status, text.data(), result);
}

// The text of one of several keys.
template <std::size_t room>
int get_key_text(const char *who, Status (*operation)(int, int, std::span<char>), Line<const char *> line,
                 int index, int key_index, wlan_config_result_data_t *result) {
    std::array<char, room> text{};
    say(who, Line<int, int>("[index %d] [keyIndex %d]\n"), index, key_index);
    const Status status = operation(index, key_index, text);
    return reply_text(who, line, status, text.data(), result);
}

template <class Record>
int reply_record(const char *who, Status status, const Record &record, wlan_config_result_data_t *result,
                 Line<int> line = "result->return_data.return_data_len = %d\n") {
    result->return_code = code_of(status);
    fill_record(result, std::as_bytes(std::span(&record, 1)));
    say(who, line, shown(result->return_data.return_data_len));
    return 1;
}
