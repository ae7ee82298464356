#pragma once

#include "api/records.h"
#include "backend/stations.h"
#include "backend/status.h"

// Associated stations and traffic counters, in the records of the protocol. What an operation does not fill
// stays as it was. -1 when the driver is not initialised or does not answer, or the index has no BSS.

Status wlan_getAssocDevicesNum(int index, unsigned *ret_count);
// Stations of the whole radio.
Status wlan_getAssocDevicesTableNumOfEntries(int index, unsigned *ret_count);

// The station-th of the BSS, from 0: everything but byte_value, int_value1, int_value2 and name_field.
Status wlan_getAssocDevice(int index, int station, wlan_device_t *ret_device);
Status get_device(const char *who, int index, int station, wlan_device_t *ret_device); // `who` is logged

// The stations of the whole radio, as many as the record can hold; all of each but int_value2.
Status wlan_getAssocDevicesTable(int index, wlan_assoc_devices_table *ret_table);

// A failure leaves what had been filled until then.
Status wlan_getBasicStats(int index, wlan_basicStats_t *ret_stats);
Status wlan_getStats(int index, wlan_stats_t *ret_stats);
