#pragma once

#include <rpc/rpc.h>

// A UDP socket bound to the IPv4 address, port chosen by the kernel. Ends the process with status 1 when the
// address is none or the system refuses.
int build_rpc_sockt(const char *address);

// The library's datagram transport with decoding bounded to the bytes received; on the address, or on all
// local addresses for nullptr. nullptr when the library cannot create it.
SVCXPRT *create_transport(const char *address);
