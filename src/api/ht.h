#pragma once

#include "backend/status.h"

// The 802.11n settings of a radio; radio/ht.h says what each is.

Status wlan_getHTMcs(int index, unsigned *ret_mcs);
Status wlan_setHTMcs(int index, unsigned mcs);
Status wlan_getHTMode(int index, unsigned *ret_mode);
Status wlan_setHTMode(int index, unsigned mode);

Status wlan_getChannelBW(int index, unsigned *ret_bandwidth);
Status wlan_setChannelBW(int index, unsigned bandwidth);
Status wlan_getGuardInterval(int index, unsigned *ret_interval);
Status wlan_setGuardInterval(int index, unsigned interval);
Status wlan_getSideBand(int index, unsigned *ret_side);
Status wlan_setSideBand(int index, unsigned side);

Status wlan_getAmsdu(int index, unsigned *ret_enable);
Status wlan_setAmsdu(int index, unsigned enable);
Status wlan_getBADecline(int index, unsigned *ret_enable);
Status wlan_setBADecline(int index, unsigned enable);
Status wlan_getBlockAck(int index, unsigned *ret_enable);
Status wlan_setBlockAck(int index, unsigned enable);
Status wlan_getNProtection(int index, unsigned *ret_enable);
Status wlan_setNProtection(int index, unsigned enable);

Status wlan_getHTTxStream(int index, unsigned *ret_streams);
Status wlan_setHTTxStream(int index, unsigned streams);
Status wlan_getHTRxStream(int index, unsigned *ret_streams);
Status wlan_setHTRxStream(int index, unsigned streams);
Status wlan_getHTStbc(int index, unsigned *ret_stbc);
Status wlan_setHTStbc(int index, unsigned stbc);
Status wlan_getHTRDG(int index, unsigned *ret_rdg);
Status wlan_setHTRDG(int index, unsigned rdg);
Status wlan_getImplicitBeamformingEnable(int index, unsigned *ret_enable);
Status wlan_setImplicitBeamformingEnable(int index, unsigned enable);
