#pragma once

#include "backend/status.h"

#include <chrono>
#include <functional>
#include <mutex>
#include <string_view>

// The only place that starts a process. Commands run through /bin/sh exactly as written, with descriptors 0,
// 1 and 2 only, no blocked signals and default signal actions, in a process group of their own. Each call
// waits for the end of its command, but no longer than its deadline: then the group is ended (SIGTERM, two
// seconds, SIGKILL), with an error line that names `who`. What a command in time left in the background lives
// on.

inline constexpr std::chrono::seconds tool_deadline{10};
inline constexpr std::chrono::minutes script_deadline{10};

// Logs and runs `command`. 0 when its exit status is 0 (or a signal ended the shell); -1 when the shell could
// not be started, the deadline passed or, with an error line that names `who`, on any other exit status.
// A lock that is handed over ends as soon as the command has begun.
Status run_command(const char *who, const char *command, std::unique_lock<std::mutex> held = {},
                   std::chrono::seconds deadline = script_deadline);

// Runs `command` and hands over its output, a line at a time without the line feed and cut at 255 bytes. -1
// only when the shell could not be started, its output not be read, or the deadline passed: the exit status
// is not looked at. What the command leaves in the background is not waited for, though it holds the output
// open.
Status read_command(const char *who, const char *command, std::chrono::seconds deadline,
                    const std::function<void(std::string_view line)> &take_line);

// Runs `command` without a word about its end. Its exit status, 127 where the shell found no program, or -1
// when the shell could not be started or the deadline passed.
int run_unchecked(const char *who, const char *command, std::chrono::seconds deadline);
