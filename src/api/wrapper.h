#pragma once

#include "backend/line.h"
#include "backend/log.h"
#include "backend/settings_by_index.h"
#include "backend/status.h"

#include <array>
#include <span>
#include <type_traits>

// The forms of an API operation: entry line, backend operation, then one error line or the success line.
// Getters fold every result other than -1 into 0; setters pass the result on. Lines are what follows the name
// of the operation, "[ZAV-API] NAME ".

namespace api {

// What a success line shows of a value; numbers of either sign are printed signed.
inline int shown(unsigned value) { return static_cast<int>(value); }
inline int shown(const unsigned *value) { return shown(*value); }
inline const char *shown(const char *value) { return value; }
inline const char *shown(std::span<char> value) { return value.data(); }

// (type_identity: the operation says what Value is, not the line.)
template <class Value>
using ValueLine = std::type_identity_t<Line<Value>>;
template <class Value>
using SuccessLine = std::type_identity_t<Line<decltype(shown(Value{}))>>;

} // namespace api

// Most entry lines spell the operation out once more, a few only say that it begins.
enum class Entry : bool { named, plain };

inline void log_entry(const char *who, int index, Entry entry = Entry::named) {
    if (entry == Entry::plain)
        log_debug("[ZAV-API] %s entry (%d).\n", who, index);
    else
        log_debug("[ZAV-API] %s %s int index=%d\n", who, who, index);
}

template <class... Values>
void log_entry_with(const char *who, int index, const Line<Values...> &line,
                    std::type_identity_t<Values>... values) {
    log_checked_entry(who, index, line.text, values...);
}

// For operations that say nothing of a success.
inline Status report_failure(const char *who, Status result) {
    if (result == failure)
        log_error("[ZAV-API] Error %s failed !!!\n", who);
    return result;
}

template <class... Values>
Status report_line(const char *who, Status result, const Line<Values...> &line,
                   std::type_identity_t<Values>... values) {
    if (report_failure(who, result) != failure)
        log_checked_after(who, " ", line.text, values...);
    return result;
}

inline Status report(const char *who, Status result, Line<> line) { return report_line(who, result, line); }

template <class Value>
Status report(const char *who, Status result, const api::SuccessLine<Value> &line, Value value) {
    return report_line(who, result, line, api::shown(value));
}

// What a getter answers: of success there is one kind.
constexpr Status getter_code(Status result) { return result == failure ? failure : success; }

template <class Out>
Status get_with_code(const char *who, Status (*operation)(int, Out), api::SuccessLine<Out> line, int index,
                     std::type_identity_t<Out> ret_value, Entry entry = Entry::named) {
    log_entry(who, index, entry);
    const Status result = operation(index, ret_value);
    return report<Out>(who, result, line, ret_value);
}

template <class Out>
Status get(const char *who, Status (*operation)(int, Out), api::SuccessLine<Out> line, int index,
           std::type_identity_t<Out> ret_value, Entry entry = Entry::named) {
    return getter_code(get_with_code(who, operation, line, index, ret_value, entry));
}

template <class Value>
Status set(const char *who, Status (*operation)(int, Value), api::ValueLine<Value> entry,
           api::SuccessLine<Value> line, int index, std::type_identity_t<Value> value) {
    log_entry_with(who, index, entry, value);
    return report<Value>(who, operation(index, value), line, value);
}

// For a text that is stored in a form of its own: the operation hands that back, and the success line names
// it.
inline Status set_as_stored(const char *who, Status (*operation)(int, const char *, std::span<char>),
                            Line<const char *> entry, api::SuccessLine<const char *> line, int index,
                            const char *value) {
    std::array<char, 18> stored{}; // a MAC address is the longest
    log_entry_with(who, index, entry, value);
    const Status result = operation(index, value, stored);
    return report<const char *>(who, result, line, stored.data());
}

// Actions of an interface.
inline Status run_action(const char *who, Status (*operation)(int), Line<> line, int index) {
    log_entry(who, index);
    return report(who, operation(index), line);
}

// Operations with a selector before the value: an access category, the number of a key or of a registrar.
template <class Out>
Status get_selected(const char *who, Status (*operation)(int, int, Out), Line<int> entry,
                    api::SuccessLine<Out> line, int index, int selector,
                    std::type_identity_t<Out> ret_value) {
    log_entry_with(who, index, entry, selector);
    const Status result = operation(index, selector, ret_value);
    return getter_code(report<Out>(who, result, line, ret_value));
}

template <class Value>
Status set_selected(const char *who, Status (*operation)(int, int, Value),
                    std::type_identity_t<Line<int, Value>> entry, api::SuccessLine<Value> line, int index,
                    int selector, std::type_identity_t<Value> value) {
    log_entry_with(who, index, entry, selector, value);
    return report<Value>(who, operation(index, selector, value), line, value);
}

// Settings that are one key of the settings file and nothing more.

// A getter cannot fail: an index without a BSS and an absent key answer the default.
inline Status get_key(const char *who, const char *key, unsigned default_value,
                      api::SuccessLine<unsigned> line, int index, unsigned *ret_value) {
    log_entry(who, index);
    *ret_value = ZAV_nvram_get_uint32_helper(index, key, default_value);
    return report(who, success, line, *ret_value);
}

inline Status set_key(const char *who, const char *key, api::ValueLine<unsigned> entry,
                      api::SuccessLine<unsigned> line, int index, unsigned value) {
    log_entry_with(who, index, entry, value);
    return report(who, ZAV_nvram_set_uint32_helper(index, key, static_cast<int>(value)), line, value);
}
