#pragma once

#include "client/connection.h"
#include "client/error.h"
#include "client/output.h"

#include <string>
#include <vector>

// One function a subcommand; all return the exit status.

struct Context {
    Connection connection;
    Output output;
};

int list(const Context &context, const std::string &word);
int describe(const Context &context, const std::string &name);

// Calls the procedure `prefix` + `name`, or `name` alone where that is the whole name.
int call(Context &context, const std::string &prefix, const std::string &name,
         const std::vector<std::string> &given);

// Loads the driver for "dual", "24" or "5", starts its initialisation and waits for the end. After Ctrl-C,
// it, `down` and `scan` say that the action goes on, and return 130.
int up(Context &context, const std::string &name);
// One radio, by the index or the name of any of its interfaces, or "all".
int restart(Context &context, const std::string &index);
int down(Context &context);

// Surveys the radio of the interface, waits for the end and prints the neighbours.
int scan(Context &context, const std::string &index);
int stations(Context &context, const std::string &index);
int stats(Context &context, const std::string &index);

// Reads the arguments of a call, given as on the command line.
Error take_arguments(Connection &connection, const Procedure &procedure,
                     const std::vector<std::string> &given, Values &ret_arguments);

// The procedure `prefix` + `name`, or `name` alone where that is the whole name; the error suggests others.
Error find_or_suggest(const std::string &prefix, const std::string &name, const Procedure *&ret_procedure);

// Prints the answer or, where it is a failure, that and what can be found out about it.
int print_outcome(const Context &context, const Procedure &procedure, const Values &arguments,
                  const Answer &answer);

// Calls the procedure; an error names it.
Error ask(Connection &connection, const Procedure &procedure, Values &arguments, Answer &ret_answer);
