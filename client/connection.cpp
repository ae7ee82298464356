#include "client/connection.h"

#include "client/exchange.h"
#include "client/knowledge.h"
#include "rpc/codec.h"

#include <algorithm>
#include <cstring>
#include <fmt/format.h>
#include <netdb.h>
#include <rpc/pmap_prot.h>
#include <sys/socket.h>
#include <vector>

namespace {

constexpr Seconds probe_patience{1};

Error locate(Connection &connection) {
    sockaddr_in address{};
    if (Error error = resolve(connection, address))
        return error;
    address.sin_port = htons(connection.port);
    if (connection.port == 0)
        if (Error error = ask_portmapper(connection, address))
            return error;
    if (address.sin_port == 0)
        return {Trouble::unreachable,
                fmt::format("the portmapper of {} knows no wlan-configd; it is not running, "
                            "or the portmapper was restarted after it",
                            connection.host)};
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

Server daemon_of(const Connection &connection) {
    return {fmt::format("the daemon of {}", connection.host),
            connection.address,
            WLAN_CONFIG_RPC_PROG,
            WLAN_CONFIG_API_VERSION,
            Seconds{connection.timeout.value_or(connection.patience)},
            connection.goes_on};
}

bool is_lost(const Question &question) {
    return question.error.trouble == Trouble::timeout || question.error.trouble == Trouble::unreachable;
}

// An action whose reply was lost may have been done; one that was refused was not.
bool may_be_repeated(const Question &question) {
    return is_lost(question) &&
           (!question.procedure->runs_again || question.error.trouble == Trouble::unreachable);
}

// An action is never asked for twice; what takes its time is given it.
Seconds resends_after(const Procedure &procedure, Seconds timeout) {
    return procedure.runs_again ? timeout : std::min(Seconds{knowledge_of(procedure).seconds}, timeout);
}

// Calls those that `wanted` picks.
void call_once(const Connection &connection, std::span<Question> questions,
               bool (*wanted)(const Question &)) {
    const Server daemon = daemon_of(connection);
    std::vector<wlan_config_result_data_t> results(questions.size());
    std::vector<Exchange> exchanges;
    for (std::size_t i = 0; i < questions.size(); ++i) {
        const Procedure &procedure = *questions[i].procedure;
        if (wanted(questions[i]))
            exchanges.push_back(
                {procedure.number, message(questions[i].arguments),
                 procedure.result == Result::code ? message(results[i].return_code) : message(results[i]),
                 resends_after(procedure, daemon.timeout)});
    }
    exchange_all(daemon, exchanges);
    auto exchanged = exchanges.begin();
    for (std::size_t i = 0; i < questions.size(); ++i) {
        Question &question = questions[i];
        if (!wanted(question))
            continue;
        question.error = exchanged->error;
        question.answer = {.code = results[i].return_code};
        if (!question.error && question.answer.code >= 0)
            question.error = take_value(results[i], *question.procedure, question.answer);
        xdr_free(code_message, &exchanged++->result);
    }
}

} // namespace

Error resolve(const Connection &connection, sockaddr_in &ret_address) {
    addrinfo wanted{};
    wanted.ai_family = AF_INET;
    wanted.ai_socktype = SOCK_DGRAM;
    addrinfo *found = nullptr;
    if (const int failed = getaddrinfo(connection.host.c_str(), nullptr, &wanted, &found); failed != 0)
        return {Trouble::unreachable,
                fmt::format("cannot find the host '{}': {}; check the name, or give --host an IPv4 address",
                            connection.host, gai_strerror(failed))};
    std::memcpy(&ret_address, found->ai_addr, sizeof ret_address);
    freeaddrinfo(found);
    return {};
}

Error ask_portmapper(const Connection &connection, sockaddr_in &ret_address) {
    const Seconds timeout{connection.timeout.value_or(usual_patience)};
    Server portmapper{fmt::format("the portmapper of {}", connection.host),
                      ret_address,
                      PMAPPROG,
                      PMAPVERS,
                      timeout,
                      connection.goes_on};
    portmapper.address.sin_port = htons(PMAPPORT);
    unsigned question[] = {WLAN_CONFIG_RPC_PROG, WLAN_CONFIG_API_VERSION, IPPROTO_UDP, 0};
    unsigned port = 0;
    Exchange asked{PMAPPROC_GETPORT, message(question), message(port), probe_patience};
    exchange_all(portmapper, {&asked, 1});
    if (asked.error.trouble == Trouble::unreachable)
        asked.error.message += "; start rpcbind there, or name the daemon's own port with --port";
    if (asked.error.trouble == Trouble::timeout)
        asked.error.message += fmt::format("; see whether it is up and no firewall drops UDP to its port {}, "
                                           "or name the daemon's own port with --port",
                                           PMAPPORT);
    if (asked.error)
        return asked.error;
    if (port > 0xFFFF)
        return {Trouble::garbled, fmt::format("the portmapper names port {}", port)};
    ret_address.sin_port = htons(static_cast<std::uint16_t>(port));
    return {};
}

Error find_daemon(Connection &connection) {
    return connection.address.sin_port == 0 ? locate(connection) : Error{};
}

Error call_nothing(const Connection &connection) {
    std::tuple<> nothing;
    Exchange asked{NULLPROC, message(nothing), message(nothing), probe_patience};
    const Server daemon = daemon_of(connection);
    exchange_all(daemon, {&asked, 1});
    return asked.error;
}

void call(Connection &connection, std::span<Question> questions) {
    if (Error error = find_daemon(connection)) {
        for (Question &question : questions)
            question.error = error;
        return;
    }
    call_once(connection, questions, [](const Question &) { return true; });
    if (connection.port != 0 || std::none_of(questions.begin(), questions.end(), is_lost))
        return;
    const in_port_t silent = connection.address.sin_port;
    if (Error unknown = locate(connection)) {
        if (unknown.trouble == Trouble::interrupted)
            for (Question &question : questions)
                if (is_lost(question))
                    question.error = unknown;
    } else if (connection.address.sin_port != silent) {
        call_once(connection, questions, may_be_repeated);
    }
}

Error call(Connection &connection, const Procedure &procedure, const Values &arguments, Answer &ret_answer) {
    Question question{&procedure, arguments};
    call(connection, {&question, 1});
    ret_answer = std::move(question.answer);
    return question.error;
}
