// Request arguments as the dispatcher decodes them. The first byte picks the procedure.

#include "rpc/protocol.h"
#include "rpc/service.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

std::string input;

// What was understood has one form, no longer than what was read, and that form means the same. The decode is
// then called a failure: the procedure is not the target, and the dispatcher has to clean up.
bool_t decode_and_encode(SVCXPRT *, xdrproc_t codec, void *object) {
    std::string form = input;
    for (const bool first : {true, false}) {
        XDR from, to;
        xdrmem_create(&from, form.data(), static_cast<unsigned>(form.size()), XDR_DECODE);
        if (!codec(&from, object))
            return first ? FALSE : (std::abort(), FALSE);
        std::string encoded(XDR_GETPOS(&from), '\0');
        xdrmem_create(&to, encoded.data(), static_cast<unsigned>(encoded.size()), XDR_ENCODE);
        if (!codec(&to, object))
            std::abort();
        encoded.resize(XDR_GETPOS(&to));
        if (!first && encoded != form)
            std::abort();
        form = encoded;
        xdr_free(codec, object);
    }
    return FALSE;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0)
        return 0;
    input.assign(data + 1, data + size);
    const auto take_reply = [](SVCXPRT *, rpc_msg *) { return TRUE; };
    const auto free_arguments = [](SVCXPRT *, xdrproc_t codec, void *object) {
        xdr_free(codec, object);
        return TRUE;
    };
    const std::remove_cvref_t<decltype(*SVCXPRT::xp_ops)> operations{
        nullptr, nullptr, decode_and_encode, take_reply, free_arguments, nullptr};
    SVCXPRT transport{};
    transport.xp_ops = &operations;
    svc_req request{};
    request.rq_proc = protocol[data[0] % std::size(protocol)].number;
    wlan_config_rpc_prog_1(&request, &transport);
    return 0;
}
