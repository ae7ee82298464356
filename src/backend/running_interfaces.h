#pragma once

#include "backend/interfaces.h"

// Which driver interfaces the system has now, as ifconfig tells.

Radios GET_RUNNING_INTERFACES();
// 1 when the radio of `index` has interfaces now, else 0.
int isInterfacesRunningOnBand(int index);
