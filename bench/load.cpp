#include "load.h"

#include "calls.h"

#include <algorithm>
#include <arpa/inet.h>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <netinet/in.h>
#include <span>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t header_words = 10, reply_header_words = 6;
constexpr unsigned first_bss = 1;

struct Shape {
    unsigned procedure;
    std::size_t arguments; // the index, and the value in turn
    std::array<unsigned, 2> values;
    std::size_t reply_words; // behind the header, the code first
};

constexpr std::array<Shape, case_count> shapes{{{calls::null, 0, {}, 0},
                                                {calls::get_fallback, 1, {}, 7},
                                                {calls::set_fallback, 2, {0, 1}, 1},
                                                {calls::set_rekey, 2, {600, 3600}, 1}}};

using Buffer = std::array<std::uint32_t, 64>;

const Shape &shape_of(Case which) { return shapes[static_cast<std::size_t>(which)]; }

[[noreturn]] void give_up(const Server &server, const char *what) {
    std::fprintf(stderr, "rpc_bench: %s: %s\n", server.name, what);
    std::exit(1);
}

double microseconds_since(Clock::time_point start) {
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

bool try_call(Server &server, const Shape &shape, unsigned xid, unsigned value) {
    constexpr unsigned call = 0, rpc_version = 2;
    std::array<std::uint32_t, header_words + 2> words{
        xid, call, rpc_version, WLAN_CONFIG_RPC_PROG, WLAN_CONFIG_API_VERSION, shape.procedure};
    words[header_words] = first_bss;
    words[header_words + 1] = value;
    for (std::uint32_t &word : words)
        word = htonl(word);
    const std::size_t bytes = (header_words + shape.arguments) * sizeof words[0];
    return send(server.socket, words.data(), bytes, 0) == static_cast<ssize_t>(bytes);
}

void send_call(Server &server, const Shape &shape, unsigned xid, unsigned value) {
    if (!try_call(server, shape, xid, value))
        give_up(server, "cannot send");
}

std::span<const std::uint32_t> receive_reply(Server &server, Buffer &words) {
    const ssize_t length = recv(server.socket, words.data(), sizeof words, 0);
    if (length < 0)
        give_up(server, "no reply");
    return std::span(words).first(static_cast<std::size_t>(length) / sizeof words[0]);
}

// One server and one socket: the replies come in the order of the calls. What lies between the words looked
// at was compared before the measurement.
void check(Server &server, const Shape &shape, unsigned xid, std::span<const std::uint32_t> reply) {
    constexpr std::size_t status = 5, code = 6;
    if (reply.size() != reply_header_words + shape.reply_words || reply[0] != htonl(xid) ||
        reply[status] != 0 || (reply.size() > code && reply[code] != 0))
        give_up(server, "a call failed");
}

} // namespace

int connect_to(unsigned port) {
    const int fd = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_in to{};
    to.sin_family = AF_INET;
    to.sin_port = htons(static_cast<std::uint16_t>(port));
    to.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const timeval patience{2, 0};
    if (fd < 0 || connect(fd, reinterpret_cast<const sockaddr *>(&to), sizeof to) != 0 ||
        setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience) != 0) {
        std::perror("rpc_bench: socket");
        std::exit(1);
    }
    return fd;
}

bool is_served(Server &server) {
    constexpr int patience = 200; // microseconds
    std::uint32_t word = 0;
    (void)try_call(server, shape_of(Case::null), 0, 0); // refused as long as there is no server
    usleep(patience);
    return recv(server.socket, &word, sizeof word, MSG_DONTWAIT) > 0;
}

std::vector<unsigned> call_once(Server &server, Case which, unsigned xid) {
    const Shape &shape = shape_of(which);
    Buffer buffer;
    send_call(server, shape, xid, shape.values[1]);
    const auto reply = receive_reply(server, buffer);
    return {reply.begin(), reply.end()};
}

void call(Server &server, Case which, int calls, int in_flight, Samples *samples) {
    const Shape &shape = shape_of(which);
    Buffer buffer;
    std::array<Clock::time_point, most_in_flight> started;
    const auto place = [](int turn) { return static_cast<std::size_t>(turn); };
    const auto begin = Clock::now();
    for (int sent = 0, done = 0; done < calls; ++done) {
        for (; sent < calls && sent - done < in_flight; ++sent) {
            started[place(sent) % most_in_flight] = Clock::now();
            send_call(server, shape, static_cast<unsigned>(sent), shape.values[place(sent) % 2]);
        }
        const auto reply = receive_reply(server, buffer);
        samples->microseconds.push_back(microseconds_since(started[place(done) % most_in_flight]));
        check(server, shape, static_cast<unsigned>(done), reply);
    }
    samples->seconds += microseconds_since(begin) / 1e6;
}
