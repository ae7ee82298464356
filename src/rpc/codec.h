#pragma once

#include "rpc/records.h"

#include <concepts>
#include <cstdarg>
#include <rpc/rpc.h>
#include <type_traits>

// One codec for each kind of item. Like the library's, each encodes, decodes or frees, by the stream's mode,
// and is false on failure. Pointers are null before a decode. What a failed decode had allocated is released
// by freeing the same object.

bool item(XDR *x, int &value);
bool item(XDR *x, unsigned &value);
bool item(XDR *x, unsigned short &value);
bool item(XDR *x, char &value);
bool item(XDR *x, unsigned char &value);
bool item(XDR *x, bool &value);
bool item(XDR *x, std::uint64_t &value);
bool item(XDR *x, wlan_config_return_code_e &value);
// The text is bounded by the bytes that remain in the stream: none is allocated on an announced length alone.
bool item(XDR *x, char *&text);
bool item(XDR *x, wlan_config_result_data_t &result);
bool item(XDR *x, wlan_device_result_data_t &result);

template <class Value, std::size_t length>
bool item(XDR *x, Value (&vector)[length]);
template <class... Items>
bool item(XDR *x, std::tuple<Items...> &items);
template <class Record>
requires requires(Record record) { record.fields(); }
bool item(XDR *x, Record &record) {
    auto fields = record.fields();
    return item(x, fields);
}

template <class Value, std::size_t length>
bool item(XDR *x, Value (&vector)[length]) {
    for (Value &value : vector)
        if (!item(x, value))
            return false;
    return true;
}

template <class Item>
concept Word =
    std::same_as<Item, int &> || std::same_as<Item, unsigned &> || std::same_as<Item, unsigned short &>;

// The words of a run where the stream lends `buffer` for them, in network order.
template <class... Words>
void run_of_words(XDR *x, std::int32_t *buffer, std::tuple<Words...> &words) {
    const auto code = [&](auto &word) {
        using Value = std::remove_reference_t<decltype(word)>;
        if (x->x_op == XDR_ENCODE)
            *buffer++ = static_cast<std::int32_t>(htonl(static_cast<std::uint32_t>(word)));
        else
            word = static_cast<Value>(ntohl(static_cast<std::uint32_t>(*buffer++)));
    };
    std::apply([&](auto &...word) { (code(word), ...); }, words);
}

template <class... Items>
bool item(XDR *x, std::tuple<Items...> &items) {
    if constexpr (sizeof...(Items) > 2 && (Word<Items> && ...)) {
        constexpr unsigned bytes = sizeof...(Items) * BYTES_PER_XDR_UNIT;
        if (std::int32_t *buffer = x->x_op == XDR_FREE ? nullptr : XDR_INLINE(x, bytes); buffer != nullptr) {
            run_of_words(x, buffer, items);
            return true;
        }
    }
    return std::apply([x](auto &...each) { return (item(x, each) && ...); }, items);
}

// An object together with its codec, behind the one function that has the library's variadic codec type.
struct Message {
    bool (*code)(XDR *, void *);
    void *object;
};

template <class Object>
Message message(Object &object) {
    return {[](XDR *x, void *o) { return item(x, *static_cast<Object *>(o)); }, &object};
}

// Takes a Message *.
extern "C" bool_t code_message(XDR *x, ...);
