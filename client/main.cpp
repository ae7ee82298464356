#include "client/subcommands.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <clocale>
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
    "Exit status: 0 done, unchanged or in progress; 1 the daemon answered failure or a scan failed; 2 "
    "usage;\n"
    "3 no reply in time; 4 not registered or unreachable; 5 reply not understood; 130 after Ctrl-C, while "
    "an\n"
    "action (up, down, scan) goes on.";

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
    Context context{};
    std::string first{}; // the word behind the subcommand, where it takes one
    CLI::App app{description, "wlanctl"};
};

void add(CommandLine &line, const Subcommand &subcommand) {
    CLI::App *const added = line.app.add_subcommand(subcommand.name, subcommand.help)->fallthrough();
    if (subcommand.takes != Takes::nothing)
        added->add_option(subcommand.argument, line.first, subcommand.meaning)
            ->required(subcommand.takes != Takes::one_at_most);
    for (const Flag &flag : subcommand.flags)
        if (flag.seconds == nullptr)
            added->add_flag(flag.name, line.context.options.*flag.says, flag.help);
        else
            added->add_option(flag.name, line.context.options.*flag.seconds, flag.help)
                ->check(CLI::Range(shortest_interval, longest_timeout))
                ->capture_default_str();
    std::string footer = fmt::format("Examples:\n  {}", subcommand.examples);
    footer.replace(footer.rfind('\n'), 1, "\n  ");
    added->footer(footer);
}

void set_up(CommandLine &line) {
    Connection &connection = line.context.connection;
    Output &output = line.context.output;
    CLI::App &app = line.app;
    app.formatter(std::make_shared<WithArguments>());
    app.footer(examples);
    app.require_subcommand(1);
    app.allow_extras();
    app.set_version_flag("--version", "wlanctl " WLANCTL_VERSION);
    app.add_option("--host", connection.host, "where the daemon runs (127.0.0.1)");
    app.add_option("--port", connection.port, "its UDP port (asked of the portmapper)")
        ->check(CLI::Range(1, 65535));
    app.add_option("--timeout", connection.timeout, "seconds to wait for a reply (5; up and down: 600)");
    app.add_flag("--json", output.json, "print JSON, also for an error");
    app.add_flag("-r,--raw", output.raw, "print the bare value, also of a secret");
    app.add_flag("--show-secrets", output.show_secrets, "print keys, passphrases and PINs");
    app.add_option("--columns", output.columns, "columns of a table, with commas between")->delimiter(',');
    app.add_flag("!--no-header", output.header, "leave the heading of a table out");
    for (const Subcommand &each : subcommands())
        add(line, each);
}

bool looks_like_option(const std::string &word) {
    return word.size() > 1 && word[0] == '-' && std::strchr("0123456789", word[1]) == nullptr;
}

// What the parser lets pass.
Error check(const CommandLine &line, const std::vector<std::string> &words) {
    const auto option = std::find_if(words.begin(), words.end(), looks_like_option);
    if (option != words.end())
        return {Trouble::usage,
                fmt::format("unknown option {} (values that begin with - go behind --)", *option)};
    const double timeout = line.context.connection.timeout.value_or(usual_patience);
    if (!(timeout > 0 && timeout <= longest_timeout))
        return {Trouble::usage,
                fmt::format("--timeout takes seconds, above 0 and up to {}", longest_timeout)};
    return {};
}

int run(CommandLine &line, const Words &given) {
    const std::string name = line.app.get_subcommands().front()->get_name();
    const auto all = subcommands();
    const auto subcommand =
        std::find_if(all.begin(), all.end(), [&](auto &each) { return each.name == name; });
    if (subcommand->takes != Takes::several && !given.empty())
        return print_error(line.context.output,
                           {Trouble::usage, fmt::format("'{}' is too much", given.front())});
    Words words = given;
    if (subcommand->takes == Takes::several || !line.first.empty())
        words.insert(words.begin(), line.first);
    return subcommand->run(line.context, words);
}

int parse_and_run(int argc, char **argv) {
    char **const end = argv + argc;
    const auto is = [](const char *wanted) {
        return [wanted](const char *word) { return std::strcmp(word, wanted) == 0; };
    };
    char **const dashes = std::find_if(argv, end, is("--"));
    CommandLine line;
    set_up(line);
    Error error;
    try {
        line.app.parse(static_cast<int>(dashes - argv), argv);
    } catch (const CLI::Success &help) {
        return line.app.exit(help);
    } catch (const CLI::ParseError &wrong) {
        error = {Trouble::usage, fmt::format("{} (see wlanctl --help)", wrong.what())};
    }
    std::vector<std::string> given = line.app.remaining();
    if (Error found = check(line, given))
        error = found;
    else if (error && line.app.get_subcommands().empty() && !given.empty())
        error.message = fmt::format("no command '{}' (see wlanctl --help)", given.front());
    if (error) {
        // Found perhaps before the parser has come to it.
        line.context.output.json |= std::any_of(argv, dashes, is("--json"));
        return print_error(line.context.output, error);
    }
    given.insert(given.end(), dashes == end ? end : dashes + 1, end);
    return run(line, given);
}

} // namespace

int main(int argc, char **argv) {
    std::setlocale(LC_CTYPE, "");
    try {
        const int status = parse_and_run(argc, argv);
        if (std::fflush(stdout) == 0)
            return status;
        std::perror("wlanctl: standard output");
    } catch (const std::exception &error) {
        std::fprintf(stderr, "wlanctl: %s\n", error.what());
    }
    return static_cast<int>(Trouble::garbled);
}
