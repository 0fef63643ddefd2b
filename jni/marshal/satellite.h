// The DVB-S satellite and transponder records the player fills and reads, field by field as
// the service lays them out (natural alignment, records live on the caller's stack).
#pragma once

#include <utils/String8.h>

#include <cstddef>
#include <cstdint>

// One satellite. Note the record keeps the LNB type ahead of the LNB frequency, while the
// managed class lists lnbFreq first: the two are paired by name.
struct SatelliteInfoRec {
    android::String8 satName;
    uint16_t lowLOF;
    uint16_t hiLOF;
    uint8_t lnbType;
    uint8_t lnbFreq;
    uint8_t diseqcLevel;
    uint8_t toneburstType;
    uint8_t swt10Port;
    uint8_t swt11Port;
    uint8_t e22KOnOff;
    uint8_t lnbPwrOnOff;
    uint8_t ov12VOnOff;
    uint8_t position;
    uint16_t angle;
    uint16_t numberOfTp;
    uint8_t satelliteId;
    uint8_t channelId;
    uint16_t frequency;
    uint8_t mdu;  // a flag byte, passed to the managed side as it stands
    uint8_t pin;
    uint8_t lnbIdx;
};

static_assert(sizeof(android::String8) == sizeof(void*), "String8 is one pointer");
static_assert(offsetof(SatelliteInfoRec, lowLOF) == sizeof(void*), "lowLOF follows the name");
static_assert(offsetof(SatelliteInfoRec, hiLOF) == sizeof(void*) + 2, "hiLOF");
static_assert(offsetof(SatelliteInfoRec, lnbType) == sizeof(void*) + 4, "lnbType");
static_assert(offsetof(SatelliteInfoRec, lnbFreq) == sizeof(void*) + 5, "lnbFreq");
static_assert(offsetof(SatelliteInfoRec, diseqcLevel) == sizeof(void*) + 6, "diseqcLevel");
static_assert(offsetof(SatelliteInfoRec, position) == sizeof(void*) + 13, "position");
static_assert(offsetof(SatelliteInfoRec, angle) == sizeof(void*) + 14, "angle");
static_assert(offsetof(SatelliteInfoRec, numberOfTp) == sizeof(void*) + 16, "numberOfTp");
static_assert(offsetof(SatelliteInfoRec, satelliteId) == sizeof(void*) + 18, "satelliteId");
static_assert(offsetof(SatelliteInfoRec, channelId) == sizeof(void*) + 19, "channelId");
static_assert(offsetof(SatelliteInfoRec, frequency) == sizeof(void*) + 20, "frequency");
static_assert(offsetof(SatelliteInfoRec, mdu) == sizeof(void*) + 22, "mdu");
static_assert(offsetof(SatelliteInfoRec, pin) == sizeof(void*) + 23, "pin");
static_assert(offsetof(SatelliteInfoRec, lnbIdx) == sizeof(void*) + 24, "lnbIdx");
static_assert(sizeof(SatelliteInfoRec) == (sizeof(void*) == 8 ? 40 : 32), "satellite size");

// One transponder of a satellite.
struct DvbsTransponderInfoRec {
    int32_t frequency;
    uint16_t symbolRate;
    uint8_t polarity;
    uint8_t satelliteId;
    uint8_t rf;
    uint16_t tpId;
};

static_assert(offsetof(DvbsTransponderInfoRec, symbolRate) == 4, "symbolRate");
static_assert(offsetof(DvbsTransponderInfoRec, polarity) == 6, "polarity");
static_assert(offsetof(DvbsTransponderInfoRec, satelliteId) == 7, "satelliteId");
static_assert(offsetof(DvbsTransponderInfoRec, rf) == 8, "rf");
static_assert(offsetof(DvbsTransponderInfoRec, tpId) == 10, "tpId");
static_assert(sizeof(DvbsTransponderInfoRec) == 12, "transponder size");
