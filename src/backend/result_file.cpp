#include "backend/result_file.h"

#include "backend/descriptor.h"
#include "backend/log.h"
#include "backend/text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

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

namespace {

bool is_ours(const struct stat &file) {
    return S_ISREG(file.st_mode) && file.st_uid == geteuid() && file.st_nlink == 1;
}

// Also a directory with something in it: that gets a name beside its own, and stays as it is.
bool clear_away(const char *path) {
    if (std::remove(path) == 0)
        return true;
    if (errno != ENOTEMPTY && errno != EEXIST)
        return false;
    std::string aside = std::string(path) + ".XXXXXX";
    if (mkdtemp(aside.data()) == nullptr)
        return false;
    if (std::rename(path, aside.c_str()) == 0) // in the place of the new one, which only we could have filled
        return true;
    const int reason = errno;
    (void)rmdir(aside.c_str());
    errno = reason;
    return false;
}

} // namespace

// It is made here, not by the command: what others may not remove, they cannot put a link in the place of.
Status claim_result_file(const char *who, const char *path) {
    struct stat found {};
    const bool stands = lstat(path, &found) == 0;
    if (!stands || is_ours(found) || clear_away(path)) {
        errno = 0;
        const Descriptor file(open(path, O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0644));
        if (file.valid() && fstat(file.get(), &found) == 0 && is_ours(found))
            return success;
    }
    log_error("[ZAV-API] Error %s %s cannot be made %s (%d).\n", who, path, strerror(errno), errno);
    return failure;
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
