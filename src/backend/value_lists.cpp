#include "backend/value_lists.h"

#include "backend/config_store.h"
#include "backend/log.h"
#include "backend/text.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

namespace {

Status read_list(const char *ifname, const char *key, std::string *ret_list) {
    ret_list->assign(longest_setting, '\0'); // on the heap: a worker's stack is small
    if (nvram_get_str(ifname, key, *ret_list) != success)
        return failure;
    ret_list->resize(std::strlen(ret_list->c_str()));
    return success;
}

bool has_field(unsigned bss) { return bss >= 1 && bss <= list_fields; }

} // namespace

Status read_number_list(const char *ifname, const char *key, NumberList *ret_list) {
    std::string stored;
    if (read_list(ifname, key, &stored) != success)
        return failure;
    ret_list->fill(0);
    const char *next = stored.c_str();
    for (int &number : *ret_list) {
        if (!scan_number(next, &number, &next) || *next != ';')
            break;
        ++next;
    }
    return success;
}

Status read_list_number(const char *ifname, const char *key, unsigned bss, int *ret_value) {
    NumberList list;
    if (!has_field(bss) || read_number_list(ifname, key, &list) != success)
        return failure;
    *ret_value = list.at(bss - 1);
    return success;
}

Status write_list_number(const char *ifname, const char *key, unsigned bss, int value) {
    NumberList list;
    if (!has_field(bss) || read_number_list(ifname, key, &list) != success)
        return failure;
    list.at(bss - 1) = value;
    std::string text;
    for (const int number : list)
        text += (text.empty() ? "" : ";") + std::to_string(number);
    return nvram_set_str(ifname, key, text.c_str());
}

Status write_list_text(const char *who, const char *ifname, const char *key, unsigned bss, const char *text) {
    if (std::strpbrk(text, ";\n") != nullptr) {
        log_error("[ZAV-API] Error %s a list cannot hold this text\n", who);
        return failure;
    }
    std::string stored, changed;
    if (!has_field(bss) || read_list(ifname, key, &stored) != success)
        return failure;
    std::string_view rest = stored;
    for (unsigned field = 1; field <= list_fields; ++field) {
        const std::string_view old = rest.substr(0, rest.find(';'));
        rest.remove_prefix(std::min(rest.size(), old.size() + 1));
        changed.append(field == 1 ? "" : ";").append(field == bss ? std::string_view(text) : old);
    }
    return nvram_set_str(ifname, key, changed.c_str());
}
