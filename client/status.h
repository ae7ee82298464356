#pragma once

#include "client/commands.h"
#include "client/picture.h"

// The gateway on one screen: the daemon, the radios, the BSSes. What cannot be read is left empty; an error
// means that the daemon cannot be asked.
Error take_status(Context &context, Picture &ret_picture);
