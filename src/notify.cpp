#include "notify.h"

#include "backend/descriptor.h"
#include "backend/log.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr std::string_view ready = "READY=1";
constexpr timeval longest_wait{1, 0}; // for room in the manager's queue

bool send_ready(std::string_view name) {
    sockaddr_un manager{};
    manager.sun_family = AF_UNIX;
    if (name.size() > sizeof manager.sun_path) {
        errno = ENAMETOOLONG;
        return false;
    }
    name.copy(manager.sun_path, name.size());
    if (name.starts_with('@')) // an abstract name
        manager.sun_path[0] = '\0';
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
    const Descriptor fd(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    return fd.valid() &&
           setsockopt(fd.get(), SOL_SOCKET, SO_SNDTIMEO, &longest_wait, sizeof longest_wait) == 0 &&
           sendto(fd.get(), ready.data(), ready.size(), MSG_NOSIGNAL,
                  reinterpret_cast<const sockaddr *>(&manager), length) == static_cast<ssize_t>(ready.size());
}

} // namespace

void notify_ready() {
    const char *name = std::getenv("NOTIFY_SOCKET");
    if (name == nullptr || *name == '\0')
        return;
    if (!send_ready(name))
        log_error("[ZAV-API] Error %s %s: %s (%d).\n", __func__, name, strerror(errno), errno);
    unsetenv("NOTIFY_SOCKET"); // scripts have nothing to tell
}
