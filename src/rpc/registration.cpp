#include "rpc/registration.h"

#include "api/worker.h"
#include "backend/descriptor.h"
#include "backend/log.h"
#include "rpc/protocol.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <chrono>
#include <cstdio>
#include <memory>
#include <rpc/pmap_clnt.h>
#include <rpc/pmap_prot.h>
#include <rpc/rpc.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <thread>

namespace {

using namespace std::chrono_literals;

constexpr auto between_looks = 10s;
constexpr auto start_of_another = 1s; // from taking the registration out to having its own in
constexpr timeval longest_question{1, 0};

std::uint16_t own_port;

// The port that the portmapper has for the daemon, 0 for none; false when it does not answer in time. By
// hand: the library's own question takes forty system calls and a reserved port.
bool ask_portmapper(unsigned *ret_port) {
    constexpr unsigned number = 1; // each question has a socket of its own
    std::array<unsigned, 14> question{number, CALL, RPC_MSG_VERSION, PMAPPROG, PMAPVERS, PMAPPROC_GETPORT};
    question[10] = WLAN_CONFIG_RPC_PROG;
    question[11] = WLAN_CONFIG_API_VERSION;
    question[12] = IPPROTO_UDP;
    std::transform(question.begin(), question.end(), question.begin(), htonl);
    std::array<unsigned, 7> answer{}; // number, REPLY, accepted, no verifier, success, the port
    sockaddr_in portmapper{};
    portmapper.sin_family = AF_INET;
    portmapper.sin_port = htons(PMAPPORT);
    portmapper.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const Descriptor fd(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    if (!fd.valid() ||
        setsockopt(fd.get(), SOL_SOCKET, SO_RCVTIMEO, &longest_question, sizeof longest_question) != 0 ||
        connect(fd.get(), reinterpret_cast<const sockaddr *>(&portmapper), sizeof portmapper) != 0 ||
        send(fd.get(), question.data(), sizeof question, 0) != sizeof question ||
        recv(fd.get(), answer.data(), sizeof answer, 0) != sizeof answer)
        return false;
    *ret_port = ntohl(answer.back());
    return answer[0] == htonl(number) && answer[1] == htonl(REPLY) && answer[2] == MSG_ACCEPTED &&
           answer[5] == SUCCESS;
}

// Whether a socket of this machine has the UDP port; false when the system does not tell. To bind one would
// take the port from a daemon that is starting. Without streams, which would double the daemon's size.
bool look_for_socket(unsigned port, bool *ret_found) {
    const std::unique_ptr<FILE, int (*)(FILE *)> sockets(std::fopen("/proc/net/udp", "re"), std::fclose);
    std::array<char, 256> line{}; // slot, local address and port, and more
    *ret_found = false;
    bool any = false; // there is a head line at least
    while (!*ret_found && sockets != nullptr &&
           std::fgets(line.data(), static_cast<int>(line.size()), sockets.get()) != nullptr) {
        unsigned local = 0;
        any = true;
        *ret_found = std::sscanf(line.data(), " %*u: %*x:%x", &local) == 1 && local == port;
    }
    return any;
}

// Another port than the daemon's own is another daemon's, which has taken over. Between a start's taking out
// and putting in nothing is missing: so it is asked twice.
bool is_registered() {
    unsigned port = 0;
    bool answers = ask_portmapper(&port);
    if (!answers) // one datagram may be lost
        answers = ask_portmapper(&port);
    if (!answers || port != 0)
        return port != 0;
    std::this_thread::sleep_for(start_of_another);
    if (!ask_portmapper(&port) || port != 0)
        return port != 0;
    log_debug("[ZAV-API] %s registering again.\n", __func__);
    return pmap_set(WLAN_CONFIG_RPC_PROG, WLAN_CONFIG_API_VERSION, IPPROTO_UDP, own_port) != FALSE;
}

void *registration_thread_function(void *) {
    for (bool registered = true;;) {
        std::this_thread::sleep_for(between_looks);
        if (is_registered() == registered)
            continue;
        registered = !registered;
        log_error(registered ? "[ZAV-API] Error %s the portmapper is back.\n"
                             : "[ZAV-API] Error %s the portmapper is away, clients do not find the daemon.\n",
                  "watch_registration");
    }
}

} // namespace

void watch_registration(std::uint16_t port) {
    own_port = port;
    if (!start_worker(registration_thread_function))
        report_no_worker(__func__);
}

bool remove_left_over_registration() {
    unsigned port = 0;
    if (!ask_portmapper(&port)) {
        std::fputs("The portmapper does not answer.\n", stderr);
        return false;
    }
    if (port == 0)
        return true;
    bool is_served = false;
    if (!look_for_socket(port, &is_served)) {
        std::perror("/proc/net/udp");
        return false;
    }
    if (is_served || pmap_unset(WLAN_CONFIG_RPC_PROG, WLAN_CONFIG_API_VERSION) != FALSE)
        return true;
    std::fputs("The portmapper keeps the registration.\n", stderr);
    return false;
}
