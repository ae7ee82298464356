#pragma once

#include "client/commands.h"

// Reads the words behind "wlanctl" and runs what they say; the exit status. A line of a batch keeps the
// connection, and what the context says holds for it unless it says otherwise.
int run_command_line(Context &context, const Words &words, bool in_batch = false);
