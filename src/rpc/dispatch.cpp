#include "backend/log.h"
#include "rpc/codec.h"
#include "rpc/service.h"

#include <cstdlib>
#include <tuple>
#include <utility>

namespace {

// What a parameter of a server procedure is decoded into.
template <class Parameter>
struct DecodedAs {
    using type = Parameter;
};
template <>
struct DecodedAs<const char *> {
    using type = char *;
};

void send(SVCXPRT *transport, Message reply) {
    if (!svc_sendreply(transport, code_message, &reply))
        svcerr_systemerr(transport);
}

void free_arguments(SVCXPRT *transport, Message &arguments) {
    if (svc_freeargs(transport, code_message, &arguments))
        return;
    log_last_words("unable to free arguments");
    std::exit(1);
}

// Decodes by the signature of the server procedure, calls it, replies and frees.
template <class... Parameters>
void run(SVCXPRT *transport, int (*procedure)(Parameters...)) {
    using Types = std::tuple<Parameters...>;
    constexpr std::size_t count = sizeof...(Parameters) - 1;
    [&]<std::size_t... i>(std::index_sequence<i...>) {
        std::tuple<typename DecodedAs<std::tuple_element_t<i, Types>>::type...> arguments{};
        std::remove_pointer_t<std::tuple_element_t<count, Types>> result{};
        Message decoded = message(arguments), reply = message(result);
        if (!svc_getargs(transport, code_message, &decoded)) {
            free_arguments(transport, decoded); // a text before the item that failed
            svcerr_decode(transport);
            return;
        }
        if (procedure(std::get<i>(arguments)..., &result) > 0)
            send(transport, reply);
        free_arguments(transport, decoded);
        if (!wlan_config_rpc_prog_1_freeresult(transport, code_message, &reply))
            log_error("unable to free results");
    }
    (std::make_index_sequence<count>{});
}

void answer_null_procedure(SVCXPRT *transport) {
    std::tuple<> nothing;
    Message empty = message(nothing);
    svc_sendreply(transport, code_message, &empty);
}

} // namespace

int wlan_config_rpc_prog_1_freeresult(SVCXPRT *, xdrproc_t codec, void *result) {
    xdr_free(codec, result);
    return 1;
}

void wlan_config_rpc_prog_1(svc_req *request, SVCXPRT *transport) {
    const auto number = static_cast<unsigned>(request->rq_proc);
    if (number == NULLPROC) {
        answer_null_procedure(transport);
        return;
    }
    const Service *service = find_service(number);
    if (service == nullptr) {
        svcerr_noproc(transport);
        return;
    }
    std::visit([transport](auto procedure) { run(transport, procedure); }, service->procedure);
}
