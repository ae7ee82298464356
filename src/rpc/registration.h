#pragma once

#include <cstdint>

// Registers the daemon again where the portmapper has forgotten it, from a thread of its own. An error line
// says when the portmapper is away and when it is back.
void watch_registration(std::uint16_t port);
