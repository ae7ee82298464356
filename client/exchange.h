#pragma once

#include "client/error.h"
#include "rpc/codec.h"

#include <chrono>
#include <functional>
#include <netinet/in.h>

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

// One call of any program over UDP: the portmapper is asked by the same means as the daemon.
struct Request {
    const char *who; // for messages
    sockaddr_in address;
    rpcprog_t program;
    rpcvers_t version;
    rpcproc_t procedure;
    Seconds timeout, resend_after;
    // Asked some times a second while there is no reply; false ends the call. None: wait for the time-out.
    const std::function<bool()> &goes_on;
};

// The results are the caller's to free, also after an error. The RPC library's own call is not used: it keeps
// every signal off until the time is over, and sends again whatever it does not take for the reply.
Error exchange(const Request &request, Message arguments, Message result);
