#include "backend/settings_by_index.h"

#include "backend/config_store.h"
#include "backend/interfaces.h"

unsigned ZAV_nvram_get_uint32_helper(int index, const char *key, unsigned default_value) {
    Bss bss;
    int value = 0;
    if (find_bss(index, &bss) != success || nvram_get_int(bss, key, &value) != success)
        return default_value;
    return static_cast<unsigned>(value);
}

Status ZAV_nvram_set_uint32_helper(int index, const char *key, int value) {
    Bss bss;
    return find_bss(index, &bss) == success ? nvram_set_int(bss, key, value) : failure;
}

Status ZAV_nvram_set_str_helper(int index, const char *key, const char *value) {
    Bss bss;
    return find_bss(index, &bss) == success ? nvram_set_str(bss, key, value) : failure;
}
