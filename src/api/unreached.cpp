#include "api/unreached.h"

#include "api/stations.h"

Status wlan_get(int index, int station, wlan_device_t *ret_device) {
    return get_device(__func__, index, station, ret_device);
}
