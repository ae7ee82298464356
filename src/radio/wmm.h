#pragma once

#include "backend/status.h"

// Quality of service. Getters answer 0, or -1 for an index without a BSS, a class other than 1 to 4, or an
// absent list; setters 0 written, 2 already stored, -1 failure. The driver sees them at the next restart of
// the interfaces.

// Of one BSS: 0 or 1.
Status ZAV_GetWmmEnable(int index, unsigned *ret_enable);
Status ZAV_SetWmmEnable(int index, unsigned enable);

// Power save of one BSS; the fields of all others become those of the list of station isolation.
Status ZAV_setWmmUaspdEnable(int index, unsigned enable);

// Of a radio, for an access class, 1 to 4; the values are stored as they come. First what the stations are
// told, then what the radio itself uses.
Status ZAV_GetWmmOgAifsn(int index, int ac, unsigned *ret_aifsn);
Status ZAV_SetWmmOgAifsn(int index, int ac, unsigned aifsn);
Status ZAV_GetWmmOgEcwMin(int index, int ac, unsigned *ret_ecw);
Status ZAV_SetWmmOgEcwMin(int index, int ac, unsigned ecw);
Status ZAV_GetWmmOgEcwMax(int index, int ac, unsigned *ret_ecw);
Status ZAV_SetWmmOgEcwMax(int index, int ac, unsigned ecw);
Status ZAV_GetWmmOgTxOp(int index, int ac, unsigned *ret_tx_op);
Status ZAV_SetWmmOgTxOp(int index, int ac, unsigned tx_op);
Status ZAV_GetWmmOgAckPolicy(int index, int ac, unsigned *ret_policy);
Status ZAV_SetWmmOgAckPolicy(int index, int ac, unsigned policy);

Status ZAV_GetWmmIcAifsn(int index, int ac, unsigned *ret_aifsn);
Status ZAV_SetWmmIcAifsn(int index, int ac, unsigned aifsn);
Status ZAV_GetWmmIcEcwMin(int index, int ac, unsigned *ret_ecw);
Status ZAV_SetWmmIcEcwMin(int index, int ac, unsigned ecw);
Status ZAV_GetWmmIcEcwMax(int index, int ac, unsigned *ret_ecw);
Status ZAV_SetWmmIcEcwMax(int index, int ac, unsigned ecw);
Status ZAV_GetWmmIcTxOp(int index, int ac, unsigned *ret_tx_op);
Status ZAV_SetWmmIcTxOp(int index, int ac, unsigned tx_op);
// The same list as for the stations.
Status ZAV_GetWmmIcAckPolicy(int index, int ac, unsigned *ret_policy);
Status ZAV_SetWmmIcAckPolicy(int index, int ac, unsigned policy);
