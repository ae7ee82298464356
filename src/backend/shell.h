#pragma once

#include "backend/status.h"

#include <functional>
#include <mutex>
#include <string_view>

// The only place that starts a process. Commands run through /bin/sh exactly as written, with descriptors 0,
// 1 and 2 only, no blocked signals and default signal actions. Each call waits for the end of its command.

// Logs and runs `command`. 0 when its exit status is 0 (or a signal ended the shell); -1 when the shell could
// not be started or, with an error line that names `who`, on any other exit status.
// A lock that is handed over ends as soon as the command has begun.
Status run_command(const char *who, const char *command, std::unique_lock<std::mutex> held = {});

// Runs `command` and hands over its output, a line at a time without the line feed and cut at 255 bytes. -1
// only when the shell could not be started or its output not be read: the exit status is not looked at.
Status read_command(const char *command, const std::function<void(std::string_view line)> &take_line);

// Runs `command` without a word about it. Its exit status, 127 where the shell found no program, or -1 when
// the shell could not be started.
int run_unchecked(const char *command);
