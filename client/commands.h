#pragma once

#include "connection.h"
#include "error.h"
#include "output.h"

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
