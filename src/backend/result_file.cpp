#include "backend/result_file.h"

#include "backend/log.h"
#include "backend/text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <memory>

Status read_first_line(const char *who, const char *path, std::span<char> ret_line) {
    log_debug("[ZAV-API] %s entry (file=%s).\n", who, path);
    const std::unique_ptr<FILE, int (*)(FILE *)> file(std::fopen(path, "re"), std::fclose);
    if (!file) {
        log_error("[ZAV-API] Error %s fopen failed %s (%d).\n", who, strerror(errno), errno);
        return failure;
    }
    errno = 0;
    const auto room = static_cast<int>(std::min<std::size_t>(ret_line.size(), INT_MAX));
    if (std::fgets(ret_line.data(), room, file.get()) == nullptr) {
        log_error("[ZAV-API] Error %s fgets failed %s (%d).\n", who, strerror(errno), errno);
        return failure;
    }
    ret_line[std::strcspn(ret_line.data(), "\n")] = '\0';
    return std::strncmp(ret_line.data(), "usage:", 6) == 0 ? failure : success;
}

Status get_int_value(const char *path, unsigned *ret_value) {
    std::array<char, 32> line;
    int value = 0;
    if (read_first_line(__func__, path, line) != success || line[0] == '\0')
        return failure;
    (void)scan_number(line.data(), &value); // a line without a number counts as 0
    *ret_value = static_cast<unsigned>(value);
    return success;
}
