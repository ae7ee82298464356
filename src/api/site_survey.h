#pragma once

#include "api/records.h"
#include "backend/site_survey.h"
#include "backend/status.h"

// Site surveys take seconds, so each runs in a thread of its own, one a band at a time; a client asks for the
// status until it has ended and then for the result.

constexpr unsigned scan_never = 0, scan_running = 1, scan_failed = 2, scan_finished = 3;

// Starts a survey of the band of the index. 0 once it runs; -1 for an index without a BSS, before the driver
// is initialised, while the band is being scanned, or when no thread can be had.
Status wlan_ApSiteSurvey(int index);

// One of the above for the band of the index; -1 for an index without a BSS or before the driver is
// initialised.
Status wlan_ApSiteSurveyStatus(int index, unsigned *ret_status);

// What the last survey of the band has found, nothing while one runs or after it failed. -1 as above.
Status wlan_getApScanNumOfEntries(int index, unsigned *ret_count);
Status wlan_getApScanResult(int index, scan_table *ret_table);

// Tells the driver to choose the channel of the band. 0 or -1.
Status wlan_apAutoChannelSelect(int index);

// Keeps the status of a band, if it is one of the above.
void set_ap_scan_thread_status(Radio radio, unsigned status);

// Turns the driver's records into those of the wire. Texts are cut at the wire's fields, and have no
// terminator where they fill them.
void convert_survey(const SurveyBlock &block, scan_table *ret_table);
