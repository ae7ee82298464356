#include "client/gateway.h"

#include "client/text.h"

#include <algorithm>
#include <fmt/format.h>

namespace {

constexpr std::int64_t most_interfaces = 128; // both bands, 64 each

}

Error find_entries(Connection &connection, Gateway &gateway) {
    if (gateway.entries)
        return {};
    Answer answer;
    if (Error error = call(connection, *find_procedure("wlan_get_number_of_entries"), {}, answer))
        return error;
    if (answer.code < 0)
        return {Trouble::garbled, "the daemon does not tell how many interfaces it has"};
    gateway.entries = std::min(answer.numbers.at(0), most_interfaces);
    return {};
}

Error find_names(Connection &connection, Gateway &gateway) {
    if (gateway.names)
        return {};
    if (Error error = find_entries(connection, gateway))
        return error;
    std::vector<Question> questions;
    for (std::int64_t index = 1; index <= *gateway.entries; ++index)
        questions.push_back({find_procedure("wlan_get_name"), {{{Kind::integer, index}}}});
    call(connection, questions);
    std::vector<std::string> names;
    for (const Question &question : questions) {
        if (question.error)
            return question.error;
        names.push_back(printable(question.answer.text, true)); // for tables, commands and completion
    }
    gateway.names = std::move(names);
    return {};
}

Error find_driver(Connection &connection, bool &ret_is_up) {
    Answer status;
    const Values first{{{Kind::integer, 1}}};
    if (Error error = call(connection, *find_procedure("wlan_get_status"), first, status))
        return error;
    ret_is_up = !status.text.empty();
    return {};
}

std::int64_t index_of(const Gateway &gateway, std::string_view name) {
    const std::vector<std::string> names = gateway.names.value_or(std::vector<std::string>{});
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? 0 : found - names.begin() + 1;
}

std::string name_of(const Gateway &gateway, std::int64_t index) {
    const bool known = gateway.names && index >= 1 && index <= *gateway.entries;
    const std::string name = known ? gateway.names->at(static_cast<std::size_t>(index - 1)) : "";
    return name.empty() ? fmt::format("{}", index) : name;
}

const char *band_of(std::string_view name) { return name.starts_with("zvi") ? "2.4 GHz" : "5 GHz"; }

std::vector<Radio> radios_of(const Gateway &gateway) {
    std::vector<Radio> radios;
    for (std::int64_t index = 1; gateway.names && index <= *gateway.entries; ++index) {
        const std::string &name = gateway.names->at(static_cast<std::size_t>(index - 1));
        if (name.empty())
            continue;
        if (radios.empty() || radios.back().band != band_of(name))
            radios.push_back({band_of(name), {}});
        radios.back().interfaces.push_back(index);
    }
    return radios;
}

std::string name_of_bss(const Gateway &gateway, std::int64_t of_radio, std::size_t number) {
    for (const auto &[band, interfaces] : radios_of(gateway))
        if (std::find(interfaces.begin(), interfaces.end(), of_radio) != interfaces.end() &&
            number < interfaces.size())
            return name_of(gateway, interfaces[number]);
    return fmt::format("{}", number);
}
