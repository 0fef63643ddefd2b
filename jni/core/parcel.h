// The platform's Parcel header needs <memory> and <limits> ahead of it.
#pragma once

#include <limits>
#include <memory>

#include <binder/Parcel.h>
