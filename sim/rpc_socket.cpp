// What the network does to the daemon's own datagrams, on order: a reply is lost or late, a request comes
// twice. All others pass on to the system.

#include "state.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include <arpa/inet.h>
#include <dlfcn.h>
#include <sys/socket.h>

namespace sim {
namespace {

constexpr std::uint32_t program = 0x20121110;
constexpr std::uint32_t call = 0, reply = 1;

ssize_t next_recvmsg(int fd, msghdr *message, int flags) {
    using Function = ssize_t (*)(int, msghdr *, int);
    static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "recvmsg"));
    return next(fd, message, flags);
}

ssize_t next_sendmsg(int fd, const msghdr *message, int flags) {
    using Function = ssize_t (*)(int, const msghdr *, int);
    static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "sendmsg"));
    return next(fd, message, flags);
}

// The word of the RPC header; all ones behind its end.
std::uint32_t header_word(const msghdr &message, std::size_t length, std::size_t number) {
    std::uint32_t word = ~0U;
    const std::size_t at = number * sizeof word;
    if (message.msg_iovlen == 1 && at + sizeof word <= std::min(length, message.msg_iov->iov_len)) {
        std::memcpy(&word, static_cast<const char *>(message.msg_iov->iov_base) + at, sizeof word);
    }
    return ntohl(word);
}

bool is_request(const msghdr &message, ssize_t length) {
    const auto size = static_cast<std::size_t>(std::max<ssize_t>(length, 0));
    return header_word(message, size, 1) == call && header_word(message, size, 3) == program;
}

// Only the RPC socket ever sends one.
bool is_reply(const msghdr &message) { return header_word(message, SIZE_MAX, 1) == reply; }

bool take_one(const std::string &name) {
    const long left = read_number(name).value_or(0);
    return left > 0 && replace_file(name, std::to_string(left - 1));
}

// A request that is to come again; one thread receives.
struct Repeated {
    int fd = -1; // none
    ssize_t length = 0;
    std::string bytes, peer, control;
    int flags = 0;
} repeated;

std::string copy(const void *bytes, std::size_t length) {
    return bytes == nullptr ? std::string() : std::string(static_cast<const char *>(bytes), length);
}

std::size_t put(void *to, std::size_t room, const std::string &from) {
    const std::size_t length = to == nullptr ? 0 : std::min(room, from.size());
    if (length > 0) {
        std::memcpy(to, from.data(), length);
    }
    return length;
}

void keep(int fd, const msghdr &message, ssize_t length) {
    const std::size_t there = std::min(static_cast<std::size_t>(length), message.msg_iov->iov_len);
    repeated = {fd,
                length,
                copy(message.msg_iov->iov_base, there),
                copy(message.msg_name, message.msg_namelen),
                copy(message.msg_control, message.msg_controllen),
                message.msg_flags};
}

ssize_t give_again(msghdr *message) {
    repeated.fd = -1;
    put(message->msg_iov->iov_base, message->msg_iov->iov_len, repeated.bytes);
    message->msg_namelen =
        static_cast<socklen_t>(put(message->msg_name, message->msg_namelen, repeated.peer));
    message->msg_controllen = put(message->msg_control, message->msg_controllen, repeated.control);
    message->msg_flags = repeated.flags;
    return repeated.length;
}

} // namespace
} // namespace sim

extern "C" {

[[gnu::visibility("default")]] ssize_t recvmsg(int fd, msghdr *message, int flags) {
    if (sim::repeated.fd == fd) {
        return sim::give_again(message);
    }
    const ssize_t length = sim::next_recvmsg(fd, message, flags);
    if (sim::active() && sim::is_request(*message, length) && sim::read_file("faults/request.dup", 1)) {
        sim::keep(fd, *message, length);
    }
    return length;
}

[[gnu::visibility("default")]] ssize_t sendmsg(int fd, const msghdr *message, int flags) {
    if (!sim::active() || !sim::is_reply(*message)) {
        return sim::next_sendmsg(fd, message, flags);
    }
    sim::wait_ms(sim::read_number("faults/reply.delay").value_or(0));
    if (sim::take_one("faults/reply.drop")) {
        return static_cast<ssize_t>(message->msg_iov->iov_len);
    }
    return sim::next_sendmsg(fd, message, flags);
}

} // extern "C"
