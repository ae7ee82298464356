#pragma once

#include "api/records.h"
#include "backend/status.h"

// An entry point that no procedure reaches; other parts of the platform may call it.

// As wlan_getAssocDevice.
Status wlan_get(int index, int station, wlan_device_t *ret_device);
