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
// Writes the error line that is due; call it at once, for errno. 0 where the driver answered, else -1.
Status report_asked(const char *who, Asked asked,
                    Line<const char *> no_socket = "[ZAV-API] Error %s socket failed");
Asked ask_flags(const InterfaceName &ifname, unsigned *ret_flags); // IFF_UP and so on
Asked ask_bit_rate(const InterfaceName &ifname, int *ret_bits_a_second);

// The driver's words about the device, cut at the buffer and terminated; no answer has more room than this.
constexpr std::size_t wps_device_room = 501;
Asked ask_wps_device(const InterfaceName &ifname, std::span<char> ret_answer);
// Puts the radio's WPS back into its state out of the box. 0, or -1 with an error line that names `who`.
Status reset_wps(const char *who, const InterfaceName &ifname);

// A site survey: the driver scans within the call, which takes seconds. The buffer holds zeros before.
using SurveyAnswer = std::array<char, 8232>;
Asked ask_survey(const InterfaceName &ifname, SurveyAnswer *ret_answer);

// Requests whose command and answer share a buffer, by their distance from the first private one.
enum class PrivateRequest : unsigned char { statistics = 6, stations = 15, show = 17 };

struct PrivateCommand {
    PrivateRequest request;
    const char *text;
    std::size_t announced_length = 0; // to the driver; 0: that of the text with its terminator
    bool shown = true;                // with a debug line
};

// Sends the command and copies out as much of the answer as is asked for; what the driver did not write of
// its first 9104 bytes is zero, but for the command's own text. -1 with an error line that names `who`, and
// nothing copied.
Status ask_private(const char *who, const InterfaceName &ifname, const PrivateCommand &command,
                   std::span<std::byte> ret_answer);
