#pragma once

#include "backend/log.h"
#include "backend/status.h"
#include "rpc/records.h"

#include <array>
#include <span>

// The forms of a server procedure. Each writes its entry line, calls the API operation once, turns what came
// out into the result record and returns 1: send the reply. Lines are what follows "[ZAV-API] NAME  WLAN RPC
// server : ".

template <class... Values>
void say(const char *who, const Line<Values...> &line, std::type_identity_t<Values>... values) {
    log_checked_after(who, "  WLAN RPC server : ", line.text, values...);
}

// The entry line of procedures that name none of their arguments.
void say_name(const char *who);
void say_name_closely(const char *who); // with one blank behind the name

// The values first, zeros behind them: as many elements as the values have bytes. The array is allocated and
// released with the result.
void fill_numbers(wlan_config_result_data_t *result, std::span<const unsigned> values);
void fill_text(wlan_config_result_data_t *result, const char *text);

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
    *result = code_of(operation(index, value));
    return 1;
}

int get_number(const char *who, Status (*operation)(int, unsigned *), Line<int> line, int index,
               wlan_config_result_data_t *result);

// `text` is the procedure's zeroed buffer; its size bounds what a client can receive.
int get_text_into(const char *who, Status (*operation)(int, std::span<char>), Line<const char *> line,
                  int index, std::span<char> text, wlan_config_result_data_t *result);

template <std::size_t room>
int get_text(const char *who, Status (*operation)(int, std::span<char>), Line<const char *> line, int index,
             wlan_config_result_data_t *result) {
    std::array<char, room> text{};
    return get_text_into(who, operation, line, index, text, result);
}
