#include "radio/kinds.h"

#include "backend/log.h"
#include "backend/text.h"
#include "backend/value_lists.h"

#include <string>

namespace {

constexpr int access_classes = 4;
using ClassNumbers = std::array<int, access_classes>;

Status read_stored(const char *who, const Bss &bss, const Key &key, std::string *ret_text) {
    if (nvram_get_whole(bss, key.text, ret_text) != success)
        return failure;
    log_debug("[ZAV-API] %s (%s).\n", who, ret_text->c_str());
    return success;
}

Status read_scalar(const char *who, const Key &key, Reported bad_index, int index, std::string *ret_text) {
    Bss bss;
    log_get(who, index);
    if (find_reported_bss(who, bad_index, index, &bss) != success)
        return failure;
    return read_stored(who, bss, key, ret_text);
}

bool is_in_range(const char *who, const BssList &setting, unsigned value) {
    if (value <= setting.most)
        return true;
    if (setting.range != nullptr)
        log_debug("[ZAV-API] %s %s\n", who, setting.range);
    else
        log_debug("[ZAV-API] %s illegal input value:%i.\n", who, static_cast<int>(value));
    return false;
}

int field_of(FieldKind kind, unsigned value) {
    switch (kind) {
    case FieldKind::flag:
        return value != 0 ? 1 : 0;
    case FieldKind::inverted_flag:
        return value != 0 ? 0 : 1;
    case FieldKind::number:
        break;
    }
    return static_cast<int>(value);
}

Status value_of(FieldKind kind, int field, unsigned *ret_value) {
    if (kind == FieldKind::flag && field != 0 && field != 1)
        return failure;
    *ret_value = kind == FieldKind::inverted_flag ? (field == 0 ? 1 : 0) : static_cast<unsigned>(field);
    return success;
}

bool is_class(const char *who, int ac) {
    if (ac >= 1 && ac <= access_classes)
        return true;
    log_debug("[ZAV-API] %s illegal class:%i.\n", who, ac);
    return false;
}

int &class_field(ClassNumbers &numbers, int ac) { return numbers.at(static_cast<std::size_t>(ac) - 1); }

} // namespace

void log_get(const char *who, int index) { log_debug("[ZAV-API] %s entry (%d).\n", who, index); }

void log_set(const char *who, int index, unsigned value) {
    log_debug("[ZAV-API] %s entry (%d,%u).\n", who, index, value);
}

Status find_reported_bss(const char *who, Reported bad_index, int index, Bss *ret_bss) {
    if (bad_index == Reported::by_isIndexValid && isIndexValid(index) != success)
        return failure;
    if (bad_index == Reported::by_the_operation)
        return find_bss(who, index, ret_bss);
    return find_bss(index, ret_bss);
}

Status find_listed_bss(const char *who, Reported bad_index, int index, Bss *ret_bss) {
    if (find_reported_bss(who, bad_index, index, ret_bss) != success)
        return failure;
    return ret_bss->number <= list_fields ? success : failure;
}

Status read_switch(const char *who, const Bss &bss, const Key &key, bool *ret_is_on) {
    std::string stored;
    if (read_stored(who, bss, key, &stored) != success)
        return failure;
    *ret_is_on = stored.starts_with('1');
    return success;
}

Status read_setting(const char *who, const RadioNumber &setting, int index, unsigned *ret_value) {
    std::string stored;
    if (read_scalar(who, setting.key, setting.bad_index, index, &stored) != success)
        return failure;
    int value = 0;
    scan_number(stored.c_str(), &value);
    *ret_value = static_cast<unsigned>(value);
    return success;
}

Status write_setting(const char *who, const RadioNumber &setting, int index, unsigned value) {
    Bss bss;
    log_set(who, index, value);
    if (find_reported_bss(who, setting.bad_index, index, &bss) != success)
        return failure;
    return nvram_set_int(bss, setting.key.text, static_cast<int>(value));
}

Status read_setting(const char *who, const RadioText &setting, int index, std::span<char> ret_text) {
    std::string stored;
    if (read_scalar(who, setting.key, Reported::by_nobody, index, &stored) != success)
        return failure;
    copy_text(ret_text, stored);
    return success;
}

Status write_setting(const char *who, const RadioText &setting, int index, const char *text) {
    Bss bss;
    log_debug("[ZAV-API] %s entry (%d,%s).\n", who, index, text);
    if (find_reported_bss(who, Reported::by_nobody, index, &bss) != success)
        return failure;
    return nvram_set_str(bss, setting.key.text, text);
}

Status read_setting(const char *who, const RadioFlag &setting, int index, unsigned *ret_value) {
    std::string stored;
    if (read_scalar(who, setting.key, setting.bad_index, index, &stored) != success)
        return failure;
    const bool is_on = setting.is_exact ? stored == setting.on : stored.starts_with(setting.on);
    *ret_value = is_on ? 1 : 0;
    return success;
}

Status write_setting(const char *who, const RadioFlag &setting, int index, unsigned value) {
    Bss bss;
    log_set(who, index, value);
    if (find_reported_bss(who, setting.bad_index, index, &bss) != success)
        return failure;
    return nvram_set_str(bss, setting.key.text, value != 0 ? setting.on : setting.off);
}

Status write_setting(const char *who, const FlagPair &setting, int index, unsigned value) {
    Bss bss;
    log_set(who, index, value);
    if (value >= setting.choices.size() ||
        find_reported_bss(who, Reported::by_nobody, index, &bss) != success)
        return failure;
    const auto &[first, second] = setting.choices.at(value);
    return nvram_set_pair(bss, {setting.first.text, first}, {setting.second.text, second});
}

Status read_setting(const char *who, const BssList &setting, int index, unsigned *ret_value) {
    Bss bss;
    log_get(who, index);
    if (find_listed_bss(who, setting.bad_index, index, &bss) != success)
        return failure;
    std::string stored;
    if (read_stored(who, bss, setting.key, &stored) != success && !setting.absent_is_zeros)
        return failure;
    NumberList list;
    parse_numbers(stored.c_str(), list);
    return value_of(setting.kind, list.at(bss.number - 1), ret_value);
}

Status write_setting(const char *who, const BssList &setting, int index, unsigned value) {
    Bss bss;
    log_set(who, index, value);
    if (find_listed_bss(who, setting.bad_index, index, &bss) != success || !is_in_range(who, setting, value))
        return failure;
    NumberList list{};
    if (read_numbers(bss, setting.key.text, list) != success && !setting.absent_is_zeros)
        return failure;
    int &field = list.at(bss.number - 1);
    const int wanted = field_of(setting.kind, value);
    if (setting.keeps_equal && field == wanted)
        return unchanged;
    field = wanted;
    return write_numbers(bss, setting.key.text, list);
}

Status read_setting(const char *who, const ClassList &setting, int index, int ac, unsigned *ret_value) {
    Bss bss;
    log_get(who, index);
    if (find_reported_bss(who, Reported::by_the_operation, index, &bss) != success || !is_class(who, ac))
        return failure;
    std::string stored;
    if (read_stored(who, bss, setting.key, &stored) != success)
        return failure;
    ClassNumbers numbers;
    parse_numbers(stored.c_str(), numbers);
    *ret_value = static_cast<unsigned>(class_field(numbers, ac));
    return success;
}

Status write_setting(const char *who, const ClassList &setting, int index, int ac, unsigned value) {
    Bss bss;
    log_set(who, index, value);
    if (!is_class(who, ac) || find_reported_bss(who, Reported::by_the_operation, index, &bss) != success)
        return failure;
    ClassNumbers numbers;
    if (read_numbers(bss, setting.key.text, numbers) != success)
        return failure;
    class_field(numbers, ac) = static_cast<int>(value);
    return write_numbers(bss, setting.key.text, numbers);
}
