#pragma once

#include <string>
#include <string_view>
#include <vector>

// What is wrong in the text of a settings file, a line for each kind of fault, without any value: a ticket
// may show it. Empty: nothing.
std::vector<std::string> faults_of_settings(std::string_view text);
