#pragma once

#include <string>

// What can go wrong; the values are wlanctl's exit statuses. (An answer that says failure counts as failed
// too.)
enum class Trouble : int {
    none = 0,
    failed = 1,
    usage = 2,
    timeout = 3,
    unreachable = 4,
    garbled = 5,
    interrupted = 130, // as a shell tells it
};

struct [[nodiscard]] Error {
    Trouble trouble = Trouble::none;
    std::string message{};

    explicit operator bool() const { return trouble != Trouble::none; }
};
