#pragma once

#include "client/error.h"
#include "client/output.h"
#include "client/terminal.h"

struct Table {
    Row heading; // in capitals, a unit in brackets behind
    std::vector<Row> rows;
};

// Prints it: aligned on a terminal, elsewhere lines with tabs. The heading is left out where the user has
// said so, and with bare values. The columns are those that the user chose, by name: "signal" of "SIGNAL
// (dBm)". Returns the exit status.
int print_table(const Output &output, const Table &table);

// The name of a column to choose it by: small letters, _ for a blank, without its unit.
std::string column_name(std::string_view heading);
