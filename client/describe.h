#pragma once

#include "client/knowledge.h"
#include "client/output.h"
#include "client/values.h"
#include "rpc/protocol.h"

#include <string>
#include <vector>

// A line each: number, name, arguments, answer, summary.
int print_procedures(const Output &output, const std::vector<const Procedure *> &procedures);

// All that the description says, on a screen each.
void print_procedure(const Output &output, const Procedure &procedure);

// "look with: wlanctl get status 1", which shows whether an action was done; without arguments, of any index.
std::string look_of(const Procedure &procedure, const Values &arguments = {});

// "8 to 63 bytes", "1 to 4", ... of what an argument or an answer can be; empty where nothing is known.
std::string values_line(const ValueMeaning &value);
