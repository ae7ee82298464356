#pragma once

#include "rpc/peers.h"

#include <cstdint>
#include <rpc/rpc.h>

// A UDP socket bound to the IPv4 address; port 0 lets the kernel choose. Ends the process with status 1 when
// the address is none or the system refuses.
int build_rpc_sockt(const char *address, std::uint16_t port = 0);

// The datagram transport, on the address, or on all local addresses for nullptr. There is one in a process.
// nullptr when the library cannot create it.
SVCXPRT *create_transport(const char *address, std::uint16_t port, Peers peers);
