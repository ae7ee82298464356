#pragma once

#include "client/commands.h"
#include "client/picture.h"
#include "client/snapshot.h"

// The gateway on one screen: the daemon, the radios, the BSSes. What cannot be read is left empty; an error
// means that the daemon cannot be asked.
Error take_status(Context &context, Picture &ret_picture);

// "none", "running", "failed" or "finished", of the radio's last survey; null where that is not known. The
// reading ap_scan_status is wanted for it.
Json scan_status_of(const Snapshot &gateway, std::int64_t index);
