#pragma once

#include "backend/status.h"

// Quality of service; radio/wmm.h says what each is.

Status wlan_getWmmEnable(int index, unsigned *ret_enable);
Status wlan_setWmmEnable(int index, unsigned enable);

// Whether the radio can do it, and power save: 0 or 1, default 0; these getters always answer 0.
Status wlan_getWmmSupported(int index, unsigned *ret_supported);
Status wlan_getWmmUaspdSupported(int index, unsigned *ret_supported);
Status wlan_getWmmUaspdEnable(int index, unsigned *ret_enable);
Status wlan_getWMMAPSD(int index, unsigned *ret_enable);
Status wlan_setWmmUaspdEnable(int index, unsigned enable);
Status wlan_setWMMAPSD(int index, unsigned enable);

Status wlan_getWmmOgAifsn(int index, int ac, unsigned *ret_aifsn);
Status wlan_setWmmOgAifsn(int index, int ac, unsigned aifsn);
Status wlan_getWmmOgEcwMin(int index, int ac, unsigned *ret_ecw);
Status wlan_setWmmOgEcwMin(int index, int ac, unsigned ecw);
Status wlan_getWmmOgEcwMax(int index, int ac, unsigned *ret_ecw);
Status wlan_setWmmOgEcwMax(int index, int ac, unsigned ecw);
Status wlan_getWmmOgTxOp(int index, int ac, unsigned *ret_tx_op);
Status wlan_setWmmOgTxOp(int index, int ac, unsigned tx_op);
Status wlan_getWmmOgAckPolicy(int index, int ac, unsigned *ret_policy);
Status wlan_setWmmOgAckPolicy(int index, int ac, unsigned policy);

Status wlan_getWmmIcAifsn(int index, int ac, unsigned *ret_aifsn);
Status wlan_setWmmIcAifsn(int index, int ac, unsigned aifsn);
Status wlan_getWmmIcEcwMin(int index, int ac, unsigned *ret_ecw);
Status wlan_setWmmIcEcwMin(int index, int ac, unsigned ecw);
Status wlan_getWmmIcEcwMax(int index, int ac, unsigned *ret_ecw);
Status wlan_setWmmIcEcwMax(int index, int ac, unsigned ecw);
Status wlan_getWmmIcTxOp(int index, int ac, unsigned *ret_tx_op);
Status wlan_setWmmIcTxOp(int index, int ac, unsigned tx_op);
Status wlan_getWmmIcAckPolicy(int index, int ac, unsigned *ret_policy);
Status wlan_setWmmIcAckPolicy(int index, int ac, unsigned policy);
