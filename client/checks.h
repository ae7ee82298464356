#pragma once

#include "client/error.h"
#include "client/knowledge.h"
#include "client/values.h"

// Whether the daemon takes the value, as far as its range or length says.
bool is_taken(const ValueMeaning &meaning, const Value &value);

// Refuses what the daemon would take but no radio can mean, by what the description calls sensible.
Error check_arguments(const Procedure &procedure, const Values &arguments);
