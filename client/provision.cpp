#include "client/provision.h"

#include "client/checks.h"
#include "client/lookup.h"

#include <algorithm>

namespace {

constexpr int most_passes = 4;

// Why the calls should not be sent; empty: they can be.
std::string hindrance_of(const Item &wanted, bool force) {
    std::string why = obstacle(wanted);
    if (!why.empty() || force)
        return why;
    for (const Question &each : calls_of(wanted))
        if (Error error = check_arguments(*each.procedure, each.arguments))
            return error.message;
    return {};
}

Error set(Connection &connection, Change &change) {
    change.refused.reset();
    for (Question &each : calls_of(change.wanted)) {
        change.sent = true;
        if (Error error = ask(connection, *each.procedure, each.arguments, each.answer))
            return error;
        if (each.answer.code < 0) {
            change.refused = std::move(each);
            break;
        }
    }
    return {};
}

bool is_open(const Change &change) { return differs(change) && change.hindrance.empty(); }

std::vector<bool> open_ones(const std::vector<Change> &changes) {
    std::vector<bool> open;
    std::transform(changes.begin(), changes.end(), std::back_inserter(open), is_open);
    return open;
}

} // namespace

bool differs(const Change &change) { return !is_equal(change.now, change.wanted); }

bool has_failed(const Change &change) { return differs(change) || change.refused; }

bool was_set(const Change &change) { return !has_failed(change) && !is_equal(change.before, change.now); }

std::vector<Change> changes_to(std::vector<Item> wanted, bool force) {
    std::stable_sort(wanted.begin(), wanted.end(), [](const Item &a, const Item &b) {
        return std::pair(a.setting->rank, a.setting) < std::pair(b.setting->rank, b.setting);
    });
    std::vector<Change> changes;
    for (Item &item : wanted) {
        std::string why = hindrance_of(item, force);
        changes.push_back({std::move(item), {}, {}, std::move(why)});
    }
    return changes;
}

Error look(Connection &connection, std::vector<Change> &changes) {
    std::vector<Item> items;
    items.reserve(changes.size());
    for (const Change &change : changes)
        items.push_back(change.wanted);
    if (Error error = read_values(connection, items))
        return error;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (changes[i].before.setting == nullptr)
            changes[i].before = items[i];
        changes[i].now = std::move(items[i]);
    }
    return {};
}

Error bring_about(Connection &connection, std::vector<Change> &changes) {
    std::vector<bool> open = open_ones(changes), before;
    for (int pass = 0; pass < most_passes && open != before; ++pass) {
        for (Change &change : changes)
            if (is_open(change))
                if (Error error = set(connection, change)) {
                    const Error unseen = look(connection, changes); // what has come of it, if that is told
                    return unseen ? unseen : error;
                }
        if (Error error = look(connection, changes))
            return error;
        before = std::exchange(open, open_ones(changes));
        if (std::find(open.begin(), open.end(), true) == open.end())
            break;
    }
    return {};
}

Error take_snapshot(Context &context, std::vector<Item> &ret_items) {
    std::vector<Item> items;
    for (const Place &place : places_of(context.gateway))
        add_items(place, items);
    if (Error error = read_values(context.connection, items))
        return error;
    std::copy_if(items.begin(), items.end(), std::back_inserter(ret_items),
                 [](const Item &item) { return !is_second_name(*item.setting) && obstacle(item).empty(); });
    return {};
}
