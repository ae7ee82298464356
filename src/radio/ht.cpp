#include "radio/ht.h"

#include "radio/kinds.h"

constexpr RadioNumber ht_mcs{"HT_MCS"};
Status ZAV_GetHTMcs(int index, unsigned *ret_mcs) { return read_setting(__func__, ht_mcs, index, ret_mcs); }
Status ZAV_SetHTMcs(int index, unsigned mcs) { return write_setting(__func__, ht_mcs, index, mcs); }

constexpr RadioFlag ht_mode{"HT_OpMode"};
Status ZAV_GetHTMode(int index, unsigned *ret_mode) {
    return read_setting(__func__, ht_mode, index, ret_mode);
}
Status ZAV_SetHTMode(int index, unsigned mode) { return write_setting(__func__, ht_mode, index, mode); }

constexpr RadioFlag amsdu{"HT_AMSDU"};
Status ZAV_GetAmsdu(int index, unsigned *ret_enable) {
    return read_setting(__func__, amsdu, index, ret_enable);
}
Status ZAV_SetAmsdu(int index, unsigned enable) { return write_setting(__func__, amsdu, index, enable); }

constexpr RadioFlag ba_decline{"HT_BADecline"};
Status ZAV_GetBADecline(int index, unsigned *ret_enable) {
    return read_setting(__func__, ba_decline, index, ret_enable);
}
Status ZAV_SetBADecline(int index, unsigned enable) {
    return write_setting(__func__, ba_decline, index, enable);
}

constexpr RadioFlag block_ack{"HT_AutoBA"};
Status ZAV_GetBlockAck(int index, unsigned *ret_enable) {
    return read_setting(__func__, block_ack, index, ret_enable);
}
Status ZAV_SetBlockAck(int index, unsigned enable) {
    return write_setting(__func__, block_ack, index, enable);
}

constexpr RadioFlag n_protection{"HT_PROTECT"};
Status ZAV_GetNProtection(int index, unsigned *ret_enable) {
    return read_setting(__func__, n_protection, index, ret_enable);
}
Status ZAV_SetNProtection(int index, unsigned enable) {
    return write_setting(__func__, n_protection, index, enable);
}

constexpr RadioFlag side_band{.key = "HT_EXTCHA", .is_exact = true};
Status ZAV_GetSideBand(int index, unsigned *ret_side) {
    return read_setting(__func__, side_band, index, ret_side);
}
Status ZAV_SetSideBand(int index, unsigned side) { return write_setting(__func__, side_band, index, side); }

constexpr RadioNumber tx_streams{"HT_TxStream"};
Status ZAV_GetHTTxStream(int index, unsigned *ret_streams) {
    return read_setting(__func__, tx_streams, index, ret_streams);
}
Status ZAV_SetHTTxStream(int index, unsigned streams) {
    return write_setting(__func__, tx_streams, index, streams);
}

constexpr RadioNumber rx_streams{"HT_RxStream"};
Status ZAV_GetHTRxStream(int index, unsigned *ret_streams) {
    return read_setting(__func__, rx_streams, index, ret_streams);
}
Status ZAV_SetHTRxStream(int index, unsigned streams) {
    return write_setting(__func__, rx_streams, index, streams);
}

constexpr RadioNumber ht_stbc{"HT_STBC"};
Status ZAV_GetHTStbc(int index, unsigned *ret_stbc) {
    return read_setting(__func__, ht_stbc, index, ret_stbc);
}
Status ZAV_SetHTStbc(int index, unsigned stbc) { return write_setting(__func__, ht_stbc, index, stbc); }

constexpr RadioNumber ht_rdg{"HT_RDG"};
Status ZAV_GetHTRDG(int index, unsigned *ret_rdg) { return read_setting(__func__, ht_rdg, index, ret_rdg); }
Status ZAV_SetHTRDG(int index, unsigned rdg) { return write_setting(__func__, ht_rdg, index, rdg); }

constexpr RadioFlag implicit_beamforming{
    .key = "ZvITxBfEn", .is_exact = true, .bad_index = Reported::by_the_operation};
Status ZAV_GetImplicitBeamformingEnable(int index, unsigned *ret_enable) {
    return read_setting(__func__, implicit_beamforming, index, ret_enable);
}
Status ZAV_SetImplicitBeamformingEnable(int index, unsigned enable) {
    return write_setting(__func__, implicit_beamforming, index, enable);
}

constexpr FlagPair channel_bw{"HT_BSSCoexistence", "HT_BW", {{{"1", "0"}, {"1", "1"}, {"0", "1"}}}};
Status ZAV_SetChannelBW(int index, unsigned bandwidth) {
    return write_setting(__func__, channel_bw, index, bandwidth);
}

Status ZAV_GetChannelBW(int index, unsigned *ret_bandwidth) {
    Bss bss;
    bool is_40_mhz = false, coexists = false;
    log_get(__func__, index);
    if (find_reported_bss(__func__, Reported::by_nobody, index, &bss) != success ||
        read_switch(__func__, bss, channel_bw.second, &is_40_mhz) != success ||
        (is_40_mhz && read_switch(__func__, bss, channel_bw.first, &coexists) != success))
        return failure;
    *ret_bandwidth = !is_40_mhz ? 0 : coexists ? 1 : 2;
    return success;
}

constexpr FlagPair guard_interval{"HT_AutoGI", "HT_GI", {{{"0", "1"}, {"0", "0"}, {"1", "1"}}}};
Status ZAV_SetGuardInterval(int index, unsigned interval) {
    return write_setting(__func__, guard_interval, index, interval);
}

Status ZAV_GetGuardInterval(int index, unsigned *ret_interval) {
    Bss bss;
    bool is_auto = false, is_fixed_on = false;
    log_get(__func__, index);
    if (find_reported_bss(__func__, Reported::by_nobody, index, &bss) != success ||
        read_switch(__func__, bss, guard_interval.first, &is_auto) != success ||
        (!is_auto && read_switch(__func__, bss, guard_interval.second, &is_fixed_on) != success))
        return failure;
    *ret_interval = is_auto ? 2 : is_fixed_on ? 0 : 1;
    return success;
}
