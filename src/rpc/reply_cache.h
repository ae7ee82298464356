#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <netinet/in.h>
#include <span>

// The last replies of what must not run twice. A client that has missed a reply sends its request again, byte
// for byte and from the same port, and gets the same reply again. Another request never does, whatever its
// number.
class ReplyCache {
public:
    // What the daemon has spent waiting for requests. While it works, repetitions that have come stand behind
    // other requests: a reply must not grow old by that.
    using Waited = std::chrono::nanoseconds;
    // Clients send again every few seconds (the RPC library's after 5), and a reply may be lost twice.
    static constexpr std::chrono::seconds lifetime{10};
    static constexpr std::size_t most = 64;
    // The longest header has 840 bytes, and no such procedure does anything for arguments that do not fit
    // behind it. A reply is a header, which may repeat 400 bytes of the call's, and a code with four zeros.
    static constexpr std::size_t longest_request = 1024, longest_reply = 512;

    // Empty when there is none.
    std::span<const char> find(const sockaddr_in &peer, std::span<const char> request, Waited now) const;
    // In the place of the oldest. What is longer is not kept.
    void keep(const sockaddr_in &peer, std::span<const char> request, std::span<const char> reply,
              Waited now);

private:
    struct Kept {
        sockaddr_in peer;
        Waited time;
        std::size_t request_length, reply_length; // zeros: none is kept here
        std::array<char, longest_request> request;
        std::array<char, longest_reply> reply;
    };
    std::array<Kept, most> kept_{};
    std::size_t oldest_ = 0;
};
