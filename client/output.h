#pragma once

#include "client/connection.h"
#include "client/error.h"
#include "rpc/protocol.h"

#include <utility>
#include <vector>

// How wlanctl speaks: in lines for people, with --json in one object a command, with --raw in bare values.
struct Output {
    bool json = false;
    bool raw = false;
    bool show_secrets = false; // else only --raw shows them
};

// All return the exit status. The answer is no failure.
int print_answer(const Output &output, const Procedure &procedure, const Answer &answer);
// Records that belong together, as one; none of the answers is a failure.
int print_records(const Output &output, const std::vector<std::pair<const Procedure *, Answer>> &answers);
int print_error(const Output &output, const Error &error);
