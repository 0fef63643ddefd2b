// The platform's Parcel header needs <memory> and <limits> ahead of it.
#pragma once

// clang-format off
#include <limits>
#include <memory>

#include <binder/Parcel.h>
// clang-format on
