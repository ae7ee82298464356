#include "client/causes.h"
#include "client/commands.h"
#include "client/lookup.h"
#include "client/provision.h"
#include "client/restart.h"
#include "client/table.h"
#include "client/text.h"

#include <algorithm>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <tuple>

namespace {

std::string place_name(const Context &context, const Item &item) {
    return item.index == 0 ? "gateway" : name_of(context.gateway, item.index);
}

// "wep_key 2", as behind `wlanctl get`.
std::string words_for(const Item &item) {
    return item.key ? fmt::format("{} {}", item.setting->name, *item.key) : std::string{item.setting->name};
}

bool is_masked(const Output &output, const Item &item) { return is_masked(output, *item.setting->get); }

std::string shown(const Output &output, const Item &item) {
    if (!item.value)
        return "(not readable)";
    if (is_masked(output, item))
        return "(hidden)";
    return item.value->kind == Kind::text ? shown_on(stdout, item.value->text)
                                          : fmt::format("{}", item.value->number);
}

void add_json(Json &object, const Output &output, const std::string &name, const Item &item) {
    if (!item.value || is_masked(output, item))
        object[name] = nullptr;
    else if (item.value->kind == Kind::text)
        add_value(object, name, item.value->text);
    else
        object[name] = item.value->number;
}

Json item_json(const Context &context, const Item &item) {
    Json object{{"interface", place_name(context, item)}, {"setting", item.setting->name}};
    if (item.index != 0)
        object["index"] = item.index;
    if (item.key)
        object["key"] = *item.key;
    if (is_masked(context.output, item))
        object["masked"] = true;
    return object;
}

Json strangers_json(const SettingsFile &file) {
    Json list = Json::array();
    for (const auto &[place, name, why] : file.strangers)
        list.push_back({{"interface", place}, {"setting", name}, {"why", why}});
    return list;
}

void print_strangers(const SettingsFile &file) {
    for (const auto &[place, name, why] : file.strangers)
        fmt::print(stderr, "wlanctl: {}{}{}: {}\n", shown_on(stderr, place), name.empty() ? "" : " ",
                   shown_on(stderr, name), shown_on(stderr, why));
}

// The file, and what the gateway has in its places.
Error prepare(Context &context, const std::string &path, SettingsFile &file, std::vector<Change> &changes) {
    if (path == "-" && context.options.input_taken)
        return {Trouble::usage, "standard input has the lines of the batch"};
    if (Error error = find_some_names(context))
        return error;
    if (Error error = read_settings_file(path, context.gateway, file))
        return error;
    changes = changes_to(file.items, context.options.force);
    return look(context.connection, changes);
}

// Why the daemon refused it, where it did.
std::vector<Reason> reasons_of(const Context &context, const Change &change) {
    if (!change.refused)
        return {};
    return find_reasons(context.connection, *change.refused->procedure, change.refused->arguments);
}

// Why it is not as wanted: at most two causes.
std::string why_not(const Context &context, const Change &change, const std::vector<Reason> &reasons) {
    if (!change.hindrance.empty())
        return shown_on(stdout, change.hindrance);
    if (!change.refused)
        return fmt::format("it reads back as {}", shown(context.output, change.now));
    std::string why = "the daemon answered failure";
    for (std::size_t i = 0; i < std::min<std::size_t>(reasons.size(), 2); ++i)
        why += fmt::format("{}{}",
                           i > 0             ? ", or "
                           : reasons[0].sure ? ": "
                                             : "; perhaps ",
                           reasons[i].cause->text);
    return why;
}

// What came of an import.
struct Report {
    std::vector<Change> changes; // that differed, before or now
    SettingsFile file;
    Error error{};                    // that ended it
    bool refused = false;             // nothing was sent
    std::optional<bool> put_back{};   // all of it
    std::optional<Restart> restart{}; // that the changes wait for
    std::string acts{}, by{};
};

bool succeeded(const Report &report) {
    return report.file.strangers.empty() && !report.error && !report.refused && !report.put_back &&
           std::none_of(report.changes.begin(), report.changes.end(), has_failed);
}

const char *outcome(const Report &report) {
    return !succeeded(report) ? "failed" : report.changes.empty() ? "unchanged" : "done";
}

// What became of it where the reason lies elsewhere; empty: the change has its own.
std::string undecided(const Report &report, const Change &change) {
    if (!differs(change) || change.refused || !change.hindrance.empty())
        return {};
    if (report.refused || (report.error && !change.sent))
        return "not sent";
    if (!report.error)
        return {};
    return report.put_back.value_or(false) ? "put back" : "not known to be set";
}

std::string result_of(const Context &context, const Report &report, const Change &change,
                      const std::vector<Reason> &reasons) {
    if (std::string open = undecided(report, change); !open.empty())
        return open;
    if (has_failed(change))
        return why_not(context, change, reasons);
    const std::string_view also = knowledge_of(*change.wanted.setting->set).also;
    const char *const done = !report.put_back   ? "set"
                             : *report.put_back ? "put back"
                                                : "set, and perhaps not put back";
    return fmt::format("{}{}{}", done, also.empty() ? "" : "; it changes also ", also);
}

Json failure_json(const Context &context, const Change &change, const std::vector<Reason> &reasons) {
    if (change.refused)
        return failure_json(*change.refused->procedure, change.refused->answer.code, reasons);
    return error_json({change.hindrance.empty() ? Trouble::failed : Trouble::usage,
                       change.hindrance.empty() ? why_not(context, change, reasons) : change.hindrance},
                      change.wanted.setting->set, nullptr, Json::array());
}

void print_report_json(const Context &context, const Report &report) {
    Json list = Json::array();
    for (const Change &change : report.changes) {
        Json object = item_json(context, change.wanted);
        add_json(object, context.output, "before", change.before);
        add_json(object, context.output, "wanted", change.wanted);
        const std::vector<Reason> reasons = reasons_of(context, change);
        object["result"] = result_of(context, report, change, reasons);
        object["failed"] = has_failed(change);
        if (has_failed(change) && undecided(report, change).empty())
            object["error"] = failure_json(context, change, reasons);
        list.push_back(object);
    }
    Json object{{"status", outcome(report)}, {"changes", list}, {"skipped", strangers_json(report.file)}};
    if (report.error)
        object["error"] = error_json(report.error, nullptr, nullptr, Json::array());
    if (report.put_back)
        object["put_back"] = *report.put_back;
    if (!report.acts.empty())
        object["acts"] = report.acts;
    if (!report.by.empty())
        object["by"] = report.by;
    print_json(object);
}

Row heading_of_report() { return {"INTERFACE", "SETTING", "BEFORE", "WANTED", "RESULT"}; }

int print_report(const Context &context, const Report &report) {
    int status = succeeded(report) ? 0 : report.error ? static_cast<int>(report.error.trouble) : 1;
    if (context.output.json) {
        print_report_json(context, report);
        return status;
    }
    Table table{heading_of_report(), {}};
    for (const Change &change : report.changes)
        table.rows.push_back({place_name(context, change.wanted), words_for(change.wanted),
                              shown(context.output, change.before), shown(context.output, change.wanted),
                              result_of(context, report, change, reasons_of(context, change))});
    if (!table.rows.empty())
        status = std::max(status, print_table(context.output, table));
    else if (succeeded(report))
        fmt::print("unchanged\n");
    if (!report.acts.empty())
        fmt::print("{}\n", report.acts == restarted ? "the radio was restarted"
                           : report.acts == restart_asked
                               ? "the restart was asked for; its end was not seen"
                               : fmt::format("acts {} ({})", report.acts, report.by));
    std::fflush(stdout);
    print_strangers(report.file);
    if (report.error)
        fmt::print(stderr, "wlanctl: {}\n", shown_on(stderr, report.error.message));
    if (report.refused)
        fmt::print(stderr, "wlanctl: nothing was sent: not all of it can be set\n");
    if (report.put_back)
        fmt::print(stderr, "wlanctl: {}\n",
                   *report.put_back ? "all is put back to what it was"
                                    : "not all could be put back to what it was");
    return status;
}

// Of the radios whose stored changes wait for it, by a test of each change.
std::optional<Restart> restart_for(const Context &context, const std::vector<Change> &changes,
                                   bool (*counts)(const Change &)) {
    std::vector<std::int64_t> radios; // their first interfaces
    for (const Change &change : changes)
        if (counts(change) && knowledge_of(*change.wanted.setting->set).effect == at_restart)
            for (const Place &place : places_of(context.gateway, change.wanted.index))
                if (place.scope == Scope::radio &&
                    std::find(radios.begin(), radios.end(), place.index) == radios.end())
                    radios.push_back(place.index);
    if (radios.empty())
        return std::nullopt;
    return restart_of(context.gateway, radios.size() == 1 ? radios[0] : 0);
}

Error restart(Context &context, Report &report) {
    const Acts acts = make_act(context, *report.restart);
    std::tie(report.acts, report.by) = std::tie(acts.when, acts.by);
    return acts.failed;
}

// When the changes act; with --restart, one restart makes them, and what it has set back shows.
Error make_act(Context &context, Report &report) {
    report.restart = restart_for(context, report.changes, was_set);
    if (report.restart && context.options.restart) {
        if (Error error = restart(context, report))
            return error;
        if (Error error = look(context.connection, report.changes))
            return error;
    } else if (report.restart) {
        report.acts = at_restart;
        report.by = report.restart->command;
    }
    if (std::any_of(report.changes.begin(), report.changes.end(), [](const Change &change) {
            return was_set(change) && knowledge_of(*change.wanted.setting->set).effect == at_load;
        })) {
        report.acts = at_load;
        report.by = "wlanctl down, wlanctl up";
    }
    return {};
}

Error put_back(Context &context, const std::vector<Item> &snapshot, bool &ret_all) {
    std::vector<Change> changes = changes_to(snapshot, true);
    if (Error error = look(context.connection, changes))
        return error;
    if (Error error = bring_about(context.connection, changes))
        return error;
    ret_all = std::none_of(changes.begin(), changes.end(), has_failed);
    return {};
}

// After a failure. Where a restart was asked for, another one makes the old settings act again.
void undo(Context &context, const std::vector<Item> &snapshot, Report &report) {
    bool all = false;
    Error error = put_back(context, snapshot, all);
    const bool asked = report.acts == restarted || report.acts == restart_asked;
    report.acts = report.by = "";
    if (!error && asked)
        error = restart(context, report);
    if (error && !report.error)
        report.error = error;
    report.put_back = all;
}

using Former = std::optional<std::vector<Item>>; // where everything is to be put back after a failure

// Sets what differs.
Error carry_out(Context &context, std::vector<Change> &changes, Former &ret_former) {
    if (context.options.all_or_nothing) {
        std::vector<Item> items;
        if (Error error = take_snapshot(context, items))
            return error;
        ret_former = std::move(items);
    }
    return bring_about(context.connection, changes);
}

// Makes what was set act; after a failure, puts it back where that is wanted. (Ctrl-C while a restart goes on
// is none.)
void finish(Context &context, const Former &former, Report &report) {
    const auto failed = [&] {
        return report.error || std::any_of(report.changes.begin(), report.changes.end(), has_failed);
    };
    if (!report.error && !(former && failed()))
        report.error = make_act(context, report);
    if (former && failed() && report.error.trouble != Trouble::interrupted)
        undo(context, *former, report);
}

int show_calls(Context &context, const std::vector<Change> &changes, const SettingsFile &file) {
    int status = file.strangers.empty() ? 0 : 1;
    const bool none = std::none_of(changes.begin(), changes.end(), differs);
    if (none && status == 0)
        return print_report(context, {});
    for (const Change &change : changes) {
        if (!differs(change))
            continue;
        if (change.hindrance.empty())
            for (const Question &each : calls_of(change.wanted))
                print_call(context.output, *each.procedure, each.arguments);
        else
            status =
                print_error(context.output,
                            {Trouble::failed, fmt::format("{} {}: {}", place_name(context, change.wanted),
                                                          words_for(change.wanted), change.hindrance)},
                            change.wanted.setting->set);
    }
    const auto is_sent = [](const Change &change) { return differs(change) && change.hindrance.empty(); };
    if (const auto restart = restart_for(context, changes, is_sent); restart && context.options.restart)
        status = std::max(status, print_restart(context, *restart));
    if (context.output.json && !file.strangers.empty())
        print_json({{"status", "failed"}, {"changes", Json::array()}, {"skipped", strangers_json(file)}});
    else
        print_strangers(file);
    return status;
}

} // namespace

int diff(Context &context, const Words &words) {
    SettingsFile file;
    std::vector<Change> changes;
    if (Error error = prepare(context, words.front(), file, changes))
        return print_error(context.output, error);
    std::erase_if(changes, [](const Change &change) { return !differs(change); });
    const int status = changes.empty() && file.strangers.empty() ? 0 : 1;
    Json list = Json::array();
    Table table{{"INTERFACE", "SETTING", "GATEWAY", "FILE"}, {}};
    for (const Change &change : changes) {
        Json object = item_json(context, change.wanted);
        add_json(object, context.output, "gateway", change.now);
        add_json(object, context.output, "file", change.wanted);
        list.push_back(object);
        table.rows.push_back({place_name(context, change.wanted), words_for(change.wanted),
                              shown(context.output, change.now), shown(context.output, change.wanted)});
    }
    if (context.output.json)
        print_json({{"status", "done"}, {"differences", list}, {"skipped", strangers_json(file)}});
    else if (!table.rows.empty())
        if (const int wrong = print_table(context.output, table); wrong != 0)
            return wrong;
    std::fflush(stdout);
    if (!context.output.json)
        print_strangers(file);
    return status;
}

int import_settings(Context &context, const Words &words) {
    Report report;
    std::vector<Change> changes;
    if (Error error = check_columns(context.output, {heading_of_report()}))
        return print_error(context.output, error);
    if (Error error = prepare(context, words.front(), report.file, changes))
        return print_error(context.output, error);
    if (context.options.dry_run)
        return show_calls(context, changes, report.file);
    const auto hindered = [](const Change &change) { return differs(change) && !change.hindrance.empty(); };
    report.refused =
        context.options.all_or_nothing &&
        (!report.file.strangers.empty() || std::any_of(changes.begin(), changes.end(), hindered));
    Former former;
    if (!report.refused)
        report.error = carry_out(context, changes, former);
    std::copy_if(changes.begin(), changes.end(), std::back_inserter(report.changes),
                 [](const Change &change) { return has_failed(change) || was_set(change); });
    if (!report.refused)
        finish(context, former, report);
    return print_report(context, report);
}
