#include "client/exchange.h"

#include "rpc/protocol.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fmt/format.h>
#include <poll.h>
#include <span>
#include <string_view>
#include <sys/random.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr std::chrono::milliseconds longest_sleep{200};

struct Socket {
    int descriptor = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    Socket() = default;
    Socket(const Socket &) = delete;
    Socket &operator=(const Socket &) = delete;
    ~Socket() {
        if (descriptor >= 0)
            close(descriptor);
    }
};

Error unreachable(const Request &request, int cause) {
    return {Trouble::unreachable, fmt::format("cannot reach {} at port {}: {}", request.who,
                                              ntohs(request.address.sin_port), std::strerror(cause))};
}

Error failure(const Request &request, clnt_stat status) {
    switch (status) {
    case RPC_SUCCESS:
        return {};
    case RPC_PROCUNAVAIL:
        return {Trouble::garbled, fmt::format("{} does not know this procedure", request.who)};
    case RPC_CANTDECODEARGS:
        return {Trouble::garbled, fmt::format("{} does not understand the arguments", request.who)};
    default:
        return {Trouble::garbled, fmt::format("{} answered: {}", request.who, clnt_sperrno(status))};
    }
}

Error encode_call(const Request &request, Message arguments, std::span<char> buffer,
                  std::string_view &ret_call) {
    rpc_msg call{};
    if (getrandom(&call.rm_xid, sizeof call.rm_xid, 0) != sizeof call.rm_xid)
        return unreachable(request, errno);
    call.rm_direction = CALL;
    call.rm_call.cb_rpcvers = RPC_MSG_VERSION;
    call.rm_call.cb_prog = request.program;
    call.rm_call.cb_vers = request.version;
    call.rm_call.cb_proc = request.procedure;
    XDR stream{};
    xdrmem_create(&stream, buffer.data(), static_cast<unsigned>(buffer.size()), XDR_ENCODE);
    if (xdr_callmsg(&stream, &call) == FALSE || code_message(&stream, &arguments) == FALSE)
        return {Trouble::usage, fmt::format("the arguments exceed a message's {} bytes", buffer.size())};
    ret_call = {buffer.data(), xdr_getpos(&stream)};
    return {};
}

Error decode_reply(const Request &request, std::span<char> bytes, Message result) {
    rpc_msg reply{};
    reply.acpted_rply.ar_results.where = static_cast<char *>(static_cast<void *>(&result));
    reply.acpted_rply.ar_results.proc = code_message;
    XDR stream{};
    xdrmem_create(&stream, bytes.data(), static_cast<unsigned>(bytes.size()), XDR_DECODE);
    std::array<char, MAX_AUTH_BYTES> verifier; // given, so that none is allocated and left
    reply.acpted_rply.ar_verf.oa_base = verifier.data();
    if (xdr_replymsg(&stream, &reply) == FALSE)
        return {Trouble::garbled, fmt::format("the reply of {} is not understood", request.who)};
    rpc_err details{};
    _seterr_reply(&reply, &details);
    return failure(request, details.re_status);
}

bool answers(std::span<const char> datagram, std::string_view call) {
    constexpr std::size_t xid = BYTES_PER_XDR_UNIT;
    return datagram.size() >= xid && std::memcmp(datagram.data(), call.data(), xid) == 0;
}

bool is_readable(int descriptor, Clock::duration patience) {
    const auto whole = std::chrono::ceil<std::chrono::milliseconds>(patience);
    pollfd watched{descriptor, POLLIN, 0};
    return poll(&watched, 1, static_cast<int>(std::max(whole, {}).count())) > 0;
}

// Sends the call, from time to time again, until its reply is in the buffer.
Error send_and_receive(const Request &request, int descriptor, std::string_view call, std::span<char> buffer,
                       std::span<char> &ret_reply) {
    const auto lasting = [](Seconds time) { return std::chrono::ceil<Clock::duration>(time); };
    const Clock::time_point end = Clock::now() + lasting(request.timeout);
    Clock::time_point next = Clock::now();
    while (Clock::now() < end) {
        if (Clock::now() >= next) {
            if (send(descriptor, call.data(), call.size(), 0) < 0)
                return unreachable(request, errno);
            next += lasting(request.resend_after);
        }
        const Clock::duration patience = std::min(end, next) - Clock::now();
        if (is_readable(descriptor, std::min<Clock::duration>(patience, longest_sleep))) {
            const ssize_t received = recv(descriptor, buffer.data(), buffer.size(), MSG_DONTWAIT);
            if (received < 0 && errno != EINTR && errno != EAGAIN) // a datagram can turn out to be broken
                return unreachable(request, errno);
            ret_reply = buffer.first(static_cast<std::size_t>(std::max<ssize_t>(received, 0)));
            if (answers(ret_reply, call))
                return {};
        } else if (request.goes_on && !request.goes_on()) {
            return {Trouble::interrupted, "interrupted"};
        }
    }
    return {Trouble::timeout,
            fmt::format("no reply from {} in time ({} s)", request.who, request.timeout.count())};
}

} // namespace

Error exchange(const Request &request, Message arguments, Message result) {
    const Socket socket;
    // Connected, so that nobody else's datagram passes for the reply and a refusal is told.
    if (socket.descriptor < 0 ||
        connect(socket.descriptor, reinterpret_cast<const sockaddr *>(&request.address),
                sizeof request.address) != 0)
        return unreachable(request, errno);
    std::array<char, longest_message> sent, received;
    std::string_view call;
    std::span<char> reply;
    if (Error error = encode_call(request, arguments, sent, call))
        return error;
    if (Error error = send_and_receive(request, socket.descriptor, call, received, reply))
        return error;
    return decode_reply(request, reply, result);
}
