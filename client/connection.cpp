#include "client/connection.h"

#include "client/exchange.h"
#include "rpc/codec.h"

#include <algorithm>
#include <cstring>
#include <fmt/format.h>
#include <netdb.h>
#include <rpc/pmap_prot.h>
#include <sys/socket.h>
#include <type_traits>

namespace {

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
    const Seconds timeout{connection.timeout.value_or(usual_patience)};
    Request request{"the portmapper",
                    ret_address,
                    PMAPPROG,
                    PMAPVERS,
                    PMAPPROC_GETPORT,
                    timeout,
                    std::min(Seconds{1}, timeout),
                    connection.goes_on};
    request.address.sin_port = htons(PMAPPORT);
    unsigned question[] = {WLAN_CONFIG_RPC_PROG, WLAN_CONFIG_API_VERSION, IPPROTO_UDP, 0};
    unsigned port = 0;
    if (Error error = exchange(request, message(question), message(port)))
        return error;
    if (port == 0)
        return {Trouble::unreachable,
                fmt::format("the portmapper of {} knows no wlan-configd: it is not running, "
                            "or the portmapper was restarted after it",
                            connection.host)};
    if (port > 0xFFFF)
        return {Trouble::garbled, fmt::format("the portmapper names port {}", port)};
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

Error take_value(const wlan_config_result_data_t &result, const Procedure &procedure, Answer &ret_answer) {
    const auto &[count, numbers] = result.return_u_int;
    const auto &[length, bytes] = result.return_data;
    const Result kind = procedure.result;
    const bool image = kind == Result::image, text = kind == Result::text;
    const std::size_t words = image || text || kind == Result::none ? 0 : procedure.size / sizeof *numbers;
    if (count < words || (image && length != procedure.size) || (text && length == 0))
        return {Trouble::garbled, "the reply of the daemon lacks the value"};
    for (std::size_t i = 0; i < words; ++i)
        ret_answer.numbers.push_back(kind == Result::integer ? std::int64_t{static_cast<int>(numbers[i])}
                                                             : numbers[i]);
    if (image || text)
        ret_answer.text.assign(bytes, image ? length : strnlen(bytes, length));
    return {};
}

Error call_once(const Connection &connection, const Procedure &procedure, Values &arguments,
                Answer &ret_answer) {
    const Seconds timeout{connection.timeout.value_or(connection.patience)};
    // Sent again only after the time is over, that is, never.
    const Request request{"the daemon",
                          connection.address,
                          WLAN_CONFIG_RPC_PROG,
                          WLAN_CONFIG_API_VERSION,
                          procedure.number,
                          timeout,
                          timeout,
                          connection.goes_on};
    wlan_config_result_data_t result{};
    Message whole = procedure.result == Result::code ? message(result.return_code) : message(result);
    Error error = exchange(request, message(arguments), whole);
    ret_answer = {.code = result.return_code};
    if (!error && ret_answer.code >= 0)
        error = take_value(result, procedure, ret_answer);
    xdr_free(code_message, &whole);
    return error;
}

} // namespace

Error find_daemon(Connection &connection) {
    return connection.address.sin_port == 0 ? locate(connection) : Error{};
}

Error call(Connection &connection, const Procedure &procedure, Values &arguments, Answer &ret_answer) {
    if (Error error = find_daemon(connection))
        return error;
    Error error = call_once(connection, procedure, arguments, ret_answer);
    const bool gone = error.trouble == Trouble::timeout || error.trouble == Trouble::unreachable;
    if (!gone || connection.port != 0)
        return error;
    const in_port_t silent = connection.address.sin_port;
    if (Error unknown = locate(connection))
        return unknown.trouble == Trouble::interrupted ? unknown : error;
    return connection.address.sin_port == silent ? error
                                                 : call_once(connection, procedure, arguments, ret_answer);
}
