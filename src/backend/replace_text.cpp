#include "backend/replace_text.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace {

bool write_all(int fd, std::string_view text, std::size_t offset) {
    while (!text.empty()) {
        const ssize_t written = pwrite(fd, text.data(), text.size(), static_cast<off_t>(offset));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(written));
        offset += static_cast<std::size_t>(written);
    }
    return true;
}

bool cut(int fd, std::size_t length) { return ftruncate(fd, static_cast<off_t>(length)) == 0; }

// Claims the room behind the old text before a byte of it is touched. Where the file system cannot reserve,
// the new tail itself is written there.
bool reserve(int fd, std::size_t old_length, std::string_view to) {
    const std::size_t added = to.size() - old_length;
    int refused = 0;
    do
        refused =
            fallocate(fd, FALLOC_FL_KEEP_SIZE, static_cast<off_t>(old_length), static_cast<off_t>(added));
    while (refused != 0 && errno == EINTR);
    if (refused == 0)
        return true;
    if (errno != EOPNOTSUPP && errno != ENOSYS)
        return false;
    return write_all(fd, to.substr(old_length), old_length);
}

// The error that made it necessary is what the caller reports.
void put_back(int fd, std::string_view from, std::size_t first) {
    const int error = errno;
    (void)write_all(fd, from.substr(first), first);
    (void)cut(fd, from.size());
    errno = error;
}

// Whole blocks first: byte by byte the search would take as long as a system call.
std::size_t common_beginning(std::string_view a, std::string_view b) {
    constexpr std::size_t block = 64;
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t same = 0;
    while (same + block <= shorter && a.compare(same, block, b, same, block) == 0)
        same += block;
    while (same < shorter && a[same] == b[same])
        ++same;
    return same;
}

} // namespace

bool replace_text(int fd, std::string_view from, std::string_view to) {
    const std::size_t first = common_beginning(from, to);
    if (to.size() > from.size() && !reserve(fd, from.size(), to)) {
        put_back(fd, from, from.size()); // the old text is as it was
        return false;
    }
    const bool done =
        write_all(fd, to.substr(first), first) && (to.size() >= from.size() || cut(fd, to.size()));
    if (!done)
        put_back(fd, from, first);
    return done;
}
