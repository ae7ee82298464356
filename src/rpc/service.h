#pragma once

#include "rpc/records.h"

#include <rpc/rpc.h>
#include <variant>

// What the server procedures look like: the arguments in order, then the result to fill. 1 sends the reply.
using Action = int (*)(wlan_config_return_code_e *);
using ActionByIndex = int (*)(int, wlan_config_return_code_e *);
using GetNothing = int (*)(wlan_config_result_data_t *);
using GetByText = int (*)(const char *, wlan_config_result_data_t *);
using SetShortByText = int (*)(const char *, unsigned short, wlan_config_return_code_e *);
using GetByIndex = int (*)(int, wlan_config_result_data_t *);
using SetBool = int (*)(int, bool, wlan_config_return_code_e *);
using SetUnsigned = int (*)(int, unsigned, wlan_config_return_code_e *);
using SetText = int (*)(int, const char *, wlan_config_return_code_e *);

using ServerProcedure = std::variant<Action, ActionByIndex, GetNothing, GetByText, SetShortByText, GetByIndex,
                                     SetBool, SetUnsigned, SetText>;

// Joined to the protocol's row by number.
struct Service {
    unsigned number;
    ServerProcedure procedure;
};

// nullptr for a number that has no procedure.
const Service *find_service(unsigned number);

// Serves one request; the library calls it.
extern "C" void wlan_config_rpc_prog_1(svc_req *request, SVCXPRT *transport);

// Releases what a server procedure allocated into the result; always 1.
int wlan_config_rpc_prog_1_freeresult(SVCXPRT *transport, xdrproc_t codec, void *result);
