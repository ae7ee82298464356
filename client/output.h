#pragma once

#include "connection.h"
#include "error.h"
#include "rpc/protocol.h"

#include <vector>

// How wlanctl speaks: in lines for people, with --json in one object a command, with --raw in bare values.
struct Output {
    bool json = false;
    bool raw = false;
};

void print_procedures(const Output &output, const std::vector<const Procedure *> &procedures);
void print_procedure(const Output &output, const Procedure &procedure);

// Both return the exit status.
int print_answer(const Output &output, const Procedure &procedure, const Answer &answer);
int print_error(const Output &output, const Error &error);
