#include "rpc/codec.h"

#include "rpc/protocol.h"

#include <cstdlib>
#include <limits>

namespace {

// The library's arrays and byte strings take their bytes with the same length rules; these two add only that
// nothing is allocated for more than the stream still holds.
bool announced(XDR *x, unsigned &length, unsigned bytes_each) {
    if (!xdr_u_int(x, &length))
        return false;
    return x->x_op != XDR_DECODE || length <= x->x_handy / bytes_each;
}

template <class Value>
bool array(XDR *x, unsigned &length, Value *&values) {
    if (x->x_op != XDR_FREE && !announced(x, length, BYTES_PER_XDR_UNIT))
        return false;
    if (x->x_op == XDR_DECODE)
        values = static_cast<Value *>(std::calloc(length + std::size_t{1}, sizeof(Value)));
    if (x->x_op == XDR_FREE) {
        std::free(values);
        values = nullptr;
        return true;
    }
    if (values == nullptr)
        return length == 0;
    for (unsigned i = 0; i < length; ++i)
        if (!item(x, values[i]))
            return false;
    return true;
}

bool bytes(XDR *x, unsigned &length, char *&data, unsigned most) {
    if (x->x_op == XDR_FREE) {
        std::free(data);
        data = nullptr;
        return true;
    }
    if (!announced(x, length, 1) || length > most)
        return false;
    if (x->x_op == XDR_DECODE)
        data = static_cast<char *>(std::malloc(length + std::size_t{1}));
    return data == nullptr ? length == 0 : xdr_opaque(x, data, length);
}

} // namespace

bool item(XDR *x, int &value) { return xdr_int(x, &value); }
bool item(XDR *x, unsigned &value) { return xdr_u_int(x, &value); }
// The library's own would cut a number that is too large, and so mean another VLAN.
bool item(XDR *x, unsigned short &value) {
    unsigned word = value;
    if (!xdr_u_int(x, &word) || word > std::numeric_limits<unsigned short>::max())
        return false;
    value = static_cast<unsigned short>(word);
    return true;
}
bool item(XDR *x, char &value) { return xdr_char(x, &value); }
bool item(XDR *x, unsigned char &value) { return xdr_u_char(x, &value); }

bool item(XDR *x, bool &value) {
    bool_t wire = x->x_op == XDR_ENCODE && value ? TRUE : FALSE;
    if (!xdr_bool(x, &wire))
        return false;
    value = wire != FALSE;
    return true;
}

bool item(XDR *x, std::uint64_t &value) {
    u_quad_t wire = x->x_op == XDR_ENCODE ? value : 0;
    if (!xdr_u_quad_t(x, &wire))
        return false;
    value = wire;
    return true;
}

bool item(XDR *x, wlan_config_return_code_e &value) {
    enum_t wire = x->x_op == XDR_ENCODE ? value : 0;
    if (!xdr_enum(x, &wire))
        return false;
    value = static_cast<wlan_config_return_code_e>(wire);
    return true;
}

bool item(XDR *x, char *&text) {
    if (x->x_op == XDR_DECODE) {
        unsigned length = 0;
        if (!announced(x, length, 1))
            return false;
        text = static_cast<char *>(std::calloc(length + std::size_t{1}, 1));
        return text != nullptr && xdr_opaque(x, text, length);
    }
    return xdr_string(x, &text, ~0U);
}

bool item(XDR *x, wlan_config_result_data_t &result) {
    auto &[numbers_len, numbers] = result.return_u_int;
    auto &[data_len, data] = result.return_data;
    return item(x, result.return_code) && array(x, numbers_len, numbers) &&
           bytes(x, data_len, data, longest_return_data);
}

bool item(XDR *x, wlan_device_result_data_t &result) {
    return item(x, result.return_code) && array(x, result.devices.devices_len, result.devices.devices_val);
}

bool_t code_message(XDR *x, ...) {
    va_list list;
    va_start(list, x);
    const auto *message = va_arg(list, Message *);
    va_end(list);
    return message->code(x, message->object) ? TRUE : FALSE;
}
