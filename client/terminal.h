#pragma once

#include <cstdio>
#include <ctime>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <vector>

// Lines, tables and JSON, on a terminal or elsewhere.

using Json = nlohmann::ordered_json;
using Row = std::vector<std::string>;

bool is_terminal(std::FILE *stream);

// The text as that stream can take it.
std::string shown_on(std::FILE *stream, std::string_view text);

// The text in bold on a terminal, unless NO_COLOR is set.
std::string emphasis(std::string_view text);

void print_json(const Json &object);

// Adds a value; a text of any bytes that are not UTF-8 stands there in hexadecimal, too.
void add_value(Json &object, const std::string &key, const Json &value);

// Columns and lines; where there is no terminal, 80 and 24.
std::size_t width_of_terminal();
std::size_t height_of_terminal();

// The time as ISO 8601 has it, in UTC.
std::string moment(std::time_t time);

// The text in lines as wide as the terminal, each but the first behind the indent.
std::string wrapped(std::string_view text, std::size_t indent);
