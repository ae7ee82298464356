#include "client/command_line.h"

#include "client/subcommands.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstring>
#include <fmt/format.h>

namespace {

constexpr char description[] = "Reads and changes the Wi-Fi settings of a gateway that runs wlan-configd.";
constexpr char examples[] =
    "INDEX counts the interfaces from 1; wherever it is asked for, a name such as zvi01 may be given.\n"
    "A text given as - is read from standard input and as @FILE from a file, without one closing line feed;\n"
    "@@text is the text @text. After -- nothing is an option: values that begin with a dash go there\n"
    "(negative numbers need none).\n\n"
    "Examples:\n"
    "  wlanctl list ssid                          procedures with \"ssid\" in their name\n"
    "  wlanctl describe wlan_set_ssid             what it takes and answers\n"
    "  wlanctl get ssid 2                         calls wlan_get_ssid\n"
    "  wlanctl set ssid zvi01 \"My Net\"            calls wlan_set_ssid\n"
    "  wlanctl set ssid 2 -- \"-- odd --\"          a value with dashes\n"
    "  printf %s \"$name\" | wlanctl set ssid 2 -   a value kept off the command line\n"
    "  wlanctl --json call get_number_of_entries\n\n"
    "Exit status: 0 done, unchanged or in progress; 1 the daemon answered failure, a scan failed, doctor\n"
    "found something broken, diff a difference, or import did not set all; 2 usage; 3 no reply in time;\n"
    "4 not registered or unreachable; 5 reply not understood; 130 after Ctrl-C, which ends watch, and\n"
    "while an action (up, down, scan, --restart) goes on.";

constexpr double longest_timeout = 86400, shortest_interval = 0.25;

// The arguments of calls are kept out of the parser, which gives brackets and commas a meaning of its own.
struct WithArguments : CLI::Formatter {
    std::string make_usage(const CLI::App *app, std::string name) const override {
        std::string usage = CLI::Formatter::make_usage(app, std::move(name));
        if (app->get_option_no_throw("NAME") != nullptr && app->get_name() != "describe")
            usage.insert(usage.find_last_not_of('\n') + 1, " ARG...");
        if (app->get_option_no_throw("WHAT") != nullptr)
            usage.insert(usage.find_last_not_of('\n') + 1, " [INDEX]");
        return usage;
    }
};

struct CommandLine {
    Context &context;
    bool in_batch;
    std::string first{}; // the word behind the subcommand, where it takes one
    CLI::App app{description, "wlanctl"};
};

void add(CommandLine &line, const Subcommand &subcommand) {
    CLI::App *const added = line.app.add_subcommand(subcommand.name, subcommand.help)->fallthrough();
    if (!subcommand.is_for_people)
        added->group("");
    if (subcommand.takes != Takes::nothing)
        added->add_option(subcommand.argument, line.first, subcommand.meaning)
            ->required(subcommand.takes != Takes::one_at_most);
    for (const Flag &flag : subcommand.flags)
        if (flag.seconds == nullptr)
            added->add_flag(flag.name, line.context.options.*flag.says, flag.help);
        else
            added->add_option(flag.name, line.context.options.*flag.seconds, flag.help)
                ->capture_default_str();
    std::string footer = fmt::format("Examples:\n  {}", subcommand.examples);
    footer.replace(footer.rfind('\n'), 1, "\n  ");
    added->footer(footer +
                  "\n\nwlanctl --help shows the options of all commands and what INDEX and ARG can be.");
}

// What a whole run has in common; a line of a batch has no say in it.
void add_options_of_run(CommandLine &line) {
    Connection &connection = line.context.connection;
    CLI::App &app = line.app;
    app.set_version_flag("--version", "wlanctl " WLANCTL_VERSION);
    app.add_option("--host", connection.host, "where the daemon runs (127.0.0.1)")->type_name("HOST");
    app.add_option("--port", connection.port, "its UDP port (asked of the portmapper)")
        ->check(CLI::Range(1, 65535).description(""))
        ->type_name("PORT");
    app.add_option("--timeout", connection.timeout, "to wait for a reply (5; up and down: 600)")
        ->type_name("SECONDS");
}

void set_up(CommandLine &line) {
    Output &output = line.context.output;
    CLI::App &app = line.app;
    const auto formatter = std::make_shared<WithArguments>();
    formatter->label("TEXT", "");
    formatter->label("REQUIRED", "");
    formatter->label("Positionals", "Arguments");
    app.formatter(formatter);
    app.footer(examples);
    app.require_subcommand(1);
    app.allow_extras();
    if (line.in_batch)
        app.set_help_flag();
    else
        add_options_of_run(line);
    app.add_flag("--json", output.json, "print JSON, also for an error");
    app.add_flag("-r,--raw", output.raw, "print the bare value, also of a secret");
    app.add_flag("--show-secrets", output.show_secrets, "print keys, passphrases and PINs");
    app.add_option("--columns", output.columns, "columns of a table, with commas between")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->type_name("NAMES");
    app.add_flag_callback(
        "--no-header", [&output] { output.header = false; }, "leave the heading of a table out");
    for (const Subcommand &each : subcommands())
        add(line, each);
    if (line.in_batch)
        return;
    for (const CLI::Option *option : app.get_options())
        line.context.common.push_back(
            {option->get_name(), option->get_description(), option->get_items_expected_max() > 0});
}

bool looks_like_option(const std::string &word) {
    return word.size() > 1 && word[0] == '-' && std::strchr("0123456789", word[1]) == nullptr;
}

// What the parser lets pass.
Error check(const CommandLine &line, const std::vector<std::string> &words) {
    const auto option = std::find_if(words.begin(), words.end(), looks_like_option);
    if (option != words.end())
        return {Trouble::usage, fmt::format("unknown option{}; values that begin with - go behind --",
                                            option->starts_with("--") ? " " + *option : "")};
    const double timeout = line.context.connection.timeout.value_or(usual_patience);
    if (!(timeout > 0 && timeout <= longest_timeout))
        return {Trouble::usage,
                fmt::format("--timeout takes seconds, above 0 and up to {}", longest_timeout)};
    const double interval = line.context.options.interval;
    if (!(interval >= shortest_interval && interval <= longest_timeout))
        return {Trouble::usage,
                fmt::format("--interval takes seconds, {} to {}", shortest_interval, longest_timeout)};
    return {};
}

int run(CommandLine &line, const Words &given) {
    const CLI::App *const parsed = line.app.get_subcommands().front();
    const std::string name = parsed->get_name();
    const Subcommand *const subcommand = find_subcommand(name); // it has parsed it, so there is one
    if (line.in_batch && !subcommand->in_batch)
        return print_error(line.context.output,
                           {Trouble::usage, fmt::format("'{}' is not for a batch", name)});
    if (subcommand->takes != Takes::several && !given.empty())
        return print_error(line.context.output,
                           {Trouble::usage, fmt::format("'{}' is too much", given.front())});
    Words words = given;
    if (subcommand->takes != Takes::nothing && parsed->get_option(subcommand->argument)->count() > 0) {
        const bool is_part = subcommand->argument == std::string_view("WORD"); // of every name, if empty
        if (line.first.empty() && !is_part)
            return print_error(line.context.output,
                               {Trouble::usage, fmt::format("{} is empty", subcommand->argument)});
        words.insert(words.begin(), line.first);
    }
    return subcommand->run(line.context, words);
}

} // namespace

int run_command_line(Context &context, const Words &words, bool in_batch) {
    const auto dashes = std::find(words.begin(), words.end(), "--");
    CommandLine line{context, in_batch};
    set_up(line);
    Error error;
    try {
        line.app.parse(Words(std::make_reverse_iterator(dashes), words.rend()));
    } catch (const CLI::Success &help) {
        return line.app.exit(help);
    } catch (const CLI::ParseError &wrong) {
        error = {Trouble::usage, fmt::format("{} (see wlanctl --help)", wrong.what())};
    }
    Words given = line.app.remaining();
    if (Error found = check(line, given))
        error = found;
    else if (error && line.app.get_subcommands().empty() && !given.empty())
        error.message = fmt::format("no command '{}' (see wlanctl --help)", given.front());
    if (error) {
        // Found perhaps before the parser has come to it.
        context.output.json |= std::find(words.begin(), dashes, "--json") != dashes;
        return print_error(context.output, error);
    }
    given.insert(given.end(), dashes == words.end() ? dashes : dashes + 1, words.end());
    return run(line, given);
}
