// The user location record the player fills (one entry of its list of named places).
#pragma once

#include <utils/String8.h>

#include <cstddef>
#include <cstdint>

struct LocationInfoRec {
    android::String8 locationName;
    int16_t longitude;  // signed: western longitudes are negative
    int16_t latitude;
};

static_assert(offsetof(LocationInfoRec, longitude) == sizeof(void*), "longitude");
static_assert(offsetof(LocationInfoRec, latitude) == sizeof(void*) + 2, "latitude");
static_assert(sizeof(LocationInfoRec) == 2 * sizeof(void*), "location size");
