#include "backend/driver_channel.h"

#include "backend/descriptor.h"
#include "backend/driver_state.h"
#include "backend/interfaces.h"
#include "backend/log.h"
#include "backend/shell.h"
#include "backend/text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <limits>
#include <linux/wireless.h>
#include <memory>
#include <string>
#include <sys/ioctl.h>
#include <sys/socket.h>

namespace {

constexpr unsigned long set_request = SIOCIWFIRSTPRIV + 2;
constexpr unsigned long wps_reset_request = SIOCIWFIRSTPRIV + 25;

// The driver is not told how much room there is for an answer, so each gets all that the request's length
// field of 16 bits can name. Too large for a worker's stack.
constexpr std::size_t longest_answer = std::numeric_limits<__u16>::max();

std::unique_ptr<char[]> make_buffer() { return std::make_unique<char[]>(longest_answer + 1); }

constexpr unsigned long number_of(PrivateRequest request) {
    return SIOCIWFIRSTPRIV + static_cast<unsigned long>(request);
}

iwreq make_request(const InterfaceName &ifname, void *data, std::size_t length) {
    iwreq request{};
    std::memcpy(request.ifr_ifrn.ifrn_name, ifname.data(), sizeof request.ifr_ifrn.ifrn_name);
    request.u.data.pointer = data;
    request.u.data.length = static_cast<__u16>(length);
    return request;
}

Descriptor open_socket() { return Descriptor(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)); }

Descriptor open_channel(const char *who) {
    Descriptor channel = open_socket();
    if (!channel.valid())
        log_error(socket_failed.text, who);
    return channel;
}

Status issue(const char *who, const Descriptor &channel, unsigned long number, const InterfaceName &ifname,
             iwreq *request) {
    if (ioctl(channel.get(), number, request) >= 0)
        return success;
    log_error("[ZAV-API] Error %s %s: ioctl failed %s (%d).\n", who, ifname.data(), strerror(errno), errno);
    return failure;
}

template <class Request>
Asked ask(unsigned long number, const InterfaceName &ifname, char (&request_name)[IFNAMSIZ],
          Request *request) {
    const Descriptor channel = open_socket();
    if (!channel.valid())
        return Asked::no_socket;
    std::memcpy(request_name, ifname.data(), sizeof request_name);
    return ioctl(channel.get(), number, request) < 0 ? Asked::refused : Asked::answered;
}

Status change_link(const char *who, int index, const char *state) {
    Bss bss;
    if (find_bss(index, &bss) != success)
        return failure;
    return run_command(who, std::string("ifconfig ").append(bss.name.data()).append(state).c_str(), {},
                       tool_deadline);
}

} // namespace

Status ZAV_Set(int index, const char *command) {
    log_debug("[ZAV-API] %s entry (index=%d).\n", __func__, index);
    if (!driver_is(DriverState::initialised))
        return success; // the settings file carries the value into the next init
    Bss bss;
    if (find_bss(index, &bss) != success) {
        log_error("[ZAV-API] Error %s invalid interface index: %d\n", __func__, index);
        return failure;
    }
    const Descriptor channel = open_channel(__func__);
    if (!channel.valid())
        return failure;
    std::string text(command); // the request's pointer is not const
    iwreq request = make_request(bss.name, text.data(), text.size() + 1);
    return issue(__func__, channel, set_request, bss.name, &request);
}

Status ZAV_Show(int index, const char *query, std::span<char> ret_reply) {
    log_debug("[ZAV-API] %s entry (index=%d, cmd=%s).\n", __func__, index, query);
    copy_text(ret_reply, "");
    Bss bss;
    const std::size_t length = std::strlen(query) + 1;
    if (find_bss(index, &bss) != success || length >= longest_answer)
        return failure;
    const Descriptor channel = open_channel(__func__);
    if (!channel.valid())
        return failure;
    const auto buffer = make_buffer();
    std::memcpy(buffer.get(), query, length);
    log_debug("[ZAV-API] %s (buffer=%s,len=%d).\n", __func__, buffer.get(), static_cast<int>(length));
    iwreq request = make_request(bss.name, buffer.get(), length);
    if (issue(__func__, channel, number_of(PrivateRequest::show), bss.name, &request) != success)
        return failure;
    // The answer's last byte is its terminator. A tab before the text is no part of it.
    const std::size_t answered = request.u.data.length;
    if (answered > 0)
        copy_text(ret_reply, {buffer.get() + (buffer[0] == '\t' ? 1 : 0), answered - 1});
    return success;
}

Status ZAV_InterfaceUp(int index) { return change_link(__func__, index, " up"); }

Status ZAV_InterfaceDown(int index) { return change_link(__func__, index, " down"); }

Asked ask_flags(const InterfaceName &ifname, unsigned *ret_flags) {
    ifreq request{};
    const Asked asked = ask(SIOCGIFFLAGS, ifname, request.ifr_name, &request);
    *ret_flags = static_cast<unsigned short>(request.ifr_flags);
    return asked;
}

Asked ask_bit_rate(const InterfaceName &ifname, int *ret_bits_a_second) {
    iwreq request{};
    const Asked asked = ask(SIOCGIWRATE, ifname, request.ifr_ifrn.ifrn_name, &request);
    *ret_bits_a_second = request.u.bitrate.value;
    return asked;
}

Status reset_wps(const char *who, const InterfaceName &ifname) {
    const Descriptor channel = open_channel(who);
    if (!channel.valid())
        return failure;
    iwreq request = make_request(ifname, nullptr, 0);
    return issue(who, channel, wps_reset_request, ifname, &request);
}

Status ask_private(const char *who, const InterfaceName &ifname, const PrivateCommand &command,
                   std::span<std::byte> ret_answer) {
    const std::size_t text_length = command.text == nullptr ? 0 : std::strlen(command.text) + 1;
    const std::size_t length = std::max(command.announced_length, text_length);
    if (std::max(length, ret_answer.size()) > longest_answer)
        return failure;
    const Descriptor channel = open_socket();
    if (!channel.valid()) {
        log_error(command.no_socket.text, who);
        return failure;
    }
    const auto buffer = make_buffer();
    std::memcpy(buffer.get(), command.text == nullptr ? "" : command.text, text_length);
    if (command.shown)
        log_debug("[ZAV-API] %s (buffer=%s,len=%d).\n", who, buffer.get(), static_cast<int>(length));
    iwreq request = make_request(ifname, buffer.get(), length);
    if (ioctl(channel.get(), number_of(command.request), &request) < 0) {
        log_error("[ZAV-API] Error %s ioctl failed %s (%d).\n", who, strerror(errno), errno);
        return failure;
    }
    std::copy_n(reinterpret_cast<const std::byte *>(buffer.get()), ret_answer.size(), ret_answer.data());
    return success;
}
