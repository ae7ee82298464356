#pragma once

#include "backend/config_store.h"
#include "backend/log.h"
#include "backend/status.h"

#include <span>

// The forms of an API operation: entry line, backend operation, then one error line or the success line.
// Getters fold every result other than -1 into 0; setters pass the result on.

// What a success line shows of a value; numbers of either sign are printed signed.
inline int shown(unsigned value) { return static_cast<int>(value); }
inline int shown(const unsigned *value) { return shown(*value); }
inline const char *shown(const char *value) { return value; }
inline const char *shown(std::span<char> value) { return value.data(); }

// (type_identity: the operation says what Value is, not the line.)
using EntryLine = Line<const char *, int>;
template <class Value>
using SetEntryLine = std::type_identity_t<Line<const char *, int, Value>>;
template <class Value>
using SuccessLine = std::type_identity_t<Line<const char *, decltype(shown(Value{}))>>;

inline constexpr EntryLine plain_entry{"[ZAV-API] %s entry (%d).\n"};

template <class Value>
Status report(const char *who, Status result, const SuccessLine<Value> &line, Value value) {
    if (result == failure)
        log_error("[ZAV-API] Error %s failed !!!\n", who);
    else
        log_line(line, who, shown(value));
    return result;
}

template <class Out>
Status get(const char *who, Status (*operation)(int, Out), EntryLine entry, SuccessLine<Out> line, int index,
           std::type_identity_t<Out> ret_value) {
    log_line(entry, who, index);
    const Status result = report<Out>(who, operation(index, ret_value), line, ret_value);
    return result == failure ? failure : success;
}

template <class Value>
Status set(const char *who, Status (*operation)(int, Value), SetEntryLine<Value> entry,
           SuccessLine<Value> line, int index, std::type_identity_t<Value> value) {
    log_line(entry, who, index, value);
    return report<Value>(who, operation(index, value), line, value);
}

// Settings that are one key of the settings file and nothing more.

// A getter cannot fail: an index without a BSS and an absent key answer the default.
inline Status get_key(const char *who, const char *key, unsigned default_value, EntryLine entry,
                      SuccessLine<unsigned> line, int index, unsigned *ret_value) {
    log_line(entry, who, index);
    *ret_value = ZAV_nvram_get_uint32_helper(index, key, default_value);
    return report(who, success, line, *ret_value);
}

inline Status set_key(const char *who, const char *key, SetEntryLine<unsigned> entry,
                      SuccessLine<unsigned> line, int index, unsigned value) {
    log_line(entry, who, index, value);
    return report(who, ZAV_nvram_set_uint32_helper(index, key, static_cast<int>(value)), line, value);
}
