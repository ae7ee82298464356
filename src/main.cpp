#include "api/lifecycle.h"
#include "backend/config_store.h"
#include "backend/log.h"
#include "notify.h"
#include "rpc/protocol.h"
#include "rpc/registration.h"
#include "rpc/service.h"
#include "rpc/transport.h"

#include <charconv>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <netinet/in.h>
#include <new>
#include <rpc/pmap_clnt.h>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

constexpr char usage[] =
    "usage: wlan-configd [ADDRESS]\n"
    "Serves the Wi-Fi configuration over ONC RPC on UDP, on the local IPv4 ADDRESS or on all\n"
    "addresses; the portmapper tells clients the port. The protocol has no authentication.\n\n"
    "  -h, --help    print this and exit\n"
    "  --version     print the version and exit\n"
    "  --unregister  take the registration of a daemon that was killed from the portmapper and exit\n\n"
    "environment:\n"
    "  zav_cfg_dir         directory of the settings files ZAV75024g.dat and ZAV750.dat\n"
    "  zav_install_dir     directory of the platform's scripts and daemons\n"
    "  WLAN_CONFIGD_PORT   UDP port to serve on, for firewalls; without it the system chooses\n"
    "  WLAN_CONFIGD_PEERS  IPv4 addresses and networks that may ask, such as 192.168.1.2,10.0.0.0/8;\n"
    "                      without it everyone\n"
    "  RUNTIME_DIRECTORY   directory to keep in what is known of the driver, for a restarted daemon;\n"
    "                      without it a restarted daemon knows nothing\n"
    "  STATE_DIRECTORY     directory of the journal that keeps settings whole over kills and power cuts\n"
    "  NOTIFY_SOCKET       where a service manager is told that the daemon serves\n\n"
    "Debug lines appear on standard output while /tmp/wlandbg is readable.\n";

int give_up(const char *reason) {
    log_last_words(reason);
    return 1;
}

struct Environment {
    std::uint16_t port = 0; // 0: the system chooses
    Peers peers;
};

// False after a message.
bool read_environment(Environment *ret_environment) {
    const char *port = std::getenv("WLAN_CONFIGD_PORT"), *peers = std::getenv("WLAN_CONFIGD_PEERS");
    if (port != nullptr) {
        const char *end = port + std::strlen(port);
        const auto [stopped, error] = std::from_chars(port, end, ret_environment->port);
        if (error != std::errc{} || stopped != end || ret_environment->port == 0) {
            log_error("WLAN_CONFIGD_PORT is not a port from 1 to 65535: %s\n", port);
            return false;
        }
    }
    std::string_view wrong;
    if (peers == nullptr || parse_peers(peers, &ret_environment->peers, &wrong))
        return true;
    log_error("WLAN_CONFIGD_PEERS has a word that is no IPv4 address or network: '%.*s'\n",
              static_cast<int>(wrong.size()), wrong.data());
    return false;
}

// No operation can go on without memory, and no worker can be unwound.
void end_without_memory() {
    log_last_words("out of memory\n");
    _exit(1);
}

// Started with closed descriptors, a socket or a settings file would become standard output.
bool open_standard_descriptors() {
    int fd = open("/dev/null", O_RDWR);
    while (fd >= 0 && fd <= STDERR_FILENO)
        fd = open("/dev/null", O_RDWR);
    if (fd > STDERR_FILENO)
        close(fd);
    return fd >= 0;
}

// A reader of the log that goes away, or a limit on file sizes, ends a line or a change, not the daemon. What
// the parent ignored is not inherited: the ends of commands must be seen.
void set_signals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGCHLD, SIG_DFL);
}

} // namespace

int main(int argc, char **argv) {
    const std::string_view first = argc > 1 ? argv[1] : "";
    // Before the portmapper is touched: asking for help must not unregister a running daemon.
    if (first == "-h" || first == "--help" || first == "--version") {
        std::fputs(first == "--version" ? "wlan-configd " WLAN_CONFIGD_VERSION "\n" : usage, stdout);
        return 0;
    }
    if (!open_standard_descriptors())
        return give_up("cannot open /dev/null.");
    if (first == "--unregister")
        return remove_left_over_registration() ? 0 : 1;
    Environment environment;
    std::set_new_handler(end_without_memory);
    set_signals();
    if (!read_environment(&environment)) // before the portmapper is touched, too
        return 1;
    open_settings_journal();
    pmap_unset(WLAN_CONFIG_RPC_PROG, WLAN_CONFIG_API_VERSION);
    const char *address = argc > 1 ? argv[1] : nullptr;
    if (address != nullptr)
        log_output("WLAN RPC Server IP addr " + escaped(address) + '\n');
    SVCXPRT *transport = create_transport(address, environment.port, environment.peers);
    if (transport == nullptr)
        return give_up("cannot create udp service.");
    wlan_resume();
    if (!svc_register(transport, WLAN_CONFIG_RPC_PROG, WLAN_CONFIG_API_VERSION, wlan_config_rpc_prog_1,
                      IPPROTO_UDP))
        return give_up("unable to register (WLAN_CONFIG_RPC_PROG, WLAN_CONFIG_API_VERSION, udp).");
    notify_ready();
    watch_registration(transport->xp_port);
    svc_run();
    return give_up("svc_run returned");
}
