#include "rpc/shapes.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

// Nothing can be said to a client without memory, so a result that finds none is sent empty.

void say_name(const char *who) { log_debug("[ZAV-API] %s  WLAN RPC server :\n", who); }

void say_name_closely(const char *who) { log_debug("[ZAV-API] %s WLAN RPC server :\n", who); }

void fill_numbers(wlan_config_result_data_t *result, std::span<const unsigned> values) {
    const std::size_t bytes = values.size_bytes();
    auto &[length, numbers] = result->return_u_int;
    numbers = static_cast<unsigned *>(std::calloc(bytes, sizeof(unsigned)));
    length = numbers == nullptr ? 0 : static_cast<unsigned>(bytes);
    if (numbers != nullptr)
        std::copy(values.begin(), values.end(), numbers);
    result->return_data = {};
}

void fill_text(wlan_config_result_data_t *result, const char *text) {
    auto &[length, data] = result->return_data;
    data = strdup(text);
    length = data == nullptr ? 0 : static_cast<unsigned>(std::strlen(data)) + 1;
    result->return_u_int = {};
}

int get_number(const char *who, Status (*operation)(int, unsigned *), Line<int> line, int index,
               wlan_config_result_data_t *result) {
    say(who, Line<int>("index %d\n"), index);
    unsigned value = 0;
    result->return_code = code_of(operation(index, &value));
    fill_numbers(result, std::span(&value, 1));
    say(who, line, shown(value));
    return 1;
}

int get_text_into(const char *who, Status (*operation)(int, std::span<char>), Line<const char *> line,
                  int index, std::span<char> text, wlan_config_result_data_t *result) {
    say(who, Line<int>("[index %d]\n"), index);
    result->return_code = code_of(operation(index, text));
    fill_text(result, text.data());
    say(who, Line<int>("[len = %d]\n"), shown(result->return_data.return_data_len));
    say(who, line, text.data());
    return 1;
}
