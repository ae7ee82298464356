#pragma once

#include <atomic>

// Set while the driver runs. Before that, driver set commands are dropped and only the settings files change.
inline std::atomic<bool> driver_initialised{false};
