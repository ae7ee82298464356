#pragma once

#include "backend/status.h"

// The 802.11n settings of a radio: as those of radio.h. What the numbers mean is the driver's.

Status ZAV_GetHTMcs(int index, unsigned *ret_mcs);
Status ZAV_SetHTMcs(int index, unsigned mcs);
Status ZAV_GetHTMode(int index, unsigned *ret_mode);
Status ZAV_SetHTMode(int index, unsigned mode);

// 0: 20 MHz, 1: 20 or 40 MHz with regard to neighbours, 2: 40 MHz without; -1 and nothing stored for any
// other.
Status ZAV_GetChannelBW(int index, unsigned *ret_bandwidth);
Status ZAV_SetChannelBW(int index, unsigned bandwidth);
// 0 or 1: fixed, 2: chosen by the driver; -1 and nothing stored for any other.
Status ZAV_GetGuardInterval(int index, unsigned *ret_interval);
Status ZAV_SetGuardInterval(int index, unsigned interval);
// The extension side in force: 0 below, 1 above.
Status ZAV_GetSideBand(int index, unsigned *ret_side);
Status ZAV_SetSideBand(int index, unsigned side);

Status ZAV_GetAmsdu(int index, unsigned *ret_enable);
Status ZAV_SetAmsdu(int index, unsigned enable);
Status ZAV_GetBADecline(int index, unsigned *ret_enable);
Status ZAV_SetBADecline(int index, unsigned enable);
Status ZAV_GetBlockAck(int index, unsigned *ret_enable);
Status ZAV_SetBlockAck(int index, unsigned enable);
Status ZAV_GetNProtection(int index, unsigned *ret_enable);
Status ZAV_SetNProtection(int index, unsigned enable);

Status ZAV_GetHTTxStream(int index, unsigned *ret_streams);
Status ZAV_SetHTTxStream(int index, unsigned streams);
Status ZAV_GetHTRxStream(int index, unsigned *ret_streams);
Status ZAV_SetHTRxStream(int index, unsigned streams);
Status ZAV_GetHTStbc(int index, unsigned *ret_stbc);
Status ZAV_SetHTStbc(int index, unsigned stbc);
Status ZAV_GetHTRDG(int index, unsigned *ret_rdg);
Status ZAV_SetHTRDG(int index, unsigned rdg);
Status ZAV_GetImplicitBeamformingEnable(int index, unsigned *ret_enable);
Status ZAV_SetImplicitBeamformingEnable(int index, unsigned enable);
