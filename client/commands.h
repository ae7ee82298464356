#pragma once

#include "client/connection.h"
#include "client/error.h"
#include "client/gateway.h"
#include "client/output.h"

#include <string>
#include <string_view>
#include <vector>

// One function a subcommand; all return the exit status.

// What the flags of the subcommands say.
struct Options {
    bool force = false;          // send what makes no sense, too
    bool dry_run = false;        // show the calls, and make none that changes anything
    bool restart = false;        // after a change that acts at a restart
    bool yes = false;            // to what resets settings
    bool all_or_nothing = false; // put everything back after a failure
    bool keep_going = false;     // after a line that failed
    bool chart = false;          // a picture of the band in place of the table
    double interval = 2;         // seconds from one look to the next
    bool input_taken = false;    // standard input has the lines of a batch
};

// An option of all subcommands, as the parser knows it.
struct CommonOption {
    std::string name, help;
    bool takes_value;
};

struct Context {
    Connection connection{};
    Output output{};
    Options options{};
    Gateway gateway{};
    std::vector<CommonOption> common{};
};

// The words behind the subcommand.
using Words = std::vector<std::string>;

int list(Context &context, const Words &words);
int describe(Context &context, const Words &words);

// Call a procedure by its name, with or without wlan_; of a setting, by its name alone.
int call(Context &context, const Words &words);
int get(Context &context, const Words &words);
int set(Context &context, const Words &words);

// Loads the driver for "dual" (the default), "24" or "5", starts its initialisation and waits for the end.
// After Ctrl-C, it, `down` and `scan` say that the action goes on, and return 130.
int up(Context &context, const Words &words);
// One radio, by the index or the name of any of its interfaces, or "all". Unless forced, it refuses an index
// for which the daemon would restart another radio.
int restart(Context &context, const Words &words);
int down(Context &context, const Words &words);
// Put settings back to those of the factory.
int restore_defaults(Context &context, const Words &words);
int wps_oob(Context &context, const Words &words);

// The gateway on one screen; what cannot be read is a dash, or null.
int status(Context &context, const Words &words);
// Shows what the words name (status, stations, stats, scan; of an interface where one follows) again and
// again: on a terminal afresh, in JSON a line a change. A daemon that goes away after the first look is
// waited for; Ctrl-C ends it with 130.
int watch(Context &context, const Words &words);
// Whether that can be watched of one interface.
bool can_watch_one(std::string_view what);
// All that is counted and measured, in Prometheus' text format. Where the daemon does not answer, wlan_up is
// 0 and the status that of the error.
int metrics(Context &context, const Words &words);

// Surveys the radio of the interface, waits for the end and prints the neighbours.
int scan(Context &context, const Words &words);
int stations(Context &context, const Words &words);
int stats(Context &context, const Words &words);

// Walks the road to a working gateway up to the first broken plank. 1 where there is one, not for warnings.
int doctor(Context &context, const Words &words);

// For the completion of a shell, which is the first word: prints a line for each word that can stand in the
// place of the last of the others, the words of a command line.
int complete(Context &context, const Words &words);
// All settings as a file, or those of a BSS and its radio; what differs from such a file (status 1 if
// anything does); setting that.
int export_settings(Context &context, const Words &words);
int diff(Context &context, const Words &words);
int import_settings(Context &context, const Words &words);

// Runs commands, one a line of a file or of standard input.
int batch(Context &context, const Words &words);

// Prints the answer or, where it is a failure, that and what can be found out about it. After a change, when
// it acts; where --restart is said, it is made to act.
int print_outcome(Context &context, const Procedure &procedure, const Values &arguments,
                  const Answer &answer);
