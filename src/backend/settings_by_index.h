#pragma once

#include "backend/status.h"

// Settings by interface index. An index without a BSS answers the default, or -1.

unsigned ZAV_nvram_get_uint32_helper(int index, const char *key, unsigned default_value);
Status ZAV_nvram_set_uint32_helper(int index, const char *key, int value);
Status ZAV_nvram_set_str_helper(int index, const char *key, const char *value);
