#pragma once

#include "client/commands.h"

// What the subcommands have in common: from words to a call.

// The procedure `prefix` + `name`, or `name` alone where that is the whole name; the error suggests others.
Error find_or_suggest(const std::string &prefix, const std::string &name, const Procedure *&ret_procedure);
// That there is none of this name, and which are near.
Error unknown(std::string_view prefix, std::string_view name);

// Reads the arguments of a call, given as on the command line. Unless forced, it refuses what makes no sense,
// and an index beyond the gateway's interfaces. The daemon is asked only after everything else has been found
// right.
Error take_arguments(Context &context, const Procedure &procedure, const Words &given, Values &ret_arguments);

// The names of the interfaces; an error where there is none, which says why where that can be seen.
Error find_some_names(Context &context);

// The interface that the call or its answer is about, with its name where that is told and of use.
Subject subject_of(Context &context, const Procedure &procedure, const Values &arguments,
                   const Answer &answer);

// The stations of the interface's radio, each with the name of its own interface.
Json with_interfaces(const Gateway &gateway, std::int64_t index, Json stations);

// Calls the procedure; an error names it, and says so where it is not known whether an action was done.
Error ask(Connection &connection, const Procedure &procedure, const Values &arguments, Answer &ret_answer);
