// Records the player fills for the multiplex of a service and for an RF channel.
#pragma once

#include <utils/String8.h>

#include <cstddef>
#include <cstdint>

struct DvbMuxInfoRec {
    uint16_t satTableId;
    uint16_t networkTableID;
    uint16_t refCnt;
    uint16_t transportStreamId;
    uint16_t originalNetworkId;
    uint16_t networkId;
    uint16_t cellID;
    uint8_t rfNumber;
    int32_t frequency;
    int32_t lossSignalFrequency;
    int32_t lossSignalStartTime;
    int32_t symbRate;
    uint8_t modulationMode;
    uint16_t plpID;
    uint8_t lpCoding;  // boolean byte, carried whole
    uint8_t satID;
    uint8_t bandwidth;
    uint8_t polarityPilotsReserved;
};
static_assert(sizeof(DvbMuxInfoRec) == 40, "DvbMuxInfoRec size");
static_assert(offsetof(DvbMuxInfoRec, networkTableID) == 2, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, refCnt) == 4, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, transportStreamId) == 6, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, originalNetworkId) == 8, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, networkId) == 10, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, cellID) == 12, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, rfNumber) == 14, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, frequency) == 16, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, lossSignalFrequency) == 20, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, lossSignalStartTime) == 24, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, symbRate) == 28, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, modulationMode) == 32, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, plpID) == 34, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, lpCoding) == 36, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, satID) == 37, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, bandwidth) == 38, "DvbMuxInfoRec layout");
static_assert(offsetof(DvbMuxInfoRec, polarityPilotsReserved) == 39, "DvbMuxInfoRec layout");

struct RfInfoRec {
    uint16_t rfPhyNum;
    int32_t frequency;
    uint8_t isVHF;  // boolean byte, carried whole
    android::String8 rfName;
};
static_assert(sizeof(android::String8) == sizeof(void*), "String8 is one pointer");
static_assert(offsetof(RfInfoRec, frequency) == 4, "RfInfoRec layout");
static_assert(offsetof(RfInfoRec, isVHF) == 8, "RfInfoRec layout");
static_assert(offsetof(RfInfoRec, rfName) == (sizeof(void*) == 8 ? 16 : 12), "RfInfoRec layout");
static_assert(sizeof(RfInfoRec) == offsetof(RfInfoRec, rfName) + sizeof(void*), "RfInfoRec size");
