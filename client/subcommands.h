#pragma once

#include "client/commands.h"

#include <span>

// The subcommands of wlanctl: what the parser, the help and the completion read.

struct Flag {
    const char *name, *help;
    bool Options::*says;
    double Options::*seconds = nullptr; // where the flag takes some
};

enum class Takes : unsigned char { nothing, one_at_most, one, several };

struct Subcommand {
    const char *name, *help;
    Takes takes;
    const char *argument, *meaning; // of the first word
    std::span<const Flag> flags;
    const char *examples; // two lines
    int (*run)(Context &context, const Words &words);
    const char *words = "";    // that the first word can be, beside what the argument's name says
    bool is_for_people = true; // shown in the help
    bool in_batch = true;      // prints a line of JSON, and ends
};

std::span<const Subcommand> subcommands();
const Subcommand *find_subcommand(std::string_view name); // or null
