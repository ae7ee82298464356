#include "client/snapshot.h"

#include "client/output.h"

#include <algorithm>

namespace {

const Json nothing = nullptr;

// Ends everything; a single reading that is late or not understood does not.
bool is_fatal(const Question &question) {
    return question.error.trouble == Trouble::unreachable || question.error.trouble == Trouble::interrupted;
}

} // namespace

void Snapshot::want(std::string_view name, std::int64_t index, std::int64_t more) {
    const Procedure *procedure = find_procedure("wlan_get_" + std::string(name));
    Values arguments;
    for (const std::int64_t number : {index, more})
        if (arguments.list.size() < procedure->arguments.count)
            arguments.list.push_back({Kind::integer, number});
    wanted_.push_back({procedure, std::move(arguments)});
}

Error Snapshot::take(Connection &connection) {
    std::vector<Question> asked;
    asked.swap(wanted_);
    if (asked.empty())
        return {};
    call(connection, asked);
    auto failed = std::find_if(asked.begin(), asked.end(), is_fatal);
    if (failed == asked.end() &&
        std::all_of(asked.begin(), asked.end(), [](auto &each) { return static_cast<bool>(each.error); }))
        failed = asked.begin();
    if (failed != asked.end())
        return failed->error;
    for (const Question &each : asked) {
        if (each.error || each.answer.code < 0)
            continue;
        std::int64_t numbers[2] = {0, 0};
        for (std::size_t i = 0; i < each.arguments.list.size(); ++i)
            numbers[i] = each.arguments.list[i].number;
        constexpr std::size_t prefix = sizeof "wlan_get_" - 1;
        values_[{std::string(each.procedure->name.substr(prefix)), numbers[0], numbers[1]}] =
            value_of(*each.procedure, each.answer);
    }
    return {};
}

const Json &Snapshot::value(std::string_view name, std::int64_t index, std::int64_t more) const {
    const auto found = values_.find({std::string(name), index, more});
    return found == values_.end() ? nothing : found->second;
}

const Json &Snapshot::field(std::string_view name, std::int64_t index, const char *key) const {
    const Json &record = value(name, index);
    return record.is_null() ? nothing : record.at(key);
}

Json Snapshot::is_on(std::string_view name, std::int64_t index) const {
    const Json &number = value(name, index);
    return number.is_null() ? nothing : Json(number != 0);
}

Json Snapshot::is_up(std::int64_t index) const {
    const Json &status = value("status", index);
    return status.is_null() ? nothing : Json(status == "Up");
}
