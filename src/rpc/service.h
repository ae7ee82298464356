#pragma once

#include "rpc/records.h"

#include <rpc/rpc.h>
#include <variant>

// What the server procedures look like: the arguments in order, then the result to fill. 1 sends the reply.
using Code = wlan_config_return_code_e;
using Data = wlan_config_result_data_t;
using Action = int (*)(Code *);
using ActionByIndex = int (*)(int, Code *);
using SetFlag = int (*)(bool, Code *);
using SetShortByText = int (*)(const char *, unsigned short, Code *);
using SetBool = int (*)(int, bool, Code *);
using SetInt = int (*)(int, int, Code *);
using SetUnsigned = int (*)(int, unsigned, Code *);
using SetText = int (*)(int, const char *, Code *);
using SetTwoTexts = int (*)(int, const char *, const char *, Code *);
using SetIntOfText = int (*)(int, const char *, int, Code *);
using SetBoolOf = int (*)(int, int, bool, Code *);
using SetIntOf = int (*)(int, int, int, Code *);
using SetUnsignedOf = int (*)(int, int, unsigned, Code *);
using SetTextOf = int (*)(int, int, const char *, Code *);
using SetThreeInts = int (*)(int, int, int, int, Code *);
using GetNothing = int (*)(Data *);
using GetByText = int (*)(const char *, Data *);
using GetByIndex = int (*)(int, Data *);
using GetOf = int (*)(int, int, Data *);
using GetOfUnsigned = int (*)(int, unsigned, Data *);
using GetOfText = int (*)(int, const char *, Data *);
using GetOfTwo = int (*)(int, int, int, Data *);

using ServerProcedure =
    std::variant<Action, ActionByIndex, SetFlag, SetShortByText, SetBool, SetInt, SetUnsigned, SetText,
                 SetTwoTexts, SetIntOfText, SetBoolOf, SetIntOf, SetUnsignedOf, SetTextOf, SetThreeInts,
                 GetNothing, GetByText, GetByIndex, GetOf, GetOfUnsigned, GetOfText, GetOfTwo>;

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
