#include "backend/replace_text.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <unistd.h>

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

namespace {

bool cut(int fd, std::size_t length) { return ftruncate(fd, static_cast<off_t>(length)) == 0; }

// Claims the room behind the old text before a byte of it is touched. Where the file system cannot reserve,
// line feeds are written there: what a kill leaves of them are blank lines.
bool reserve(int fd, std::size_t old_length, std::size_t added) {
    int refused = 0;
    do
        refused =
            fallocate(fd, FALLOC_FL_KEEP_SIZE, static_cast<off_t>(old_length), static_cast<off_t>(added));
    while (refused != 0 && errno == EINTR);
    if (refused == 0)
        return true;
    if (errno != EOPNOTSUPP && errno != ENOSYS)
        return false;
    return write_all(fd, std::string(added, '\n'), old_length);
}

bool write_tail(int fd, std::string_view to, std::size_t first, std::size_t old_length) {
    if (to.size() >= old_length)
        return write_all(fd, to.substr(first), first);
    // A kill before the cut leaves blank lines behind the text, and not the end of an old line.
    std::string padded(to.substr(first));
    padded.resize(old_length - first, '\n');
    return write_all(fd, padded, first) && cut(fd, to.size());
}

bool sync(int fd, Sync wanted) { return wanted == Sync::no || fsync(fd) == 0; }

// The error that made it necessary is what the caller reports.
Replaced put_back(int fd, std::string_view from, std::size_t first, Sync wanted) {
    const int error = errno;
    const bool is_back = write_all(fd, from.substr(first), first) && cut(fd, from.size()) && sync(fd, wanted);
    errno = error;
    return is_back ? Replaced::no : Replaced::in_part;
}

} // namespace

// Whole blocks first: byte by byte the search would take as long as a system call.
std::size_t common_beginning(std::string_view a, std::string_view b) {
    const auto length = static_cast<std::ptrdiff_t>(std::min(a.size(), b.size()));
    const char *in_a = a.begin(), *in_b = b.begin(), *const end = in_a + length;
    for (const std::ptrdiff_t block : {1024, 64, 8})
        for (; end - in_a >= block && std::equal(in_a, in_a + block, in_b); in_a += block)
            in_b += block;
    return static_cast<std::size_t>(std::mismatch(in_a, end, in_b).first - a.begin());
}

Replaced replace_text(int fd, std::string_view from, std::string_view to, Sync wanted) {
    const std::size_t first = common_beginning(from, to);
    if (to.size() > from.size() && !reserve(fd, from.size(), to.size() - from.size()))
        return put_back(fd, from, from.size(), wanted); // the old text is as it was
    if (write_tail(fd, to, first, from.size()) && sync(fd, wanted))
        return Replaced::yes;
    return put_back(fd, from, first, wanted);
}
