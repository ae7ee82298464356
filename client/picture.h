#pragma once

#include "client/output.h"
#include "client/table.h"

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

// What a command shows, for people and for programs.
struct Picture {
    std::string text{}; // lines above the tables
    std::vector<Table> tables{};
    Json value = Json::object();
};

// A column of a table that is made of objects.
struct Column {
    const char *heading, *key;
};

// A row an object. What is not known is a dash, true and false are yes and no.
Table table_of(const Json &objects, const std::vector<Column> &columns);
std::string cell_of(const Json &value);

// The exit status.
int print_picture(const Output &output, const Picture &picture);

// Takes lines from the end until no more than so many are left, and says how many are gone.
void fit(Picture &picture, std::size_t lines);
