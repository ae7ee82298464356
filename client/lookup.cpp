#include "client/lookup.h"

#include "client/checks.h"
#include "client/describe.h"
#include "client/fields.h"
#include "client/knowledge.h"
#include "client/machine.h"
#include "client/values.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>
#include <net/if.h>
#include <nlohmann/json.hpp>
#include <numeric>

namespace {

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

bool looks_like_interface(std::string_view given) {
    return !given.empty() && given.size() < IF_NAMESIZE &&
           std::isalpha(static_cast<unsigned char>(given[0])) != 0;
}

// Every setting belongs to one, so this is what fails first where the settings files are not found.
Error no_interfaces(const Connection &connection) {
    const Finding folder = is_this_machine(connection) ? check_folder() : Finding{};
    return {
        Trouble::failed,
        fmt::format("the gateway has no interfaces: {}; on the gateway, wlanctl doctor looks for the cause",
                    folder.applies == true ? folder.found
                                           : "the daemon found none in its settings (zav_cfg_dir)")};
}

// The index of an interface, which the daemon is asked about.
Error find_index(Context &context, const std::string &given, Value &ret_value) {
    Gateway &gateway = context.gateway;
    if (looks_like_interface(given)) {
        if (Error error = find_some_names(context))
            return error;
        ret_value = {Kind::integer, index_of(gateway, given)};
        if (ret_value.number == 0)
            return {Trouble::usage,
                    fmt::format("argument 'index': no interface '{}' among {}", given, *gateway.entries)};
        return {};
    }
    if (context.options.force)
        return {};
    if (Error error = find_entries(context.connection, gateway))
        return error;
    if (*gateway.entries == 0)
        return no_interfaces(context.connection);
    if (ret_value.number < 1 || ret_value.number > *gateway.entries)
        return {Trouble::usage,
                fmt::format("argument 'index': {} is not 1 to {}, the gateway's interfaces; --force "
                            "sends it all the same",
                            ret_value.number, *gateway.entries)};
    return {};
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

// All but what the daemon has to be asked for.
Error parse_values(const Procedure &procedure, const Words &given, const Options &options,
                   Values &ret_arguments) {
    unsigned from_standard_input = options.input_taken ? 1 : 0;
    for (std::size_t i = 0; i < given.size(); ++i) {
        const Argument &argument = procedure.arguments.fields[i];
        const bool piped = given[i] == "-" && argument.kind == Kind::text;
        if (piped && ++from_standard_input > 1)
            return {Trouble::usage, fmt::format("argument '{}': standard input is taken", argument.name)};
        if (is_interface_index(argument) && looks_like_interface(given[i]))
            continue;
        if (Error error = parse_value(argument, given[i], ret_arguments.list[i]))
            return error;
        if (piped && ret_arguments.list[i].text.empty() && !options.force)
            return {Trouble::usage,
                    fmt::format("argument '{}': standard input is empty; --force sends it all the same",
                                argument.name)};
    }
    return options.force ? Error{} : check_arguments(procedure, ret_arguments);
}

// What an answer says of an index; 0: nothing.
std::int64_t answered_index(const Procedure &procedure, const Answer &answer) {
    const auto fields = knowledge_of(procedure).fields;
    const auto index = std::find_if(fields.begin(), fields.end(), [](const Field &field) {
        return field.name == std::string_view("index");
    });
    if (index == fields.end())
        return 0;
    return static_cast<std::int64_t>(number_in(place_of(*index, 0, image_of(answer))));
}

} // namespace

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

Error find_some_names(Context &context) {
    if (Error error = find_names(context.connection, context.gateway))
        return error;
    return *context.gateway.entries == 0 ? no_interfaces(context.connection) : Error{};
}

Error find_or_suggest(const std::string &prefix, const std::string &name, const Procedure *&ret_procedure) {
    const bool whole = name.starts_with(prefix);
    ret_procedure = find_procedure(whole ? name : prefix + name);
    if (ret_procedure == nullptr)
        return unknown(prefix, std::string_view{name}.substr(whole ? prefix.size() : 0));
    return {};
}

Error take_arguments(Context &context, const Procedure &procedure, const Words &given,
                     Values &ret_arguments) {
    if (Error error = check_count(procedure, given.size()))
        return error;
    ret_arguments.list.resize(given.size());
    if (Error error = parse_values(procedure, given, context.options, ret_arguments))
        return error;
    for (std::size_t i = 0; i < given.size(); ++i)
        if (is_interface_index(procedure.arguments.fields[i]))
            if (Error error = find_index(context, given[i], ret_arguments.list[i]))
                return error;
    return {};
}

Json with_interfaces(const Gateway &gateway, std::int64_t index, Json stations) {
    for (Json &each : stations)
        each["interface"] = name_of_bss(gateway, index, each["bss_from_0"]);
    return stations;
}

Error ask(Connection &connection, const Procedure &procedure, const Values &arguments, Answer &ret_answer) {
    Error error = call(connection, procedure, arguments, ret_answer);
    if (!error)
        return error;
    error.message = fmt::format("{}: {}", procedure.name, error.message);
    if (error.trouble == Trouble::timeout && procedure.runs_again)
        error.message += fmt::format("; whether it was done is not known, and it is not sent again; {}",
                                     look_of(procedure, arguments));
    return error;
}

Subject subject_of(Context &context, const Procedure &procedure, const Values &arguments,
                   const Answer &answer) {
    const auto index =
        std::find_if(procedure.arguments.begin(), procedure.arguments.end(), is_interface_index);
    const std::int64_t answered = answered_index(procedure, answer);
    if (index == procedure.arguments.end() && answered == 0)
        return {};
    const auto place = static_cast<std::size_t>(index - procedure.arguments.begin());
    const std::int64_t number = answered != 0 ? answered : arguments.list.at(place).number;
    const bool of_use = context.output.json || answered != 0 || procedure.name.starts_with("wlan_set_");
    if (of_use && find_names(context.connection, context.gateway))
        return {number};
    return {number, name_of(context.gateway, number)};
}
