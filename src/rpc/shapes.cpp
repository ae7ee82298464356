#include "rpc/shapes.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

// Nothing can be said to a client without memory, so a result that finds none is sent empty.

void say_name(const char *who) { log_debug("[ZAV-API] %s  WLAN RPC server :\n", who); }

void say_name_with_one_blank(const char *who) { log_debug("[ZAV-API] %s WLAN RPC server :\n", who); }

// As many elements as the values have bytes, all of them zero; nullptr without memory.
static unsigned *allocate_numbers(wlan_config_result_data_t *result, std::size_t bytes) {
    auto &[length, numbers] = result->return_u_int;
    numbers = static_cast<unsigned *>(std::calloc(bytes, sizeof(unsigned)));
    length = numbers == nullptr ? 0 : static_cast<unsigned>(bytes);
    result->return_data = {};
    return numbers;
}

void fill_numbers(wlan_config_result_data_t *result, std::span<const unsigned> values) {
    if (unsigned *numbers = allocate_numbers(result, values.size_bytes()); numbers != nullptr)
        std::copy(values.begin(), values.end(), numbers);
}

void fill_wide_numbers(wlan_config_result_data_t *result, std::span<const std::int64_t> values) {
    unsigned *word = allocate_numbers(result, values.size_bytes());
    if (word == nullptr)
        return;
    for (const std::int64_t value : values) {
        *word++ = static_cast<unsigned>(value);
        *word++ = static_cast<unsigned>(value >> 32);
    }
}

void fill_text(wlan_config_result_data_t *result, const char *text) {
    auto &[length, data] = result->return_data;
    data = strdup(text);
    length = data == nullptr ? 0 : static_cast<unsigned>(std::strlen(data)) + 1;
    result->return_u_int = {};
}

void fill_record(wlan_config_result_data_t *result, std::span<const std::byte> record) {
    auto &[length, data] = result->return_data;
    data = static_cast<char *>(std::malloc(record.size()));
    length = data == nullptr ? 0 : static_cast<unsigned>(record.size());
    if (data != nullptr)
        std::memcpy(data, record.data(), record.size());
    result->return_u_int = {};
}

void fill_nothing(wlan_config_result_data_t *result) {
    result->return_u_int = {};
    result->return_data = {};
}

int run_action(const char *who, Status (*operation)(int), int index, wlan_config_return_code_e *result) {
    say_name_with_one_blank(who);
    *result = code_of(operation(index));
    return 1;
}

int reply_number(Status status, unsigned value, wlan_config_result_data_t *result) {
    result->return_code = code_of(status);
    fill_numbers(result, std::span(&value, 1));
    return 1;
}

int reply_number(const char *who, Line<int> line, Status status, unsigned value,
                 wlan_config_result_data_t *result) {
    (void)reply_number(status, value, result);
    say(who, line, shown(value));
    return 1;
}

int get_number(const char *who, Status (*operation)(int, unsigned *), Line<int> line, int index,
               wlan_config_result_data_t *result) {
    say(who, Line<int>("index %d\n"), index);
    unsigned value = 0;
    const Status status = operation(index, &value);
    return reply_number(who, line, status, value, result);
}

int get_number_of_class(const char *who, Status (*operation)(int, int, unsigned *), Line<int> line, int index,
                        int ac, wlan_config_result_data_t *result) {
    say(who, Line<int, int>("index %d class %d\n"), index, ac);
    unsigned value = 0;
    const Status status = operation(index, ac, &value);
    return reply_number(who, line, status, value, result);
}

int get_count(const char *who, Status (*operation)(int, std::uint64_t *), Line<long long> line, int index,
              wlan_config_result_data_t *result) {
    std::uint64_t count = 0;
    result->return_code = code_of(operation(index, &count));
    const auto value = static_cast<std::int64_t>(count);
    fill_wide_numbers(result, std::span(&value, 1));
    say(who, line, value);
    return 1;
}

int reply_text(const char *who, Line<const char *> line, Status status, const char *text,
               wlan_config_result_data_t *result) {
    result->return_code = code_of(status);
    fill_text(result, text);
    say(who, Line<int>("[len = %d]\n"), shown(result->return_data.return_data_len));
    say(who, line, text);
    return 1;
}
