#pragma once

#include "backend/interfaces.h"
#include "backend/status.h"

#include <array>
#include <cstddef>

// A site survey asks the driver for the access points that a radio hears. The answer is kept, a block for
// each band, until the next survey of the band; all indexes of a band have its block.

constexpr unsigned most_neighbours = 64;

// A neighbour as the driver packs it: bytes alone, so it reads the same on any host. A text that fills its
// place has no terminator.
struct SurveyRecord {
    unsigned char bssid[6];
    char ssid[33];
    unsigned char octets1[12];
    unsigned char byte1;
    unsigned char octets2[12];
    unsigned char byte2;
    unsigned char octets3[12];
    unsigned char unused[3];
    unsigned char byte3;
    unsigned char byte4;
    char text1[6];
    char char1;
    char text2[15];
    char text3[8];
    char text4[8];
    signed char number;
    unsigned char byte5;
};
static_assert(sizeof(SurveyRecord) == 122 && alignof(SurveyRecord) == 1);
static_assert(offsetof(SurveyRecord, ssid) == 6 && offsetof(SurveyRecord, octets1) == 39 &&
              offsetof(SurveyRecord, byte1) == 51 && offsetof(SurveyRecord, octets2) == 52 &&
              offsetof(SurveyRecord, byte2) == 64 && offsetof(SurveyRecord, octets3) == 65 &&
              offsetof(SurveyRecord, byte3) == 80 && offsetof(SurveyRecord, byte4) == 81 &&
              offsetof(SurveyRecord, text1) == 82 && offsetof(SurveyRecord, char1) == 88 &&
              offsetof(SurveyRecord, text2) == 89 && offsetof(SurveyRecord, text3) == 104 &&
              offsetof(SurveyRecord, text4) == 112 && offsetof(SurveyRecord, number) == 120 &&
              offsetof(SurveyRecord, byte5) == 121);

struct SurveyBlock {
    unsigned char count; // up to most_neighbours once it is published
    SurveyRecord records[most_neighbours];
};
static_assert(sizeof(SurveyBlock) == 7809 && offsetof(SurveyBlock, records) == 1);

// The driver's answer to a survey, which begins with the block.
using SurveyAnswer = std::array<char, 8232>;

// Replaces the block of the band by the beginning of the answer, whole, so that a reader has the old one or
// the new one; a count beyond the records is cut to them.
void publish_survey(Radio radio, const SurveyAnswer &answer);

// Clears the band's block, scans, which takes seconds, and publishes what the driver answered. -1 for an
// index without a BSS, before the driver is initialised, or when it does not answer; the block stays cleared
// then. Safe from any thread, on a small stack.
Status ZAV_ApSiteSurvey(int index);

// From the band's block, which is all zeros before any survey; -1 for an index without a BSS or before the
// driver is initialised.
Status ZAV_GetApScanNumOfEntries(int index, unsigned *ret_count);
Status ZAV_GetApScanResult(int index, SurveyBlock *ret_block);

// Tells the driver to choose the channel of the band. 0 or -1.
Status ZAV_ApAutoChannelSelect(int index);
