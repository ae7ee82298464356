#include "backend/value_lists.h"

#include "backend/config_store.h"
#include "backend/log.h"
#include "backend/text.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

namespace {

bool has_field(unsigned bss) { return bss >= 1 && bss <= list_fields; }

using TextList = std::array<std::string_view, list_fields>;

// The fields of a list, the last of which is all that remains; empty ones behind its end, and behind a gap
// where that ends the list.
TextList parse_texts(std::string_view list, bool ends_at_gap) {
    TextList fields{};
    for (auto &field : fields) {
        field = &field == &fields.back() ? list : list.substr(0, list.find(';'));
        if (ends_at_gap && field.empty())
            break;
        list.remove_prefix(std::min(list.size(), field.size() + 1));
    }
    return fields;
}

Status read_field(const SettingsFile &file, std::string_view key, unsigned bss, bool ends_at_gap,
                  std::span<char> ret_text) {
    std::string stored;
    if (!has_field(bss) || nvram_get_whole(file, key, &stored) != success)
        return failure;
    copy_text(ret_text, parse_texts(stored, ends_at_gap).at(bss - 1));
    return success;
}

Status refuse_text(const char *who) {
    log_error("[ZAV-API] Error %s a list cannot hold this text\n", who);
    return failure;
}

Status write_field(const char *who, const SettingsFile &file, std::string_view key, unsigned bss,
                   bool ends_at_gap, const char *text) {
    if (!fits_list(text))
        return refuse_text(who);
    std::string stored, changed;
    if (!has_field(bss) || nvram_get_whole(file, key, &stored) != success)
        return failure;
    TextList fields = parse_texts(stored, ends_at_gap);
    fields.at(bss - 1) = text;
    for (const auto &field : fields)
        changed.append(&field == fields.data() ? "" : ";").append(field);
    return nvram_set_str(file, key, changed.c_str());
}

} // namespace

void parse_numbers(const char *list, std::span<int> ret_numbers) {
    std::fill(ret_numbers.begin(), ret_numbers.end(), 0);
    for (int &number : ret_numbers) {
        if (!scan_number(list, &number, &list) || *list != ';')
            break;
        ++list;
    }
}

Status read_numbers(const SettingsFile &file, std::string_view key, std::span<int> ret_numbers) {
    std::string stored;
    if (nvram_get_whole(file, key, &stored) != success)
        return failure;
    parse_numbers(stored.c_str(), ret_numbers);
    return success;
}

Status write_numbers(const SettingsFile &file, std::string_view key, std::span<const int> numbers) {
    std::string text;
    for (const int number : numbers)
        text.append(text.empty() ? "" : ";").append(std::to_string(number));
    return nvram_set_str(file, key, text.c_str());
}

Status read_list_number(const SettingsFile &file, std::string_view key, unsigned bss, int *ret_value) {
    NumberList list;
    if (!has_field(bss) || read_numbers(file, key, list) != success)
        return failure;
    *ret_value = list.at(bss - 1);
    return success;
}

Status write_list_number(const SettingsFile &file, std::string_view key, unsigned bss, int value) {
    NumberList list;
    if (!has_field(bss) || read_numbers(file, key, list) != success)
        return failure;
    list.at(bss - 1) = value;
    return write_numbers(file, key, list);
}

Status change_list_number(const SettingsFile &file, std::string_view key, unsigned bss, int value) {
    NumberList list;
    if (!has_field(bss) || read_numbers(file, key, list) != success)
        return failure;
    if (list.at(bss - 1) == value)
        return unchanged;
    list.at(bss - 1) = value;
    return write_numbers(file, key, list);
}

Status read_list_text(const SettingsFile &file, std::string_view key, unsigned bss,
                      std::span<char> ret_text) {
    return read_field(file, key, bss, false, ret_text);
}

Status read_unbroken_list_text(const SettingsFile &file, std::string_view key, unsigned bss,
                               std::span<char> ret_text) {
    return read_field(file, key, bss, true, ret_text);
}

bool fits_list(const char *text) { return std::strpbrk(text, ";\n") == nullptr; }

Status write_list_text(const char *who, const SettingsFile &file, std::string_view key, unsigned bss,
                       const char *text) {
    return write_field(who, file, key, bss, false, text);
}

// An empty text would be a gap, which takes the fields behind it from their BSSes.
Status write_unbroken_list_text(const char *who, const SettingsFile &file, std::string_view key, unsigned bss,
                                const char *text) {
    return *text == '\0' ? refuse_text(who) : write_field(who, file, key, bss, true, text);
}
