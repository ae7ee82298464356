#pragma once

#include "client/error.h"
#include "rpc/codec.h"

#include <chrono>
#include <functional>
#include <netinet/in.h>
#include <span>
#include <string>

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

// Where calls of a program go to: the portmapper is asked by the same means as the daemon.
struct Server {
    std::string who; // for messages
    sockaddr_in address;
    rpcprog_t program;
    rpcvers_t version;
    Seconds timeout; // of each call
    // Asked some times a second while replies are waited for; false ends the calls. None: wait for the
    // time-out.
    const std::function<bool()> &goes_on;
};

struct Exchange {
    rpcproc_t procedure;
    Message arguments, result;
    Seconds resend_after; // as long as the time-out or longer: it is sent once
    Error error{};
};

// Makes the calls over UDP, some on the way at a time. The results are the caller's to free, also after an
// error. The RPC library's own call is not used: it keeps every signal off until the time is over, and makes
// one call after the other.
void exchange_all(const Server &server, std::span<Exchange> calls);
