#include "connection.h"

#include "rpc/codec.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fmt/format.h>
#include <memory>
#include <netdb.h>
#include <sys/socket.h>
#include <type_traits>
#include <unistd.h>

namespace {

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

struct DestroyClient {
    void operator()(CLIENT *client) const { CLNT_DESTROY(client); }
};

// One call of any program: the portmapper is asked by the same means as the daemon.
struct Request {
    const char *who; // for messages
    sockaddr_in address;
    rpcprog_t program;
    rpcvers_t version;
    rpcproc_t procedure;
    double timeout, resend_after; // seconds
};

timeval seconds(double value) {
    const double whole = std::floor(value);
    return {static_cast<time_t>(whole), static_cast<suseconds_t>((value - whole) * 1e6)};
}

Error unreachable(const Request &request, int cause) {
    return {Trouble::unreachable, fmt::format("cannot reach {} at port {}: {}", request.who,
                                              ntohs(request.address.sin_port), std::strerror(cause))};
}

Error failure(const Request &request, CLIENT *client, clnt_stat status) {
    rpc_err details{};
    CLNT_GETERR(client, &details);
    switch (status) {
    case RPC_SUCCESS:
        return {};
    case RPC_TIMEDOUT:
        return {Trouble::timeout,
                fmt::format("no reply from {} in time ({} s)", request.who, request.timeout)};
    case RPC_CANTSEND:
    case RPC_CANTRECV:
        return unreachable(request, details.re_errno);
    case RPC_CANTENCODEARGS:
        return {Trouble::usage, fmt::format("the arguments exceed a message's {} bytes", longest_message)};
    case RPC_PROCUNAVAIL:
        return {Trouble::protocol, fmt::format("{} does not know this procedure", request.who)};
    case RPC_CANTDECODEARGS:
        return {Trouble::protocol, fmt::format("{} does not understand the arguments", request.who)};
    case RPC_CANTDECODERES:
        return {Trouble::protocol, fmt::format("the reply of {} is not understood", request.who)};
    default:
        return {Trouble::protocol, fmt::format("{} answered: {}", request.who, clnt_sperrno(status))};
    }
}

// The results are the caller's to free, also after an error.
Error exchange(const Request &request, Message arguments, Message result) {
    Socket socket;
    sockaddr_in address = request.address;
    // Connected, so that nobody else's datagram passes for the reply and a refusal is told.
    if (socket.descriptor < 0 ||
        connect(socket.descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0)
        return unreachable(request, errno);
    const std::unique_ptr<CLIENT, DestroyClient> client{
        clntudp_bufcreate(&address, request.program, request.version, seconds(request.resend_after),
                          &socket.descriptor, longest_message, longest_message)};
    if (client == nullptr)
        return {Trouble::unreachable, clnt_spcreateerror("cannot make a call")};
    const clnt_stat status = CLNT_CALL(client.get(), request.procedure, code_message, &arguments,
                                       code_message, &result, seconds(request.timeout));
    return failure(request, client.get(), status);
}

Error resolve(const std::string &host, sockaddr_in &ret_address) {
    addrinfo wanted{};
    wanted.ai_family = AF_INET;
    wanted.ai_socktype = SOCK_DGRAM;
    addrinfo *found = nullptr;
    if (const int failed = getaddrinfo(host.c_str(), nullptr, &wanted, &found); failed != 0)
        return {Trouble::unreachable, fmt::format("host '{}': {}", host, gai_strerror(failed))};
    std::memcpy(&ret_address, found->ai_addr, sizeof ret_address);
    freeaddrinfo(found);
    return {};
}

Error ask_portmapper(const Connection &connection, sockaddr_in &ret_address) {
    Request request{"the portmapper",
                    ret_address,
                    PMAPPROG,
                    PMAPVERS,
                    PMAPPROC_GETPORT,
                    connection.timeout,
                    std::min(1.0, connection.timeout)};
    request.address.sin_port = htons(PMAPPORT);
    unsigned question[] = {WLAN_CONFIG_RPC_PROG, WLAN_CONFIG_API_VERSION, IPPROTO_UDP, 0};
    unsigned port = 0;
    if (Error error = exchange(request, message(question), message(port)))
        return error;
    if (port == 0)
        return {
            Trouble::unreachable,
            fmt::format("the portmapper of {} knows no wlan-configd: it is not running", connection.host)};
    if (port > 0xFFFF)
        return {Trouble::protocol, fmt::format("the portmapper names port {}", port)};
    ret_address.sin_port = htons(static_cast<std::uint16_t>(port));
    return {};
}

Error locate(Connection &connection) {
    sockaddr_in address{};
    if (Error error = resolve(connection.host, address))
        return error;
    address.sin_port = htons(connection.port);
    if (connection.port == 0)
        if (Error error = ask_portmapper(connection, address))
            return error;
    connection.address = address;
    return {};
}

// What the result record must hold for a kind of result.
struct Holds {
    Result kind;
    unsigned words;    // numbers
    std::size_t bytes; // of a record
};
constexpr Holds held[] = {
    {Result::integer, 1, 0},
    {Result::unsigned_integer, 1, 0},
    {Result::port_and_index, 2, 0},
    {Result::basic_stats, 5, 0},
    {Result::stats, 16, 0},
    {Result::channel_statistics, 3, 0},
    {Result::noise_floor, 4, 0},
    {Result::packet_count, 2, 0},
    {Result::rssi_table, 74, 0},
    {Result::device, 0, sizeof(wlan_device_t)},
    {Result::device_table, 0, sizeof(wlan_assoc_devices_table)},
    {Result::scan_result, 0, sizeof(scan_table)},
    {Result::air_time_stats, 0, sizeof(AirTimeStats)},
    {Result::frames_in_queue, 0, sizeof(FramesInQueueData)},
    {Result::rate_data, 0, sizeof(RateData)},
    {Result::air_time_information, 0, sizeof(BSSAirTimeManagementInfo)},
};

bool is_signed(Result kind) { return kind == Result::integer || kind == Result::noise_floor; }

Error take_value(const wlan_config_result_data_t &result, Result kind, Answer &ret_answer) {
    const auto &[count, numbers] = result.return_u_int;
    const auto &[length, bytes] = result.return_data;
    const Error lacking{Trouble::protocol, "the reply of the daemon lacks the value"};
    if (is_text(kind)) {
        if (length == 0)
            return lacking;
        ret_answer.text.assign(bytes, strnlen(bytes, length));
        return {};
    }
    for (const Holds &holds : held) {
        if (holds.kind != kind)
            continue;
        if (count < holds.words || (holds.bytes != 0 && length != holds.bytes))
            return lacking;
        for (unsigned i = 0; i < holds.words; i++)
            ret_answer.numbers.push_back(is_signed(kind) ? std::int64_t{static_cast<int>(numbers[i])}
                                                         : numbers[i]);
        ret_answer.text.assign(bytes, holds.bytes);
    }
    return {};
}

Error call_once(const Connection &connection, const Procedure &procedure, Values &arguments,
                Answer &ret_answer) {
    // Sent again only after the time is over, that is, never.
    const Request request{"the daemon",     connection.address, WLAN_CONFIG_RPC_PROG, WLAN_CONFIG_API_VERSION,
                          procedure.number, connection.timeout, connection.timeout};
    wlan_config_result_data_t result{};
    Message whole = procedure.result == Result::code ? message(result.return_code) : message(result);
    Error error = exchange(request, message(arguments), whole);
    ret_answer = {.code = result.return_code};
    if (!error && ret_answer.code >= 0)
        error = take_value(result, procedure.result, ret_answer);
    xdr_free(code_message, &whole);
    return error;
}

} // namespace

Error call(Connection &connection, const Procedure &procedure, Values &arguments, Answer &ret_answer) {
    if (connection.address.sin_port == 0)
        if (Error error = locate(connection))
            return error;
    Error error = call_once(connection, procedure, arguments, ret_answer);
    const bool gone = error.trouble == Trouble::timeout || error.trouble == Trouble::unreachable;
    if (!gone || connection.port != 0)
        return error;
    const in_port_t silent = connection.address.sin_port;
    if (locate(connection) || connection.address.sin_port == silent)
        return error;
    return call_once(connection, procedure, arguments, ret_answer);
}
