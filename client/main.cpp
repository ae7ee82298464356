#include "client/commands.h"

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

constexpr double longest_timeout = 86400;

// The arguments of calls are kept out of the parser, which gives brackets and commas a meaning of its own.
struct WithArguments : CLI::Formatter {
    std::string make_usage(const CLI::App *app, std::string name) const override {
        std::string usage = CLI::Formatter::make_usage(app, std::move(name));
        if (app->get_option_no_throw("NAME") != nullptr && app->get_name() != "describe")
            usage.insert(usage.find_last_not_of('\n') + 1, " ARG...");
        return usage;
    }
};

struct CommandLine {
    Context context;
    std::string name; // of a procedure or a setting, or a part of it
    CLI::App app{description, "wlanctl"};
};

void add_commands(CommandLine &line) {
    const auto add = [&line](const char *command, const char *help, const char *argument,
                             const char *meaning) {
        CLI::App *const added = line.app.add_subcommand(command, help)->fallthrough();
        return added->add_option(argument, line.name, meaning);
    };
    add("list", "List the procedures", "WORD", "a part of the name");
    add("describe", "Show what a procedure takes and answers", "NAME", "with or without wlan_")->required();
    add("call", "Call a procedure", "NAME", "with or without wlan_")->required();
    add("get", "Read a setting: calls wlan_get_NAME", "NAME", "of the setting")->required();
    add("set", "Change a setting: calls wlan_set_NAME", "NAME", "of the setting")->required();
    add("up", "Load and initialise the driver and wait for it", "RADIOS", "dual (the default), 24 or 5");
    add("restart", "Restart the interfaces of a radio", "INDEX", "of any of its interfaces, or all")
        ->required();
    add("scan", "Survey the radio of an interface and show its neighbours", "INDEX", "of the interface")
        ->required();
    add("stations", "Show the associated stations of a radio", "INDEX", "of any of its interfaces")
        ->required();
    add("stats", "Show the counters of an interface", "INDEX", "of the interface")->required();
    line.app.add_subcommand("down", "Stop the driver")->fallthrough();
}

void set_up(CommandLine &line) {
    auto &[connection, output] = line.context;
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
    app.add_flag("--json", output.json, "print one JSON object, also for an error");
    app.add_flag("-r,--raw", output.raw, "print the bare value, also of a secret");
    app.add_flag("--show-secrets", output.show_secrets, "print keys, passphrases and PINs");
    add_commands(line);
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

struct Action {
    const char *name;
    int (*run)(Context &context, const std::string &index);
};
constexpr Action actions_of_interface[] = {
    {"restart", restart}, {"scan", scan}, {"stations", stations}, {"stats", stats}};

int run(CommandLine &line, const std::vector<std::string> &given) {
    const std::string command = line.app.get_subcommands().front()->get_name();
    if (command == "call")
        return call(line.context, "wlan_", line.name, given);
    if (command == "get" || command == "set")
        return call(line.context, fmt::format("wlan_{}_", command), line.name, given);
    if (!given.empty())
        return print_error(line.context.output,
                           {Trouble::usage, fmt::format("'{}' is too much", given.front())});
    if (command == "up")
        return up(line.context, line.name.empty() ? "dual" : line.name);
    for (const auto &[name, action] : actions_of_interface)
        if (command == name)
            return action(line.context, line.name);
    if (command == "down")
        return down(line.context);
    return command == "list" ? list(line.context, line.name) : describe(line.context, line.name);
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
