#pragma once

#include "backend/driver_state.h"

#include <optional>

// What is known of a loaded driver, in the file `driver` of $RUNTIME_DIRECTORY, for a daemon that is started
// again while the driver runs. It stands there as long as the driver is loaded, whole at any moment, and
// holds for one boot of the machine. Without the variable nothing is read or written.

// A record that cannot be written is removed, with an error line: better none than an old one.
void write_driver_record(const KnownDriver &driver);
void remove_driver_record();

// Nothing without a record; where there is one that cannot be taken, `*ret_oddity` says why.
std::optional<KnownDriver> read_driver_record(const char **ret_oddity);
