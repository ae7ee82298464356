#pragma once

#include "backend/status.h"

#include <array>

// Entry points that no procedure reaches; other parts of the platform may call them.

// For platforms with weights of stations: tells the driver, if the station is there, and stores the weight (0
// to 100) or removes it (-1).
Status zavChangeOrRemoveStaWeight(int index, const char *mac, int weight);

// A debug line with a counter for each of the access categories and management, and their sum.
void print_access_categories(const char *title, const std::array<unsigned long, 5> &counters);
