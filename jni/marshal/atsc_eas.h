// The record the player fills with the ATSC emergency alert in progress. The signedness of
// each field decides how it widens to the managed int, whatever its name's prefix says.
#pragma once

#include <cstddef>
#include <cstdint>

struct VapiPsipEasLocationCodeRec {
    int8_t u8StateCode;
    int8_t u8CountySubdivision;
    int16_t u16CountyCode;
};
static_assert(sizeof(VapiPsipEasLocationCodeRec) == 4, "location code size");
static_assert(offsetof(VapiPsipEasLocationCodeRec, u8CountySubdivision) == 1, "location layout");
static_assert(offsetof(VapiPsipEasLocationCodeRec, u16CountyCode) == 2, "location layout");

struct VapiPsipEasExceptionRec {
    uint8_t bInBandRef;  // flag byte, carried whole
    uint16_t u16ExcMajorNum;
    uint16_t u16ExcMinorNum;
    int16_t u16ExcOOB_SrcID;
};
static_assert(sizeof(VapiPsipEasExceptionRec) == 8, "exception size");
static_assert(offsetof(VapiPsipEasExceptionRec, u16ExcMajorNum) == 2, "exception layout");
static_assert(offsetof(VapiPsipEasExceptionRec, u16ExcMinorNum) == 4, "exception layout");
static_assert(offsetof(VapiPsipEasExceptionRec, u16ExcOOB_SrcID) == 6, "exception layout");

constexpr int kEasEntries = 31;
constexpr int kEasEventCodeLen = 5;
constexpr int kEasNatActTextLen = 128;
constexpr int kEasAlertTextLen = 512;

struct MwAtscEasInfoRec {
    int8_t u8VerNum;
    int16_t u16EAS_EventID;
    int8_t au8EAS_OriginatorCode[3];
    int8_t u8AlertTimeRemain;
    uint32_t u32EventStartTime;
    int16_t u16EventDuration;
    int8_t u8AlertPriority;
    uint16_t u16DetailsMajorNum;
    uint16_t u16DetailsMinorNum;
    int8_t u8LocationCodeCount;
    VapiPsipEasLocationCodeRec astLocationCode[kEasEntries];
    int8_t u8ExceptionCount;
    VapiPsipEasExceptionRec astException[kEasEntries];
    int8_t au8EAS_EventCode[kEasEventCodeLen];
    int8_t au8NatActText[kEasNatActTextLen];
    int8_t au8AlertText[kEasAlertTextLen];
};
static_assert(sizeof(MwAtscEasInfoRec) == 1044, "MwAtscEasInfoRec size");
static_assert(offsetof(MwAtscEasInfoRec, u16EAS_EventID) == 2, "EAS record layout");
static_assert(offsetof(MwAtscEasInfoRec, au8EAS_OriginatorCode) == 4, "EAS record layout");
static_assert(offsetof(MwAtscEasInfoRec, u8AlertTimeRemain) == 7, "EAS record layout");
static_assert(offsetof(MwAtscEasInfoRec, u32EventStartTime) == 8, "EAS record layout");
static_assert(offsetof(MwAtscEasInfoRec, u16EventDuration) == 12, "EAS record layout");
static_assert(offsetof(MwAtscEasInfoRec, u8AlertPriority) == 14, "EAS record layout");
static_assert(offsetof(MwAtscEasInfoRec, u16DetailsMajorNum) == 16, "EAS record layout");
static_assert(offsetof(MwAtscEasInfoRec, u16DetailsMinorNum) == 18, "EAS record layout");
static_assert(offsetof(MwAtscEasInfoRec, u8LocationCodeCount) == 20, "EAS record layout");
static_assert(offsetof(MwAtscEasInfoRec, astLocationCode) == 22, "EAS record layout");
static_assert(offsetof(MwAtscEasInfoRec, u8ExceptionCount) == 146, "EAS record layout");
static_assert(offsetof(MwAtscEasInfoRec, astException) == 148, "EAS record layout");
static_assert(offsetof(MwAtscEasInfoRec, au8EAS_EventCode) == 396, "EAS record layout");
static_assert(offsetof(MwAtscEasInfoRec, au8NatActText) == 401, "EAS record layout");
static_assert(offsetof(MwAtscEasInfoRec, au8AlertText) == 529, "EAS record layout");
