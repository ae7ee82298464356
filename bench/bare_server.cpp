#include "calls.h"
#include "rpc/transport.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <rpc/rpc.h>
#include <string_view>
#include <sys/socket.h>
#include <type_traits>
#include <unistd.h>

// What the daemon is measured against: the library's server with the same file work and nothing around it.
// --bounded adds what the daemon owes its callers at every request: a look at the datagram before it is
// received, decoding that ends at the last received byte, and the questions for the debug flag and the lock.
// --transport asks the same questions on the daemon's own transport, so that what is left between the two is
// the daemon's own cost.

namespace {

// The daemon asks for the flag before each debug line, and a get and a set have five: of the server procedure
// (a get two), of the operation two, of the store (a set two).
constexpr int debug_lines = 5;

constexpr std::size_t file_limit = 16384;
constexpr std::size_t shortest_call = 40;
constexpr std::size_t longest_header = 840;

bool bounded = false; // by the look and the narrowed stream
bool asks = false;    // for the flag and the lock
const char *settings = nullptr;
std::array<char, file_limit> stored, changed;

std::remove_cvref_t<decltype(*SVCXPRT::xp_ops)> library_ops, bounded_ops;
std::size_t received_bytes = 0;

struct Words {
    int *begin;
    std::size_t count;
};

bool code(XDR *x, const Words &words) {
    for (std::size_t i = 0; i < words.count; ++i)
        if (!xdr_int(x, words.begin + i))
            return false;
    return true;
}

bool decode_received(XDR *x, const Words &words) {
    const std::size_t position = XDR_GETPOS(x);
    if (position > received_bytes)
        return false;
    const unsigned hidden =
        x->x_handy - std::min(x->x_handy, static_cast<unsigned>(received_bytes - position));
    x->x_handy -= hidden;
    const bool decoded = code(x, words);
    x->x_handy += hidden;
    return decoded;
}

// Takes a Words *.
extern "C" bool_t code_words(XDR *x, ...) {
    va_list list;
    va_start(list, x);
    const auto *words = va_arg(list, Words *);
    va_end(list);
    return bounded && x->x_op == XDR_DECODE ? decode_received(x, *words) : code(x, *words);
}

bool_t receive_bounded(SVCXPRT *transport, rpc_msg *message) {
    std::array<char, longest_header> header;
    const ssize_t received =
        recv(transport->xp_fd, header.data(), header.size(), MSG_PEEK | MSG_TRUNC | MSG_DONTWAIT);
    if (received < static_cast<ssize_t>(shortest_call)) {
        recv(transport->xp_fd, header.data(), 0, MSG_DONTWAIT);
        return FALSE;
    }
    received_bytes = static_cast<std::size_t>(received);
    return library_ops.xp_recv(transport, message);
}

void bound(SVCXPRT *transport) {
    library_ops = bounded_ops = *transport->xp_ops;
    bounded_ops.xp_recv = receive_bounded;
    transport->xp_ops = &bounded_ops;
}

void ask_for_debug_flag() {
    for (int line = 0; line < debug_lines; ++line)
        (void)!access("/tmp/wlandbg", R_OK);
}

struct OpenFile {
    int fd;
    std::string_view text, value;
};

std::optional<OpenFile> open_at(std::string_view pattern) {
    const int fd = open(settings, O_RDWR | O_CLOEXEC);
    const ssize_t length = read(fd, stored.data(), stored.size());
    if (length < 0)
        return std::nullopt; // and the measurement ends, so nothing is put in order here
    const std::string_view text(stored.data(), static_cast<std::size_t>(length));
    const void *line = memmem(text.data(), text.size(), pattern.data(), pattern.size());
    if (line == nullptr)
        return std::nullopt;
    const std::size_t begin =
        static_cast<std::size_t>(static_cast<const char *>(line) - text.data()) + pattern.size();
    return OpenFile{fd, text, text.substr(begin, text.find('\n', begin) - begin)};
}

int get(std::string_view pattern, int *ret_value) {
    const auto file = open_at(pattern);
    if (!file)
        return -1;
    *ret_value = std::atoi(file->value.data());
    return close(file->fd);
}

// Cuts only where the length has changed: a cut to the old length would be one call more than the daemon's.
int set(std::string_view pattern, int value) {
    if (asks && access("/tmp/nvram_set_lock", F_OK) == 0)
        return -1;
    const auto file = open_at(pattern);
    if (!file)
        return -1;
    const auto begin = static_cast<std::size_t>(file->value.data() - stored.data());
    const auto tail = file->text.substr(begin + file->value.size());
    char *end = std::to_chars(changed.data(), changed.data() + 12, value).ptr;
    end = std::copy(tail.begin(), tail.end(), end);
    const auto length = static_cast<std::size_t>(end - changed.data());
    if (pwrite(file->fd, changed.data(), length, static_cast<off_t>(begin)) != static_cast<ssize_t>(length))
        return -1;
    if (begin + length != file->text.size() && ftruncate(file->fd, static_cast<off_t>(begin + length)) != 0)
        return -1;
    return close(file->fd);
}

template <std::size_t count>
void answer(SVCXPRT *transport, std::array<int, count> values) {
    Words reply{values.data(), count};
    svc_sendreply(transport, code_words, &reply);
}

template <std::size_t count>
bool arguments(SVCXPRT *transport, std::array<int, count> &values) {
    Words words{values.data(), count};
    if (svc_getargs(transport, code_words, &words))
        return true;
    svcerr_decode(transport);
    return false;
}

void answer_get(SVCXPRT *transport) {
    std::array<int, 1> index{};
    if (!arguments(transport, index))
        return;
    if (asks)
        ask_for_debug_flag();
    int value = 0;
    const int code = get("\nAutoRateFallback=", &value);
    answer(transport, std::array{code, 4, value, 0, 0, 0, 0}); // code, four elements, no text
}

void answer_set(SVCXPRT *transport, std::string_view pattern) {
    std::array<int, 2> index_and_value{};
    if (!arguments(transport, index_and_value))
        return;
    if (asks)
        ask_for_debug_flag();
    answer(transport, std::array{set(pattern, index_and_value[1])});
}

void dispatch(svc_req *request, SVCXPRT *transport) {
    switch (request->rq_proc) {
    case calls::null:
        return answer(transport, std::array<int, 0>{});
    case calls::get_fallback:
        return answer_get(transport);
    case calls::set_fallback:
        return answer_set(transport, "\nAutoRateFallback=");
    case calls::set_rekey:
        return answer_set(transport, "\nGroupRekeyInterval=");
    default:
        svcerr_noproc(transport);
    }
}

} // namespace

// Prints its port and serves; the portmapper is not asked.
int main(int argc, char **argv) {
    if (argc < 2) {
        std::fputs("usage: bare_server SETTINGS-FILE [--bounded | --transport]\n", stderr);
        return 2;
    }
    settings = argv[1];
    const std::string_view option = argc > 2 ? argv[2] : "";
    bounded = option == "--bounded";
    asks = !option.empty();
    SVCXPRT *transport =
        option == "--transport" ? create_transport(nullptr, 0, {}) : svcudp_create(RPC_ANYSOCK);
    if (transport == nullptr ||
        !svc_register(transport, WLAN_CONFIG_RPC_PROG, WLAN_CONFIG_API_VERSION, dispatch, 0)) {
        std::fputs("bare_server: cannot serve\n", stderr);
        return 1;
    }
    if (bounded)
        bound(transport);
    std::printf("%u\n", static_cast<unsigned>(transport->xp_port));
    std::fflush(stdout);
    svc_run();
    return 1;
}
