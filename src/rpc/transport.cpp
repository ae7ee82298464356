#include "rpc/transport.h"

#include "rpc/protocol.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/socket.h>
#include <type_traits>

// The library decodes a request over its whole buffer, behind the received bytes too, where earlier requests
// and replies of other clients still stand. So two of the transport's functions are replaced: receiving looks
// at the datagram first and drops what cannot be a call, and decoding ends at the last received byte.

namespace {

constexpr int receive_buffer_bytes = 1 << 20; // a burst of calls waits here while one takes its time

constexpr std::size_t shortest_call = 40;
constexpr std::size_t credential_flavor_at = 24;
constexpr std::size_t credential_length_at = 28;
constexpr std::uint32_t longest_credential = MAX_AUTH_BYTES;
constexpr std::size_t longest_header = shortest_call + 2 * longest_credential;

// One transport, served by one thread.
using TransportOps = std::remove_cvref_t<decltype(*SVCXPRT::xp_ops)>;
TransportOps library_ops;
TransportOps bounded_ops;
std::size_t received_bytes;

std::uint32_t word_at(const std::array<unsigned char, longest_header> &header, std::size_t offset) {
    std::uint32_t word;
    std::memcpy(&word, header.data() + offset, sizeof word);
    return ntohl(word);
}

std::size_t padded(std::uint32_t length) { return (std::size_t{length} + 3) & ~std::size_t{3}; }

// Other flavors than these two enter parts of the library that are no use here.
bool known_flavor(std::uint32_t flavor) { return flavor == AUTH_NONE || flavor == AUTH_SYS; }

// Whether credential and verifier end within the received bytes.
bool header_is_whole(const std::array<unsigned char, longest_header> &header, std::size_t received) {
    if (received < shortest_call || received > longest_message)
        return false;
    const std::uint32_t credential = word_at(header, credential_length_at);
    if (!known_flavor(word_at(header, credential_flavor_at)) || credential > longest_credential ||
        shortest_call + padded(credential) > received)
        return false;
    const std::uint32_t verifier = word_at(header, shortest_call - 4 + padded(credential));
    return verifier <= longest_credential &&
           shortest_call + padded(credential) + padded(verifier) <= received;
}

bool_t receive_bounded(SVCXPRT *transport, rpc_msg *message) {
    std::array<unsigned char, longest_header> header{};
    const ssize_t received =
        recv(transport->xp_fd, header.data(), header.size(), MSG_PEEK | MSG_TRUNC | MSG_DONTWAIT);
    if (received < 0)
        return FALSE;
    received_bytes = static_cast<std::size_t>(received);
    if (!header_is_whole(header, received_bytes)) {
        recv(transport->xp_fd, header.data(), 0, MSG_DONTWAIT); // takes the datagram off the queue
        return FALSE;
    }
    return library_ops.xp_recv(transport, message);
}

struct Bounded {
    xdrproc_t codec;
    void *object;
};

// Takes a Bounded *. Hides from the codec what lies behind the received bytes.
extern "C" bool_t code_bounded(XDR *x, ...) {
    va_list list;
    va_start(list, x);
    const auto *bounded = va_arg(list, Bounded *);
    va_end(list);
    const std::size_t position = XDR_GETPOS(x);
    if (position > received_bytes)
        return FALSE;
    const auto remaining = static_cast<unsigned>(received_bytes - position);
    const unsigned hidden = x->x_handy - std::min(x->x_handy, remaining);
    x->x_handy -= hidden;
    const bool_t decoded = bounded->codec(x, bounded->object);
    x->x_handy += hidden;
    return decoded;
}

bool_t decode_bounded(SVCXPRT *transport, xdrproc_t codec, void *object) {
    Bounded bounded{codec, object};
    return library_ops.xp_getargs(transport, code_bounded, &bounded);
}

void keep_from_scripts(int socket) { fcntl(socket, F_SETFD, FD_CLOEXEC); }

void enlarge_receive_buffer(int socket) {
    const int size = receive_buffer_bytes;
    if (setsockopt(socket, SOL_SOCKET, SO_RCVBUFFORCE, &size, sizeof size) != 0)
        setsockopt(socket, SOL_SOCKET, SO_RCVBUF, &size, sizeof size);
}

} // namespace

int build_rpc_sockt(const char *address) {
    const int fd = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (fd < 0) {
        std::perror("socket");
        std::exit(1);
    }
    sockaddr_in local{};
    local.sin_family = AF_INET;
    local.sin_port = 0;
    if (inet_aton(address, &local.sin_addr) == 0) {
        std::printf("inet_aton failed with IPv4 %s\n", address);
        std::exit(1);
    }
    if (bind(fd, reinterpret_cast<const sockaddr *>(&local), sizeof local) != 0) {
        std::perror("bind");
        std::exit(1);
    }
    std::printf("WLAN RPC server bind successfully to %s\n", address);
    return fd;
}

SVCXPRT *create_transport(const char *address) {
    SVCXPRT *transport = svcudp_create(address == nullptr ? RPC_ANYSOCK : build_rpc_sockt(address));
    if (transport == nullptr)
        return nullptr;
    keep_from_scripts(transport->xp_fd);
    enlarge_receive_buffer(transport->xp_fd);
    library_ops = *transport->xp_ops;
    bounded_ops = library_ops;
    bounded_ops.xp_recv = receive_bounded;
    bounded_ops.xp_getargs = decode_bounded;
    transport->xp_ops = &bounded_ops;
    return transport;
}
