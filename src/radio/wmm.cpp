#include "radio/wmm.h"

#include "backend/value_lists.h"
#include "radio/kinds.h"

constexpr BssList wmm_enable{.key = "WmmCapable", .keeps_equal = true};
Status ZAV_GetWmmEnable(int index, unsigned *ret_enable) {
    return read_setting(__func__, wmm_enable, index, ret_enable);
}
Status ZAV_SetWmmEnable(int index, unsigned enable) {
    return write_setting(__func__, wmm_enable, index, enable);
}

// The other fields come from the list of station isolation, not from the list that is written.
Status ZAV_setWmmUaspdEnable(int index, unsigned enable) {
    Bss bss;
    NumberList list;
    log_set(__func__, index, enable);
    if (find_listed_bss(__func__, Reported::by_the_operation, index, &bss) != success ||
        read_numbers(bss, "NoForwarding", list) != success)
        return failure;
    list.at(bss.number - 1) = enable != 0 ? 1 : 0;
    return write_numbers(bss, "APSDCapable", list);
}

constexpr ClassList og_aifsn{"BSSAifsn"};
Status ZAV_GetWmmOgAifsn(int index, int ac, unsigned *ret_aifsn) {
    return read_setting(__func__, og_aifsn, index, ac, ret_aifsn);
}
Status ZAV_SetWmmOgAifsn(int index, int ac, unsigned aifsn) {
    return write_setting(__func__, og_aifsn, index, ac, aifsn);
}

constexpr ClassList og_ecw_min{"BSSCwmin"};
Status ZAV_GetWmmOgEcwMin(int index, int ac, unsigned *ret_ecw) {
    return read_setting(__func__, og_ecw_min, index, ac, ret_ecw);
}
Status ZAV_SetWmmOgEcwMin(int index, int ac, unsigned ecw) {
    return write_setting(__func__, og_ecw_min, index, ac, ecw);
}

constexpr ClassList og_ecw_max{"BSSCwmax"};
Status ZAV_GetWmmOgEcwMax(int index, int ac, unsigned *ret_ecw) {
    return read_setting(__func__, og_ecw_max, index, ac, ret_ecw);
}
Status ZAV_SetWmmOgEcwMax(int index, int ac, unsigned ecw) {
    return write_setting(__func__, og_ecw_max, index, ac, ecw);
}

constexpr ClassList og_tx_op{"BSSTxop"};
Status ZAV_GetWmmOgTxOp(int index, int ac, unsigned *ret_tx_op) {
    return read_setting(__func__, og_tx_op, index, ac, ret_tx_op);
}
Status ZAV_SetWmmOgTxOp(int index, int ac, unsigned tx_op) {
    return write_setting(__func__, og_tx_op, index, ac, tx_op);
}

constexpr ClassList ack_policy{"AckPolicy"};
Status ZAV_GetWmmOgAckPolicy(int index, int ac, unsigned *ret_policy) {
    return read_setting(__func__, ack_policy, index, ac, ret_policy);
}
Status ZAV_SetWmmOgAckPolicy(int index, int ac, unsigned policy) {
    return write_setting(__func__, ack_policy, index, ac, policy);
}

constexpr ClassList ic_aifsn{"APAifsn"};
Status ZAV_GetWmmIcAifsn(int index, int ac, unsigned *ret_aifsn) {
    return read_setting(__func__, ic_aifsn, index, ac, ret_aifsn);
}
Status ZAV_SetWmmIcAifsn(int index, int ac, unsigned aifsn) {
    return write_setting(__func__, ic_aifsn, index, ac, aifsn);
}

constexpr ClassList ic_ecw_min{"APCwmin"};
Status ZAV_GetWmmIcEcwMin(int index, int ac, unsigned *ret_ecw) {
    return read_setting(__func__, ic_ecw_min, index, ac, ret_ecw);
}
Status ZAV_SetWmmIcEcwMin(int index, int ac, unsigned ecw) {
    return write_setting(__func__, ic_ecw_min, index, ac, ecw);
}

constexpr ClassList ic_ecw_max{"APCwmax"};
Status ZAV_GetWmmIcEcwMax(int index, int ac, unsigned *ret_ecw) {
    return read_setting(__func__, ic_ecw_max, index, ac, ret_ecw);
}
Status ZAV_SetWmmIcEcwMax(int index, int ac, unsigned ecw) {
    return write_setting(__func__, ic_ecw_max, index, ac, ecw);
}

constexpr ClassList ic_tx_op{"APTxop"};
Status ZAV_GetWmmIcTxOp(int index, int ac, unsigned *ret_tx_op) {
    return read_setting(__func__, ic_tx_op, index, ac, ret_tx_op);
}
Status ZAV_SetWmmIcTxOp(int index, int ac, unsigned tx_op) {
    return write_setting(__func__, ic_tx_op, index, ac, tx_op);
}

// The driver has one list of policies.
Status ZAV_GetWmmIcAckPolicy(int index, int ac, unsigned *ret_policy) {
    return ZAV_GetWmmOgAckPolicy(index, ac, ret_policy);
}
Status ZAV_SetWmmIcAckPolicy(int index, int ac, unsigned policy) {
    return ZAV_SetWmmOgAckPolicy(index, ac, policy);
}
