#pragma once

#include "backend/driver_channel.h"
#include "backend/interfaces.h"
#include "backend/status.h"

#include <cstddef>
#include <span>

// What air time and radio statistics ask of the driver. Each says in a debug line, which names `who`, why it
// did not come to that.

Status find_bss_or_say(const char *who, int index, Bss *ret_bss);

// Where a BSS is spoken to: at its own interface or at that of its radio's air time.
using FindName = Status (*)(InterfaceName *ret_name, int index, unsigned *ret_bss);

// The driver's answer as ask_private has it; -1 also before the driver is initialised and for an index
// without a BSS.
Status ask_block(const char *who, FindName find, int index, const PrivateCommand &command,
                 std::span<std::byte> ret_block);

// Sends a command that has no answer, by the request 0x8BF1 when `kind` is 1, else by 0x8BE6. -1 before the
// driver is initialised.
Status SetDriverDataOnTheFly(const char *command, const InterfaceName &ifname, int kind);
