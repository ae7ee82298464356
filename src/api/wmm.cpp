#include "api/wmm.h"

#include "api/wrapper.h"
#include "radio/wmm.h"

Status wlan_getWmmEnable(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetWmmEnable, "wmm is %d\n", index, ret_enable);
}

Status wlan_setWmmEnable(int index, unsigned enable) {
    return set(__func__, ZAV_SetWmmEnable, "enable=%u\n", "wmm set to:%d\n", index, enable);
}

Status wlan_getWmmSupported(int index, unsigned *ret_supported) {
    return get_key(__func__, "WmmCapable", 0, "supported is %i.\n", index, ret_supported);
}

Status wlan_getWmmUaspdSupported(int index, unsigned *ret_supported) {
    return get_key(__func__, "APSDCapable", 0, "supported is %i.\n", index, ret_supported);
}

Status wlan_getWmmUaspdEnable(int index, unsigned *ret_enable) {
    return get_key(__func__, "APSDCapable", 0, "enable is %i.\n", index, ret_enable);
}

Status wlan_setWmmUaspdEnable(int index, unsigned enable) {
    log_entry_with(__func__, index, Line<unsigned>("enable=%u\n"), enable);
    return ZAV_setWmmUaspdEnable(index, enable);
}

Status wlan_getWMMAPSD(int index, unsigned *ret_enable) {
    return get(__func__, wlan_getWmmUaspdEnable, "apsd is: %d\n", index, ret_enable);
}

Status wlan_setWMMAPSD(int index, unsigned enable) {
    return set(__func__, wlan_setWmmUaspdEnable, "apsd=%u\n", "apsd set to:%d\n", index, enable);
}

Status wlan_getWmmOgAifsn(int index, int ac, unsigned *ret_aifsn) {
    return get_selected(__func__, ZAV_GetWmmOgAifsn, "class=%d\n", "aifsn is %d\n", index, ac, ret_aifsn);
}

Status wlan_setWmmOgAifsn(int index, int ac, unsigned aifsn) {
    return set_selected(__func__, ZAV_SetWmmOgAifsn, "class=%d aifsn=%u\n", "aifsn set to:%d\n", index, ac,
                        aifsn);
}

Status wlan_getWmmOgEcwMin(int index, int ac, unsigned *ret_ecw) {
    return get_selected(__func__, ZAV_GetWmmOgEcwMin, "class=%d\n", "ecw min is %d\n", index, ac, ret_ecw);
}

Status wlan_setWmmOgEcwMin(int index, int ac, unsigned ecw) {
    return set_selected(__func__, ZAV_SetWmmOgEcwMin, "class=%d ecwMin=%u\n", "ecw min set to:%d\n", index,
                        ac, ecw);
}

Status wlan_getWmmOgEcwMax(int index, int ac, unsigned *ret_ecw) {
    return get_selected(__func__, ZAV_GetWmmOgEcwMax, "class=%d\n", "ecw max is %d\n", index, ac, ret_ecw);
}

Status wlan_setWmmOgEcwMax(int index, int ac, unsigned ecw) {
    return set_selected(__func__, ZAV_SetWmmOgEcwMax, "class=%d ecwMax=%u\n", "ecw max set to:%d\n", index,
                        ac, ecw);
}

Status wlan_getWmmOgTxOp(int index, int ac, unsigned *ret_tx_op) {
    return get_selected(__func__, ZAV_GetWmmOgTxOp, "class=%d\n", "tx op is %d\n", index, ac, ret_tx_op);
}

Status wlan_setWmmOgTxOp(int index, int ac, unsigned tx_op) {
    return set_selected(__func__, ZAV_SetWmmOgTxOp, "class=%d txOp=%u\n", "tx op set to:%d\n", index, ac,
                        tx_op);
}

Status wlan_getWmmOgAckPolicy(int index, int ac, unsigned *ret_policy) {
    return get_selected(__func__, ZAV_GetWmmOgAckPolicy, "class=%d\n", "ack policy is %d\n", index, ac,
                        ret_policy);
}

Status wlan_setWmmOgAckPolicy(int index, int ac, unsigned policy) {
    return set_selected(__func__, ZAV_SetWmmOgAckPolicy, "class=%d policy=%u\n", "ack policy set to:%d\n",
                        index, ac, policy);
}

Status wlan_getWmmIcAifsn(int index, int ac, unsigned *ret_aifsn) {
    return get_selected(__func__, ZAV_GetWmmIcAifsn, "class=%d\n", "aifsn is %d\n", index, ac, ret_aifsn);
}

Status wlan_setWmmIcAifsn(int index, int ac, unsigned aifsn) {
    return set_selected(__func__, ZAV_SetWmmIcAifsn, "class=%d aifsn=%u\n", "aifsn set to:%d\n", index, ac,
                        aifsn);
}

Status wlan_getWmmIcEcwMin(int index, int ac, unsigned *ret_ecw) {
    return get_selected(__func__, ZAV_GetWmmIcEcwMin, "class=%d\n", "ecw min is %d\n", index, ac, ret_ecw);
}

Status wlan_setWmmIcEcwMin(int index, int ac, unsigned ecw) {
    return set_selected(__func__, ZAV_SetWmmIcEcwMin, "class=%d ecwMin=%u\n", "ecw min set to:%d\n", index,
                        ac, ecw);
}

Status wlan_getWmmIcEcwMax(int index, int ac, unsigned *ret_ecw) {
    return get_selected(__func__, ZAV_GetWmmIcEcwMax, "class=%d\n", "ecw max is %d\n", index, ac, ret_ecw);
}

Status wlan_setWmmIcEcwMax(int index, int ac, unsigned ecw) {
    return set_selected(__func__, ZAV_SetWmmIcEcwMax, "class=%d ecwMax=%u\n", "ecw max set to:%d\n", index,
                        ac, ecw);
}

Status wlan_getWmmIcTxOp(int index, int ac, unsigned *ret_tx_op) {
    return get_selected(__func__, ZAV_GetWmmIcTxOp, "class=%d\n", "tx op is %d\n", index, ac, ret_tx_op);
}

Status wlan_setWmmIcTxOp(int index, int ac, unsigned tx_op) {
    return set_selected(__func__, ZAV_SetWmmIcTxOp, "class=%d txOp=%u\n", "tx op set to:%d\n", index, ac,
                        tx_op);
}

Status wlan_getWmmIcAckPolicy(int index, int ac, unsigned *ret_policy) {
    return get_selected(__func__, ZAV_GetWmmIcAckPolicy, "class=%d\n", "ack policy is %d\n", index, ac,
                        ret_policy);
}

Status wlan_setWmmIcAckPolicy(int index, int ac, unsigned policy) {
    return set_selected(__func__, ZAV_SetWmmIcAckPolicy, "class=%d policy=%u\n", "ack policy set to:%d\n",
                        index, ac, policy);
}
