// Records the player fills for the demodulator: firmware version, DVB-T and DVB-C state.
#pragma once

#include <cstddef>
#include <cstdint>

// Sixteen characters, none terminated; each byte reaches the managed side zero-extended.
struct DtvDemodVersionRec {
    uint8_t name[4];
    uint8_t version[2];
    uint8_t build[2];
    uint8_t changelist[8];
};
static_assert(sizeof(DtvDemodVersionRec) == 16, "DtvDemodVersionRec size");
static_assert(offsetof(DtvDemodVersionRec, version) == 4, "DtvDemodVersionRec layout");
static_assert(offsetof(DtvDemodVersionRec, build) == 6, "DtvDemodVersionRec layout");
static_assert(offsetof(DtvDemodVersionRec, changelist) == 8, "DtvDemodVersionRec layout");

struct DtvDemodDvbtInfoRec {
    uint16_t u16Version;
    uint8_t u16DemodState;  // eight bits, whatever the name says
    float SfoValue;
    float TotalCfo;
    uint16_t u16ChannelLength;
    uint8_t u8Fft;
    uint8_t u8Constel;
    uint8_t u8Gi;
    uint8_t u8HpCr;
    uint8_t u8LpCr;
    uint8_t u8Hiearchy;
    uint8_t u8Fd;
    uint8_t u8ChLen;
    uint8_t u8SnrSel;
    uint8_t u8PertoneNum;
    uint8_t u8DigAci;
    uint8_t u8FlagCi;
    uint8_t u8TdCoef;
};
static_assert(sizeof(DtvDemodDvbtInfoRec) == 28, "DtvDemodDvbtInfoRec size");
static_assert(offsetof(DtvDemodDvbtInfoRec, u16DemodState) == 2, "DVB-T record layout");
static_assert(offsetof(DtvDemodDvbtInfoRec, SfoValue) == 4, "DVB-T record layout");
static_assert(offsetof(DtvDemodDvbtInfoRec, TotalCfo) == 8, "DVB-T record layout");
static_assert(offsetof(DtvDemodDvbtInfoRec, u16ChannelLength) == 12, "DVB-T record layout");
static_assert(offsetof(DtvDemodDvbtInfoRec, u8Fft) == 14, "DVB-T record layout");
static_assert(offsetof(DtvDemodDvbtInfoRec, u8Hiearchy) == 19, "DVB-T record layout");
static_assert(offsetof(DtvDemodDvbtInfoRec, u8TdCoef) == 26, "DVB-T record layout");

struct DtvDemodDvbcInfoRec {
    uint16_t u16Version;
    uint16_t u16SymbolRate;
    uint8_t eQamMode;
    uint32_t u32IFFreq;
    uint8_t bSpecInv;   // boolean byte, carried whole
    uint8_t bSerialTS;  // boolean byte, carried whole
    uint8_t u8SarValue;
    uint32_t u32ChkScanTimeStart;
    uint8_t eLockStatus;
    uint16_t u16Strength;
    uint16_t u16Quality;
    uint32_t u32Intp;
    uint32_t u32FcFs;
    uint8_t u8Qam;
    uint16_t u16SymbolRateHal;
};
static_assert(sizeof(DtvDemodDvbcInfoRec) == 40, "DtvDemodDvbcInfoRec size");
static_assert(offsetof(DtvDemodDvbcInfoRec, u16SymbolRate) == 2, "DVB-C record layout");
static_assert(offsetof(DtvDemodDvbcInfoRec, eQamMode) == 4, "DVB-C record layout");
static_assert(offsetof(DtvDemodDvbcInfoRec, u32IFFreq) == 8, "DVB-C record layout");
static_assert(offsetof(DtvDemodDvbcInfoRec, bSpecInv) == 12, "DVB-C record layout");
static_assert(offsetof(DtvDemodDvbcInfoRec, bSerialTS) == 13, "DVB-C record layout");
static_assert(offsetof(DtvDemodDvbcInfoRec, u8SarValue) == 14, "DVB-C record layout");
static_assert(offsetof(DtvDemodDvbcInfoRec, u32ChkScanTimeStart) == 16, "DVB-C record layout");
static_assert(offsetof(DtvDemodDvbcInfoRec, eLockStatus) == 20, "DVB-C record layout");
static_assert(offsetof(DtvDemodDvbcInfoRec, u16Strength) == 22, "DVB-C record layout");
static_assert(offsetof(DtvDemodDvbcInfoRec, u16Quality) == 24, "DVB-C record layout");
static_assert(offsetof(DtvDemodDvbcInfoRec, u32Intp) == 28, "DVB-C record layout");
static_assert(offsetof(DtvDemodDvbcInfoRec, u32FcFs) == 32, "DVB-C record layout");
static_assert(offsetof(DtvDemodDvbcInfoRec, u8Qam) == 36, "DVB-C record layout");
static_assert(offsetof(DtvDemodDvbcInfoRec, u16SymbolRateHal) == 38, "DVB-C record layout");
