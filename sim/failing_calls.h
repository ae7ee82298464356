#pragma once

#include <atomic>

// What a preloaded library and the drill that makes the daemon's calls fail share, in a file.

enum class CallKind : int { none, allocation, thread, pipe, socket, ioctl, spawn, open };

struct FailingCalls {
    static constexpr char file[] = "/tmp/failing_calls";

    std::atomic<CallKind> kind; // which calls are counted; `none` after one has failed
    std::atomic<int> left;      // the one that this comes to 0 at fails
    std::atomic<int> failed;
};
