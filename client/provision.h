#pragma once

#include "client/commands.h"
#include "client/settings_file.h"

#include <optional>
#include <string>
#include <vector>

// Bringing a gateway to the settings of a file.

// A setting of the file, and what becomes of it.
struct Change {
    Item wanted, before{}, now{};
    std::string hindrance{};           // why it is not sent; empty: it can be
    bool sent = false;                 // a call that sets it, whatever came of that
    std::optional<Question> refused{}; // the last call that set it, where the daemon answered failure
};

bool differs(const Change &change); // now
bool was_set(const Change &change); // it has come to be as wanted
bool has_failed(const Change &change);

// Of the items, in the order in which they are set. What makes no sense is hindered unless forced.
std::vector<Change> changes_to(std::vector<Item> wanted, bool force);

// Reads what they are; the first time, also as what they were.
Error look(Connection &connection, std::vector<Change> &changes);

// Sets what differs, and again what has come to differ by that, until all is as wanted or nothing gets
// nearer.
Error bring_about(Connection &connection, std::vector<Change> &changes);

// All that can be set back, as it is.
Error take_snapshot(Context &context, std::vector<Item> &ret_items);
