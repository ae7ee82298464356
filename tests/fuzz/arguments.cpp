// Request arguments as the dispatcher decodes them. The first byte picks the procedure.

#undef NDEBUG
#include "rpc/protocol.h"
#include "rpc/service.h"

#include <cassert>
#include <cstdint>
#include <string>

namespace {

std::string input;

// What was understood has one form, no longer than what was read, and that form means the same. The decode is
// then called a failure: the procedure is not the target, and the dispatcher has to clean up.
bool_t decode_and_encode(SVCXPRT *, xdrproc_t codec, void *object) {
    for (bool first = true;; first = false) {
        XDR from, to;
        xdrmem_create(&from, input.data(), static_cast<unsigned>(input.size()), XDR_DECODE);
        const bool decoded = codec(&from, object) != FALSE;
        assert(decoded || first);
        if (!decoded)
            return FALSE;
        std::string form(XDR_GETPOS(&from), '\0');
        xdrmem_create(&to, form.data(), static_cast<unsigned>(form.size()), XDR_ENCODE);
        assert(codec(&to, object));
        form.resize(XDR_GETPOS(&to));
        assert(first || form == input);
        if (!first)
            return FALSE;
        input = form;
        xdr_free(codec, object);
    }
}

bool_t take_reply(SVCXPRT *, rpc_msg *) { return TRUE; }

bool_t free_arguments(SVCXPRT *, xdrproc_t codec, void *object) { return xdr_free(codec, object), TRUE; }

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0)
        return 0;
    input.assign(data + 1, data + size);
    const std::remove_cvref_t<decltype(*SVCXPRT::xp_ops)> operations{
        nullptr, nullptr, decode_and_encode, take_reply, free_arguments, nullptr};
    SVCXPRT transport{};
    transport.xp_ops = &operations;
    svc_req request{};
    request.rq_proc = protocol[data[0] % std::size(protocol)].number;
    wlan_config_rpc_prog_1(&request, &transport);
    return 0;
}
