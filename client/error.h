#pragma once

#include <string>

// What can go wrong before the daemon has answered; the values are wlanctl's exit statuses. (1 is left for an
// answer that says failure.)
enum class Trouble : int { none = 0, usage = 2, timeout = 3, unreachable = 4, protocol = 5 };

struct [[nodiscard]] Error {
    Trouble trouble = Trouble::none;
    std::string message{};

    explicit operator bool() const { return trouble != Trouble::none; }
};
