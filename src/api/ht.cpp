#include "api/ht.h"

#include "api/wrapper.h"
#include "radio/ht.h"

Status wlan_getHTMcs(int index, unsigned *ret_mcs) {
    return get(__func__, ZAV_GetHTMcs, "ht mcs is %d\n", index, ret_mcs);
}

Status wlan_setHTMcs(int index, unsigned mcs) {
    return set(__func__, ZAV_SetHTMcs, "mcs=%u\n", "ht mcs set to:%d\n", index, mcs);
}

Status wlan_getChannelBW(int index, unsigned *ret_bandwidth) {
    return get(__func__, ZAV_GetChannelBW, "channel bandwidth is %d\n", index, ret_bandwidth);
}

Status wlan_setChannelBW(int index, unsigned bandwidth) {
    return set(__func__, ZAV_SetChannelBW, "bw=%u\n", "channel bandwidth set to:%d\n", index, bandwidth);
}

Status wlan_getHTMode(int index, unsigned *ret_mode) {
    return get(__func__, ZAV_GetHTMode, "ht mode is %d\n", index, ret_mode);
}

Status wlan_setHTMode(int index, unsigned mode) {
    return set(__func__, ZAV_SetHTMode, "htMode=%u\n", "ht mode set to:%d\n", index, mode);
}

Status wlan_getGuardInterval(int index, unsigned *ret_interval) {
    return get(__func__, ZAV_GetGuardInterval, "guard interval is %d\n", index, ret_interval);
}

Status wlan_setGuardInterval(int index, unsigned interval) {
    return set(__func__, ZAV_SetGuardInterval, "guardInterval=%u\n", "guard interval set to:%d\n", index,
               interval);
}

Status wlan_getAmsdu(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetAmsdu, "amsdu is %d\n", index, ret_enable);
}

Status wlan_setAmsdu(int index, unsigned enable) {
    return set(__func__, ZAV_SetAmsdu, "amsdu=%u\n", "amsdu set to:%d\n", index, enable);
}

Status wlan_getBADecline(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetBADecline, "ba decline is %d\n", index, ret_enable);
}

Status wlan_setBADecline(int index, unsigned enable) {
    return set(__func__, ZAV_SetBADecline, "baDecline=%u\n", "ba decline set to:%d\n", index, enable);
}

Status wlan_getBlockAck(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetBlockAck, "block ack is %d\n", index, ret_enable);
}

Status wlan_setBlockAck(int index, unsigned enable) {
    return set(__func__, ZAV_SetBlockAck, "ba=%u\n", "block ack set to:%d\n", index, enable);
}

Status wlan_getNProtection(int index, unsigned *ret_enable) {
    return get(__func__, ZAV_GetNProtection, "n protection is %d\n", index, ret_enable);
}

Status wlan_setNProtection(int index, unsigned enable) {
    return set(__func__, ZAV_SetNProtection, "nProtection=%u\n", "n protection set to:%d\n", index, enable);
}

Status wlan_getSideBand(int index, unsigned *ret_side) {
    return get(__func__, ZAV_GetSideBand, "side band is %d\n", index, ret_side);
}

Status wlan_setSideBand(int index, unsigned side) {
    return set(__func__, ZAV_SetSideBand, "sideband=%u\n", "side band set to:%d\n", index, side);
}

Status wlan_getHTTxStream(int index, unsigned *ret_streams) {
    return get(__func__, ZAV_GetHTTxStream, "tx streams is %d\n", index, ret_streams);
}

Status wlan_setHTTxStream(int index, unsigned streams) {
    return set(__func__, ZAV_SetHTTxStream, "stream=%u\n", "tx streams set to:%d\n", index, streams);
}

Status wlan_getHTRxStream(int index, unsigned *ret_streams) {
    return get(__func__, ZAV_GetHTRxStream, "rx streams is %d\n", index, ret_streams);
}

Status wlan_setHTRxStream(int index, unsigned streams) {
    return set(__func__, ZAV_SetHTRxStream, "stream=%u\n", "rx streams set to:%d\n", index, streams);
}

Status wlan_getHTStbc(int index, unsigned *ret_stbc) {
    return get(__func__, ZAV_GetHTStbc, "stbc is %d\n", index, ret_stbc);
}

Status wlan_setHTStbc(int index, unsigned stbc) {
    return set(__func__, ZAV_SetHTStbc, "stbc=%u\n", "stbc set to:%d\n", index, stbc);
}

Status wlan_getHTRDG(int index, unsigned *ret_rdg) {
    return get(__func__, ZAV_GetHTRDG, "rdg is %d\n", index, ret_rdg);
}

Status wlan_setHTRDG(int index, unsigned rdg) {
    return set(__func__, ZAV_SetHTRDG, "rdg=%u\n", "rdg set to:%d\n", index, rdg);
}

Status wlan_getImplicitBeamformingEnable(int index, unsigned *ret_enable) {
    return get_with_code(__func__, ZAV_GetImplicitBeamformingEnable, "implicit beamforming is %d\n", index,
                         ret_enable);
}

Status wlan_setImplicitBeamformingEnable(int index, unsigned enable) {
    return set(__func__, ZAV_SetImplicitBeamformingEnable, "enable=%u\n", "implicit beamforming set to:%d\n",
               index, enable);
}
