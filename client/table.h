#pragma once

#include "client/error.h"
#include "client/output.h"
#include "client/terminal.h"

#include <string>
#include <string_view>
#include <vector>

struct Table {
    Row heading; // in capitals, a unit in brackets behind
    std::vector<Row> rows;
};

// Prints the text and behind it the tables: aligned on a terminal, elsewhere lines with tabs. The heading is
// left out where the user has said so, and with bare values. The columns are those that the user chose, by
// name: "signal" of "SIGNAL (dBm)"; a table without any of them is left out. Returns the exit status.
int print_tables(const Output &output, std::string_view text, const std::vector<Table> &tables);
int print_table(const Output &output, const Table &table);

// An error where a column that the user chose is in none of the headings; nothing is to be printed or changed
// then. Where there is no table, or JSON, no column matters.
Error check_columns(const Output &output, const std::vector<Row> &headings);

// The name of a column to choose it by: small letters, _ for a blank, without its unit.
std::string column_name(std::string_view heading);
