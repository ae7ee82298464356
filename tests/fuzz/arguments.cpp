// Request arguments as the dispatcher decodes them. The first byte is the number of the procedure.

#undef NDEBUG
#include "rpc/service.h"

#include <cassert>
#include <cstdint>
#include <string>

static std::string input;

// What was understood has one form, no longer than what was read, and that form means the same. The decode is
// then called a failure: the procedure is not the target, and the dispatcher has to clean up.
static bool_t decode_and_encode(SVCXPRT *, xdrproc_t codec, void *object) {
    for (int pass = 0; pass < 2; ++pass) {
        XDR from, to;
        xdrmem_create(&from, input.data(), static_cast<unsigned>(input.size()), XDR_DECODE);
        if (!codec(&from, object))
            return assert(pass == 0), FALSE;
        std::string form(XDR_GETPOS(&from), '\0');
        xdrmem_create(&to, form.data(), static_cast<unsigned>(form.size()), XDR_ENCODE);
        assert(codec(&to, object));
        form.resize(XDR_GETPOS(&to));
        assert(pass == 0 || form == input);
        input = form;
        xdr_free(codec, object);
    }
    return FALSE;
}

static bool_t take_reply(SVCXPRT *, rpc_msg *) { return TRUE; }

static bool_t release(SVCXPRT *, xdrproc_t codec, void *object) { return xdr_free(codec, object), TRUE; }

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0)
        return 0;
    input.assign(data + 1, data + size);
    const std::remove_cvref_t<decltype(*SVCXPRT::xp_ops)> operations{nullptr,    nullptr, decode_and_encode,
                                                                     take_reply, release, nullptr};
    SVCXPRT transport{};
    transport.xp_ops = &operations;
    svc_req request{};
    request.rq_proc = data[0];
    wlan_config_rpc_prog_1(&request, &transport);
    return 0;
}
