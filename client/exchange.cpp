#include "client/exchange.h"

#include "rpc/protocol.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fmt/format.h>
#include <poll.h>
#include <span>
#include <string>
#include <sys/random.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::chrono::milliseconds longest_sleep{200};
constexpr std::size_t most_on_the_way = 8; // fewer than the daemon's socket holds at their longest

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

Error unreachable(const Server &server, int cause) {
    return {Trouble::unreachable, fmt::format("cannot reach {} at port {}: {}", server.who,
                                              ntohs(server.address.sin_port), std::strerror(cause))};
}

Error failure(const Server &server, clnt_stat status) {
    switch (status) {
    case RPC_SUCCESS:
        return {};
    case RPC_PROCUNAVAIL:
        return {Trouble::garbled, fmt::format("{} does not know this procedure", server.who)};
    case RPC_CANTDECODEARGS:
        return {Trouble::garbled, fmt::format("{} does not understand the arguments", server.who)};
    default:
        return {Trouble::garbled, fmt::format("{} answered: {}", server.who, clnt_sperrno(status))};
    }
}

// A call on the way.
struct Flight {
    Exchange *exchange;
    std::string call; // as it is sent; it begins with its number
    Clock::time_point end, next;
};

Clock::duration lasting(Seconds time) { return std::chrono::ceil<Clock::duration>(time); }

Error take_off(const Server &server, Exchange &exchange, Flight &ret_flight) {
    rpc_msg call{};
    if (getrandom(&call.rm_xid, sizeof call.rm_xid, 0) != sizeof call.rm_xid)
        return unreachable(server, errno);
    call.rm_direction = CALL;
    call.rm_call.cb_rpcvers = RPC_MSG_VERSION;
    call.rm_call.cb_prog = server.program;
    call.rm_call.cb_vers = server.version;
    call.rm_call.cb_proc = exchange.procedure;
    std::array<char, longest_message> buffer;
    XDR stream{};
    xdrmem_create(&stream, buffer.data(), static_cast<unsigned>(buffer.size()), XDR_ENCODE);
    if (xdr_callmsg(&stream, &call) == FALSE || code_message(&stream, &exchange.arguments) == FALSE)
        return {Trouble::usage, fmt::format("the arguments exceed a message's {} bytes", buffer.size())};
    const Clock::time_point now = Clock::now();
    ret_flight = {&exchange, {buffer.data(), xdr_getpos(&stream)}, now + lasting(server.timeout), now};
    return {};
}

Error decode_reply(const Server &server, std::span<char> bytes, Message result) {
    rpc_msg reply{};
    reply.acpted_rply.ar_results.where = static_cast<char *>(static_cast<void *>(&result));
    reply.acpted_rply.ar_results.proc = code_message;
    XDR stream{};
    xdrmem_create(&stream, bytes.data(), static_cast<unsigned>(bytes.size()), XDR_DECODE);
    std::array<char, MAX_AUTH_BYTES> verifier; // given, so that none is allocated and left
    reply.acpted_rply.ar_verf.oa_base = verifier.data();
    if (xdr_replymsg(&stream, &reply) == FALSE)
        return {Trouble::garbled, fmt::format("the reply of {} is not understood", server.who)};
    rpc_err details{};
    _seterr_reply(&reply, &details);
    return failure(server, details.re_status);
}

bool is_readable(int descriptor, Clock::duration patience) {
    const auto whole = std::chrono::ceil<std::chrono::milliseconds>(patience);
    pollfd watched{descriptor, POLLIN, 0};
    return poll(&watched, 1, static_cast<int>(std::max(whole, {}).count())) > 0;
}

// The calls of one run of `exchange_all`: those that wait for their turn and those on the way.
class Traffic {
public:
    Traffic(const Server &server, std::span<Exchange> calls) : server_(server), waiting_(calls) {}

    bool is_over() const { return waiting_.empty() && flights_.empty(); }

    void fill() {
        for (; !waiting_.empty() && flights_.size() < most_on_the_way; waiting_ = waiting_.subspan(1)) {
            Flight flight{};
            waiting_.front().error = take_off(server_, waiting_.front(), flight);
            if (!waiting_.front().error)
                flights_.push_back(std::move(flight));
        }
    }

    // Sends what is due and gives up what is too late. The time until one of both has to be done again.
    Error send_due(int descriptor, Clock::duration &ret_patience) {
        const Clock::time_point now = Clock::now();
        const std::size_t late =
            std::erase_if(flights_, [&](const Flight &flight) { return give_up(flight, now); });
        if (late > 0 && now - heard_ >= lasting(server_.timeout))
            end(late_error()); // nobody is there: the rest would wait as long, one group after the other
        ret_patience = flights_.empty() ? Clock::duration::zero() : longest_sleep;
        for (Flight &flight : flights_) {
            if (flight.next <= now) {
                if (send(descriptor, flight.call.data(), flight.call.size(), 0) < 0)
                    return unreachable(server_, errno);
                flight.next += lasting(flight.exchange->resend_after);
            }
            ret_patience = std::min(ret_patience, std::min(flight.end, flight.next) - now);
        }
        return {};
    }

    // A datagram that answers none of the calls is passed over.
    void take(std::span<char> datagram) {
        constexpr std::size_t number = BYTES_PER_XDR_UNIT;
        const auto answered = std::find_if(flights_.begin(), flights_.end(), [&](const Flight &flight) {
            return datagram.size() >= number && std::memcmp(datagram.data(), flight.call.data(), number) == 0;
        });
        if (answered == flights_.end())
            return;
        heard_ = Clock::now();
        answered->exchange->error = decode_reply(server_, datagram, answered->exchange->result);
        flights_.erase(answered);
    }

    // None of the calls that are left will get an answer.
    void end(const Error &error) {
        for (const Flight &flight : flights_)
            flight.exchange->error = error;
        for (Exchange &call : waiting_)
            call.error = error;
        flights_.clear();
        waiting_ = {};
    }

private:
    bool give_up(const Flight &flight, Clock::time_point now) const {
        if (now < flight.end)
            return false;
        flight.exchange->error = late_error();
        return true;
    }

    Error late_error() const {
        return {Trouble::timeout,
                fmt::format("no reply from {} in time ({} s)", server_.who, server_.timeout.count())};
    }

    const Server &server_;
    std::span<Exchange> waiting_;
    std::vector<Flight> flights_{};
    Clock::time_point heard_ = Clock::now(); // a reply
};

} // namespace

void exchange_all(const Server &server, std::span<Exchange> calls) {
    const Socket socket;
    Traffic traffic(server, calls);
    // Connected, so that nobody else's datagram passes for the reply and a refusal is told.
    if (socket.descriptor < 0 ||
        connect(socket.descriptor, reinterpret_cast<const sockaddr *>(&server.address),
                sizeof server.address) != 0)
        return traffic.end(unreachable(server, errno));
    std::array<char, longest_message> buffer;
    for (traffic.fill(); !traffic.is_over(); traffic.fill()) {
        Clock::duration patience{};
        if (Error error = traffic.send_due(socket.descriptor, patience))
            return traffic.end(error);
        if (is_readable(socket.descriptor, patience)) {
            const ssize_t received = recv(socket.descriptor, buffer.data(), buffer.size(), MSG_DONTWAIT);
            if (received < 0 && errno != EINTR && errno != EAGAIN) // a datagram can turn out to be broken
                return traffic.end(unreachable(server, errno));
            traffic.take(std::span(buffer).first(static_cast<std::size_t>(std::max<ssize_t>(received, 0))));
        } else if (server.goes_on && !server.goes_on()) {
            return traffic.end({Trouble::interrupted, "interrupted"});
        }
    }
}
