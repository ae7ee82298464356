#include "client/commands.h"

#include "client/causes.h"
#include "client/describe.h"
#include "client/knowledge.h"
#include "client/values.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>
#include <net/if.h>
#include <numeric>

namespace {

constexpr std::int64_t most_interfaces = 128; // both bands, 64 each
constexpr std::size_t most_suggestions = 5;

// How many letters to insert, remove or replace to make one word the other.
std::size_t distance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char letter : from) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < to.size(); ++j) {
            const std::size_t replaced = diagonal + (letter == to[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row[to.size()];
}

Error unknown(std::string_view prefix, std::string_view name) {
    std::vector<std::pair<std::size_t, std::string_view>> near;
    for (const Procedure &each : protocol) {
        if (name.empty() || name.size() > 64 || !each.name.starts_with(prefix))
            continue;
        const std::string_view known = each.name.substr(prefix.size());
        const std::size_t changes = distance(name, known);
        if (changes <= 2 || known.find(name) != std::string_view::npos)
            near.emplace_back(changes, known);
    }
    std::stable_sort(near.begin(), near.end(), [](auto &a, auto &b) { return a.first < b.first; });
    near.resize(std::min(near.size(), most_suggestions));
    std::string message = fmt::format("no procedure '{}{}'", prefix, name);
    for (std::size_t i = 0; i < near.size(); ++i)
        message += fmt::format("{}{}", i == 0 ? "; did you mean " : ", ", near[i].second);
    return {Trouble::usage, message + (near.empty() ? " (see wlanctl list)" : "?")};
}

bool looks_like_interface(std::string_view given) {
    return !given.empty() && given.size() < IF_NAMESIZE &&
           std::isalpha(static_cast<unsigned char>(given[0])) != 0;
}

Error ask_index(Connection &connection, const std::string &interface, Value &ret_value) {
    const Procedure *const count = find_procedure("wlan_get_number_of_entries");
    const Procedure *const name = find_procedure("wlan_get_name");
    if (count == nullptr || name == nullptr)
        return {Trouble::usage, "this protocol has no interface names; give the index"};
    Values none;
    Answer answer;
    if (Error error = call(connection, *count, none, answer))
        return error;
    if (answer.code < 0)
        return {Trouble::garbled, "the daemon does not tell how many interfaces it has"};
    const std::int64_t last = std::min(answer.numbers.at(0), most_interfaces);
    for (std::int64_t index = 1; index <= last; ++index) {
        Values arguments{{{Kind::integer, index}}};
        if (Error error = call(connection, *name, arguments, answer))
            return error;
        if (answer.code >= 0 && answer.text == interface) {
            ret_value = {Kind::integer, index};
            return {};
        }
    }
    return {Trouble::usage, fmt::format("argument 'index': no interface '{}' among {}", interface, last)};
}

Error check_count(const Procedure &procedure, std::size_t given) {
    if (given == procedure.arguments.count)
        return {};
    std::string message = fmt::format("{} takes {} argument{}", procedure.name, procedure.arguments.count,
                                      procedure.arguments.count == 1 ? "" : "s");
    for (const Argument &each : procedure.arguments)
        message += fmt::format(" {}:{}", each.name, kind_name(each.kind));
    return {Trouble::usage, fmt::format("{}, not {}", message, given)};
}

} // namespace

Error find_or_suggest(const std::string &prefix, const std::string &name, const Procedure *&ret_procedure) {
    const bool whole = name.starts_with(prefix);
    ret_procedure = find_procedure(whole ? name : prefix + name);
    if (ret_procedure == nullptr)
        return unknown(prefix, std::string_view{name}.substr(whole ? prefix.size() : 0));
    return {};
}

// The daemon is asked for interface names only after everything else has been found right.
Error take_arguments(Connection &connection, const Procedure &procedure,
                     const std::vector<std::string> &given, Values &ret_arguments) {
    if (Error error = check_count(procedure, given.size()))
        return error;
    ret_arguments.list.resize(given.size());
    const auto named = [&](std::size_t i) {
        return is_interface_index(procedure.arguments.fields[i]) && looks_like_interface(given[i]);
    };
    unsigned from_standard_input = 0;
    for (std::size_t i = 0; i < given.size(); ++i) {
        const Argument &argument = procedure.arguments.fields[i];
        if (given[i] == "-" && argument.kind == Kind::text && ++from_standard_input > 1)
            return {Trouble::usage, fmt::format("argument '{}': standard input is taken", argument.name)};
        if (!named(i))
            if (Error error = parse_value(argument, given[i], ret_arguments.list[i]))
                return error;
    }
    for (std::size_t i = 0; i < given.size(); ++i)
        if (named(i))
            if (Error error = ask_index(connection, given[i], ret_arguments.list[i]))
                return error;
    return {};
}

// In any case of letters.
static bool contains(std::string_view text, std::string_view word) {
    const auto alike = [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); };
    return std::search(text.begin(), text.end(), word.begin(), word.end(), alike) != text.end();
}

int list(const Context &context, const std::string &word) {
    std::vector<const Procedure *> found;
    for (const Procedure &each : protocol)
        if (contains(each.name, word))
            found.push_back(&each);
    if (found.empty())
        return print_error(context.output,
                           {Trouble::failed, fmt::format("no procedure has '{}' in its name", word)});
    print_procedures(context.output, found);
    return 0;
}

int describe(const Context &context, const std::string &name) {
    std::vector<const Procedure *> named, told;
    for (const char *prefix : {"", "wlan_", "wlan_get_", "wlan_set_"})
        if (const Procedure *procedure = find_procedure(prefix + name); procedure != nullptr)
            named.push_back(procedure);
    for (const Procedure &each : protocol)
        if (contains(knowledge_of(each).summary, name))
            told.push_back(&each);
    for (std::size_t i = 0; i < named.size(); ++i) {
        if (i > 0 && !context.output.json)
            fmt::print("\n");
        print_procedure(context.output, *named[i]);
    }
    if (named.empty() && told.empty())
        return print_error(context.output, unknown("wlan_", name));
    if (named.empty())
        print_procedures(context.output, told);
    return 0;
}

int call(Context &context, const std::string &prefix, const std::string &name,
         const std::vector<std::string> &given) {
    const Procedure *procedure = nullptr;
    if (Error error = find_or_suggest(prefix, name, procedure))
        return print_error(context.output, error);
    Values arguments;
    if (Error error = take_arguments(context.connection, *procedure, given, arguments))
        return print_error(context.output, error);
    Answer answer;
    if (Error error = ask(context.connection, *procedure, arguments, answer))
        return print_error(context.output, error);
    return print_outcome(context, *procedure, arguments, answer);
}

int print_outcome(const Context &context, const Procedure &procedure, const Values &arguments,
                  const Answer &answer) {
    return answer.code < 0 ? print_failure(context, procedure, arguments, answer)
                           : print_answer(context.output, procedure, answer);
}

Error ask(Connection &connection, const Procedure &procedure, Values &arguments, Answer &ret_answer) {
    Error error = call(connection, procedure, arguments, ret_answer);
    if (error)
        error.message = fmt::format("{}: {}", procedure.name, error.message);
    return error;
}
