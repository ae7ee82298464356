#include "rpc/transport.h"

#include "backend/log.h"
#include "rpc/protocol.h"
#include "rpc/reply_cache.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <span>
#include <string>
#include <sys/socket.h>
#include <type_traits>
#include <utility>

// The library gives the socket, the registration, authentication and the loop; how a datagram is received,
// decoded and answered is this file's. The stream that is decoded ends with the received bytes, the header's
// included: what earlier requests and replies left behind cannot be reached.

namespace {

constexpr int receive_buffer_bytes = 1 << 20; // a burst of calls waits here while one takes its time

constexpr std::size_t shortest_call = 40;

template <std::size_t size>
struct alignas(BYTES_PER_XDR_UNIT) Buffer : std::array<char, size> {};
struct alignas(cmsghdr) Control : std::array<char, CMSG_SPACE(sizeof(in_pktinfo))> {};

// The request that is served. One transport, one thread.
struct Request {
    Buffer<longest_message> bytes;
    std::size_t length;
    sockaddr_in peer;
    Control control; // the local address that it came to
    std::size_t control_length;
    XDR arguments; // the stream, behind the header
    u_int32_t xid;
    bool runs_once;

    std::span<const char> whole() const { return std::span(bytes).first(length); }
};

Request current;
Buffer<longest_message> reply_buffer;
ReplyCache replies;
Peers allowed;
bool receiving_fails = false;
ReplyCache::Waited waited{};

using TransportOps = std::remove_cvref_t<decltype(*SVCXPRT::xp_ops)>;
TransportOps library_ops;

msghdr header_for(iovec *bytes, std::size_t control_length) {
    msghdr header{};
    header.msg_name = &current.peer;
    header.msg_namelen = sizeof current.peer;
    header.msg_iov = bytes;
    header.msg_iovlen = 1;
    header.msg_control = control_length == 0 ? nullptr : current.control.data();
    header.msg_controllen = control_length;
    return header;
}

// The reply leaves from the address that the request came to, by whichever interface is the way back.
void keep_local_address(msghdr *header) {
    cmsghdr *control = CMSG_FIRSTHDR(header);
    current.control_length = 0;
    if (control == nullptr || control->cmsg_level != IPPROTO_IP || control->cmsg_type != IP_PKTINFO)
        return;
    constexpr decltype(in_pktinfo::ipi_ifindex) any_interface = 0;
    std::memcpy(CMSG_DATA(control) + offsetof(in_pktinfo, ipi_ifindex), &any_interface, sizeof any_interface);
    current.control_length = header->msg_controllen;
}

// To a few milliseconds, and whatever clock the machine has without a system call.
std::chrono::nanoseconds ticks() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

// Waits for a datagram.
bool take_datagram(int socket) {
    iovec bytes{current.bytes.data(), current.bytes.size()};
    msghdr header = header_for(&bytes, current.control.size());
    const auto begun = ticks();
    const ssize_t received = recvmsg(socket, &header, MSG_TRUNC);
    waited += ticks() - begun;
    receiving_fails = received < 0 && errno != EINTR;
    if (received < 0)
        return false;
    current.length = static_cast<std::size_t>(received);
    current.runs_once = false;
    keep_local_address(&header);
    return true;
}

// What cannot be sent is lost, as it could be on its way; the client asks again.
void send_datagram(int socket, std::span<const char> datagram) {
    iovec bytes{const_cast<char *>(datagram.data()), datagram.size()};
    const msghdr header = header_for(&bytes, current.control_length);
    (void)sendmsg(socket, &header, 0);
}

bool_t refuse(const char *why) {
    if (!debug_enabled())
        return FALSE;
    std::array<char, INET_ADDRSTRLEN> address;
    inet_ntop(AF_INET, &current.peer.sin_addr, address.data(), address.size());
    log_debug("[ZAV-API] receive  WLAN RPC server : [refused %zu bytes from %s:%u: %s]\n", current.length,
              address.data(), ntohs(current.peer.sin_port), why);
    return FALSE;
}

// Other flavors than these two enter parts of the library that are no use here.
bool is_known_flavor(int flavor) { return flavor == AUTH_NONE || flavor == AUTH_SYS; }

bool is_run_once(const call_body &call) {
    return call.cb_prog == WLAN_CONFIG_RPC_PROG && call.cb_vers == WLAN_CONFIG_API_VERSION &&
           runs_again(call.cb_proc);
}

// Whether the request has been carried out before; then its reply is sent again.
bool is_answered_again(int socket) {
    const auto kept = replies.find(current.peer, current.whole(), waited);
    if (kept.empty())
        return false;
    send_datagram(socket, kept);
    return true;
}

bool_t receive(SVCXPRT *transport, rpc_msg *message) {
    if (!take_datagram(transport->xp_fd))
        return FALSE;
    if (!may_ask(allowed, current.peer.sin_addr))
        return refuse("not a listed peer");
    if (current.length < shortest_call || current.length > longest_message)
        return refuse("not as long as a call");
    xdrmem_create(&current.arguments, current.bytes.data(), static_cast<u_int>(current.length), XDR_DECODE);
    if (!xdr_callmsg(&current.arguments, message))
        return refuse("not a call with a whole header");
    current.xid = message->rm_xid;
    std::memcpy(&transport->xp_raddr, &current.peer, sizeof current.peer); // svc_getcaller
    if (!is_known_flavor(message->rm_call.cb_cred.oa_flavor)) {
        svcerr_auth(transport, AUTH_REJECTEDCRED);
        return refuse("a credential of another flavor");
    }
    current.runs_once = is_run_once(message->rm_call);
    return !current.runs_once || !is_answered_again(transport->xp_fd) ? TRUE : FALSE;
}

// Always more: so the library comes back at once and waits in receive() instead of asking poll() first, which
// would be one system call more for each request. It asks poll() where receiving does not work.
xprt_stat tell_more(SVCXPRT *) { return receiving_fails ? XPRT_IDLE : XPRT_MOREREQS; }

bool_t decode_arguments(SVCXPRT *, xdrproc_t codec, void *object) {
    return codec(&current.arguments, object);
}

bool_t free_arguments(SVCXPRT *, xdrproc_t codec, void *object) {
    XDR stream{};
    stream.x_op = XDR_FREE;
    return codec(&stream, object);
}

bool is_success(const rpc_msg &message) {
    return message.rm_reply.rp_stat == MSG_ACCEPTED && message.acpted_rply.ar_stat == SUCCESS;
}

// False only for a reply that does not fit: another would say that what was done has failed.
bool_t send_reply(SVCXPRT *transport, rpc_msg *message) {
    XDR stream;
    xdrmem_create(&stream, reply_buffer.data(), static_cast<u_int>(reply_buffer.size()), XDR_ENCODE);
    message->rm_xid = current.xid;
    if (!xdr_replymsg(&stream, message))
        return FALSE;
    const auto reply = std::span<const char>(reply_buffer).first(XDR_GETPOS(&stream));
    if (current.runs_once && is_success(*message)) // before it is sent: it must not run again if that fails
        replies.keep(current.peer, current.whole(), reply, waited);
    send_datagram(transport->xp_fd, reply);
    return TRUE;
}

void destroy(SVCXPRT *transport) {
    transport->xp_rtaddr.buf = nullptr; // not the library's to free
    library_ops.xp_destroy(transport);
}

constexpr TransportOps own_ops{receive, tell_more, decode_arguments, send_reply, free_arguments, destroy};

void use_own_operations(SVCXPRT *transport) {
    library_ops = *transport->xp_ops;
    transport->xp_ops = &own_ops;
    transport->xp_rtaddr.buf = &current.peer;
    transport->xp_rtaddr.len = transport->xp_rtaddr.maxlen = sizeof current.peer;
    transport->xp_addrlen = sizeof current.peer;
}

void keep_from_scripts(int socket) { fcntl(socket, F_SETFD, FD_CLOEXEC); }

void enlarge_receive_buffer(int socket) {
    const int size = receive_buffer_bytes;
    if (setsockopt(socket, SOL_SOCKET, SO_RCVBUFFORCE, &size, sizeof size) != 0)
        setsockopt(socket, SOL_SOCKET, SO_RCVBUF, &size, sizeof size);
}

bool is_bound_to_one(int socket) {
    sockaddr_in local{};
    socklen_t length = sizeof local;
    return getsockname(socket, reinterpret_cast<sockaddr *>(&local), &length) == 0 &&
           local.sin_addr.s_addr != htonl(INADDR_ANY);
}

// What is bound to one address replies from there anyway.
void ask_for_local_address(int socket) {
    const int wanted = is_bound_to_one(socket) ? 0 : 1;
    setsockopt(socket, IPPROTO_IP, IP_PKTINFO, &wanted, sizeof wanted);
}

int open_socket() {
    const int fd = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (fd >= 0)
        return fd;
    std::perror("socket");
    std::exit(1);
}

void bind_socket(int fd, in_addr address, std::uint16_t port) {
    sockaddr_in local{};
    local.sin_family = AF_INET;
    local.sin_port = htons(port);
    local.sin_addr = address;
    if (bind(fd, reinterpret_cast<const sockaddr *>(&local), sizeof local) == 0)
        return;
    std::perror("bind");
    std::exit(1);
}

// Without address and port, the library makes and binds its own.
int socket_for(const char *address, std::uint16_t port) {
    if (address != nullptr)
        return build_rpc_sockt(address, port);
    if (port == 0)
        return RPC_ANYSOCK;
    const int fd = open_socket();
    bind_socket(fd, {INADDR_ANY}, port);
    return fd;
}

} // namespace

int build_rpc_sockt(const char *address, std::uint16_t port) {
    const int fd = open_socket();
    in_addr local{};
    if (inet_aton(address, &local) == 0) {
        log_output("inet_aton failed with IPv4 " + escaped(address) + '\n');
        std::exit(1);
    }
    bind_socket(fd, local, port);
    log_output("WLAN RPC server bind successfully to " + escaped(address) + '\n');
    return fd;
}

SVCXPRT *create_transport(const char *address, std::uint16_t port, Peers peers) {
    SVCXPRT *transport = svcudp_create(socket_for(address, port));
    if (transport == nullptr)
        return nullptr;
    keep_from_scripts(transport->xp_fd);
    enlarge_receive_buffer(transport->xp_fd);
    ask_for_local_address(transport->xp_fd);
    allowed = std::move(peers);
    use_own_operations(transport);
    return transport;
}
