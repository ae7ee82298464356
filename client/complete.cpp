#include "client/commands.h"
#include "client/knowledge.h"
#include "client/subcommands.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <set>
#include <span>
#include <sstream>

namespace {

constexpr double patience = 0.5; // seconds that the gateway is given to name its interfaces

// A word that can stand there, and what it means.
struct Candidate {
    std::string word, meaning;
};
using Candidates = std::vector<Candidate>;

// The words of the line up to the one that is being completed.
struct Line {
    const Subcommand *subcommand = nullptr;
    Words behind{};         // those behind it that are no option
    bool is_value = false;  // the last is the value of an option
    bool no_option = false; // "--" stands before
};

bool is_option(const std::string &word) { return word.size() > 1 && word[0] == '-'; }

// What leads to the gateway stands in the line, too.
void take_option(Connection &connection, const std::string &name, const std::string &value) {
    if (name == "--host")
        connection.host = value;
    if (name == "--port")
        std::from_chars(value.data(), value.data() + value.size(), connection.port);
}

bool takes_value(const Context &context, const Subcommand *subcommand, const std::string &word) {
    const auto is_common = [&](const CommonOption &each) { return each.name == word && each.takes_value; };
    const auto is_own = [&](const Flag &each) { return each.name == word && each.seconds != nullptr; };
    return std::any_of(context.common.begin(), context.common.end(), is_common) ||
           (subcommand != nullptr && std::any_of(subcommand->flags.begin(), subcommand->flags.end(), is_own));
}

Line read(Context &context, std::span<const std::string> words) {
    Line line;
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        const std::string &word = words[i];
        if (word == "--") {
            line.no_option = true;
        } else if (!line.no_option && takes_value(context, line.subcommand, word)) {
            i += words[i + 1] == "=" && i + 2 < words.size() ? 2 : 1; // bash splits --host=HOST
            line.is_value = i + 1 == words.size();
            take_option(context.connection, word, words[i]);
        } else if (!line.no_option && is_option(word)) {
            const std::size_t end = std::min(word.find('='), word.size());
            if (end < word.size())
                take_option(context.connection, word.substr(0, end), word.substr(end + 1));
        } else if (line.subcommand == nullptr) {
            line.subcommand = find_subcommand(word);
            line.is_value = line.subcommand == nullptr; // nothing is known of what follows
        } else {
            line.behind.push_back(word);
        }
    }
    return line;
}

void add_options(const Context &context, const Line &line, Candidates &candidates) {
    if (line.subcommand != nullptr)
        for (const Flag &flag : line.subcommand->flags)
            candidates.push_back({flag.name, flag.help});
    for (const CommonOption &option : context.common)
        candidates.push_back({option.name, option.help});
}

void add_subcommands(Candidates &candidates) {
    for (const Subcommand &each : subcommands())
        if (each.is_for_people)
            candidates.push_back({each.name, each.help});
}

// Of the subcommand, the setting's name or the procedure's with or without what they begin with.
std::string prefix_of(const Subcommand &subcommand) {
    const std::string_view name = subcommand.name;
    return name == "get" || name == "set" ? fmt::format("wlan_{}_", name) : "wlan_";
}

void add_procedures(const Subcommand &subcommand, bool whole, Candidates &candidates) {
    const std::string prefix = prefix_of(subcommand);
    for (const Procedure &each : protocol)
        if (each.name.starts_with(prefix))
            candidates.push_back(
                {std::string(each.name.substr(whole ? 0 : prefix.size())), knowledge_of(each).summary});
}

void add_interfaces(Context &context, Candidates &candidates) {
    Connection &connection = context.connection;
    connection.timeout = connection.timeout.value_or(patience);
    if (find_names(connection, context.gateway))
        return; // one that does not answer has nothing to offer
    for (std::int64_t index = 1; index <= *context.gateway.entries; ++index)
        candidates.push_back({name_of(context.gateway, index), fmt::format("index {}", index)});
}

void add_first_word(Context &context, const Subcommand &subcommand, const std::string &begun,
                    Candidates &candidates) {
    const std::string_view argument = subcommand.argument;
    if (argument == "NAME")
        add_procedures(subcommand, begun.starts_with("wlan_"), candidates);
    if (argument == "INDEX")
        add_interfaces(context, candidates);
    std::istringstream words(subcommand.words);
    for (std::string word; words >> word;)
        candidates.push_back({word, subcommand.meaning});
}

void add_argument(Context &context, const Line &line, Candidates &candidates) {
    const std::string prefix = prefix_of(*line.subcommand), &name = line.behind.front();
    const Procedure *procedure = find_procedure(name.starts_with(prefix) ? name : prefix + name);
    const std::size_t place = line.behind.size() - 1;
    if (line.subcommand->argument == std::string_view("WHAT") && place == 0 && can_watch_one(name))
        add_interfaces(context, candidates);
    if (procedure == nullptr || place >= procedure->arguments.count)
        return;
    if (is_interface_index(procedure->arguments.fields.at(place)))
        add_interfaces(context, candidates);
    for (const NamedValue &named : knowledge_of(*procedure).arguments[place].names)
        candidates.push_back({named.value, named.meaning});
}

Candidates candidates_of(Context &context, std::span<const std::string> words) {
    Candidates candidates;
    const std::string begun = words.empty() ? "" : words.back();
    const Line line = read(context, words);
    if (line.is_value)
        return {};
    if (!line.no_option && is_option(begun + ' '))
        add_options(context, line, candidates);
    else if (line.subcommand == nullptr)
        add_subcommands(candidates);
    else if (line.behind.empty())
        add_first_word(context, *line.subcommand, begun, candidates);
    else if (line.subcommand->takes == Takes::several)
        add_argument(context, line, candidates);
    std::erase_if(candidates, [&](const Candidate &each) { return !each.word.starts_with(begun); });
    return candidates;
}

// With a backslash before what the shell would take for something else.
std::string quoted(std::string_view word, std::string_view special) {
    std::string text;
    for (const char letter : word)
        text += fmt::format("{}{}", special.find(letter) == special.npos ? "" : "\\", letter);
    return text;
}

} // namespace

int complete(Context &context, const Words &words) {
    const bool with_meaning = words.front() == "zsh";
    for (const auto &[word, meaning] : candidates_of(context, std::span(words).subspan(1)))
        if (with_meaning)
            fmt::print("{}:{}\n", quoted(word, ":\\"), meaning);
        else
            fmt::print("{}\n", quoted(word, " \t'\"\\$`&|;<>()*?[]#~!{}"));
    return 0;
}
