#pragma once

#include "client/connection.h"
#include "client/error.h"
#include "client/terminal.h"
#include "rpc/protocol.h"

#include <string>
#include <utility>
#include <vector>

// How wlanctl speaks: in lines for people, with --json in one object a command, with --raw in bare values.
struct Output {
    bool json = false;
    bool raw = false;
    bool show_secrets = false;          // else only --raw shows them
    bool header = true;                 // of tables
    bool one_line_a_row = false;        // of tables: where the terminal is too narrow, the end is cut
    std::vector<std::string> columns{}; // of tables, chosen by name; none: all
};

// Of a change whose radio was restarted (whether the platform's script succeeded is not told); whose restart
// was asked for, and no end of it seen; that waits for the driver.
inline constexpr char restarted[] = "restarted", restart_asked[] = "restart asked for, its end not seen",
                      with_driver[] = "when the driver comes up";

// When a change acts, and the command that makes it: "at the next restart", "wlanctl restart zv00".
struct Acts {
    std::string when{}, by{};
    Error failed{}; // to make it act, though that was wanted, or to find out
};

// The interface that a call was about; 0: none.
struct Subject {
    std::int64_t index = 0;
    std::string interface {};
};

// The value that the answer, no failure, has: a number, a text of any bytes, or an object of the record's
// fields.
Json value_of(const Procedure &procedure, const Answer &answer);

// Whether what the procedure answers is a secret that is not to be shown.
bool is_masked(const Output &output, const Procedure &procedure);

// An error where the tables of its answer lack a column that the user chose.
Error check_columns(const Output &output, const Procedure &procedure);

// All return the exit status. The answer is no failure.
int print_answer(const Output &output, const Procedure &procedure, const Answer &answer,
                 const Subject &subject = {}, const Acts &acts = {});
// What it prints with --json.
Json answer_json(const Output &output, const Procedure &procedure, const Answer &answer,
                 const Subject &subject = {}, const Acts &acts = {});
// Records that belong together, as one; none of the answers is a failure.
int print_records(const Output &output, const Subject &subject,
                  const std::vector<std::pair<const Procedure *, Answer>> &answers);
// The call that would be made.
void print_call(const Output &output, const Procedure &procedure, const Values &arguments);
// What is known of the procedure and the code stands in JSON; `causes` is an array of it.
int print_error(const Output &output, const Error &error, const Procedure *procedure = nullptr);
void print_error_json(Trouble trouble, const std::string &message, const Procedure *procedure,
                      const int *code, const Json &causes);
// The form that every failure has in JSON.
Json error_json(const Error &error, const Procedure *procedure, const int *code, const Json &causes);
