#pragma once

#include <cstdint>

// Registers the daemon again where the portmapper has forgotten it, from a thread of its own. An error line
// says when the portmapper is away and when it is back.
void watch_registration(std::uint16_t port);

// Takes out a registration whose port nobody serves any more, as a killed daemon leaves it. False, with a
// message, when the portmapper does not answer or refuses.
bool remove_left_over_registration();
