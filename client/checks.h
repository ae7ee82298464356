#pragma once

#include "client/error.h"
#include "client/values.h"

// Refuses what the daemon would take but no radio can mean, by what the description calls sensible.
Error check_arguments(const Procedure &procedure, const Values &arguments);
