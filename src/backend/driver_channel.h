#pragma once

#include "backend/interfaces.h"
#include "backend/line.h"
#include "backend/status.h"

#include <array>
#include <cstddef>
#include <span>

// The only place that issues driver requests. Each opens a socket of its own and closes it.

// Applies a command of the form key=value to the interface. 0 applied, or dropped because the driver is not
// initialised yet; -1 failure, with an error line.
Status ZAV_Set(int index, const char *command);

// Asks the driver and returns its text, cut at the buffer and terminated. -1 with an error line; after a
// failure or an empty answer the buffer holds the empty text. Does not ask whether the driver is initialised.
Status ZAV_Show(int index, const char *query, std::span<char> ret_reply);

// `ifconfig` up and down of the interface.
Status ZAV_InterfaceUp(int index);
Status ZAV_InterfaceDown(int index);

// Standard requests. What came of them is for the caller to report; errno tells why one was refused.
enum class Asked { answered, no_socket, refused };
Asked ask_flags(const InterfaceName &ifname, unsigned *ret_flags); // IFF_UP and so on
Asked ask_bit_rate(const InterfaceName &ifname, int *ret_bits_a_second);

// Requests that are answered in a buffer, by their distance from the first private one.
enum class PrivateRequest : unsigned char {
    statistics = 6,
    survey = 12,
    stations = 15,
    show = 17,
    wps_device = 18
};

// (A constant of its own: clang 14 would build the line of a default anew at run time.)
inline constexpr Line<const char *> socket_failed = "[ZAV-API] Error %s socket failed";

struct PrivateCommand {
    PrivateRequest request;
    const char *text = nullptr;       // stands in the buffer before the answer; none: nothing does
    std::size_t announced_length = 0; // to the driver; 0: that of the text with its terminator
    bool shown = true;                // with a debug line
    Line<const char *> no_socket = socket_failed; // the error line, which names `who`
};

// Sends the command and copies out as much of the answer as is asked for, up to 65535 bytes; what the driver
// did not write of it is zero, but for the command's own text. A survey lasts seconds. -1 with an error line
// that names `who`, and nothing copied.
Status ask_private(const char *who, const InterfaceName &ifname, const PrivateCommand &command,
                   std::span<std::byte> ret_answer);

// Puts the radio's WPS back into its state out of the box. 0, or -1 with an error line that names `who`.
Status reset_wps(const char *who, const InterfaceName &ifname);
