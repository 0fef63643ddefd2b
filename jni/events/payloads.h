// Decoding of the four events that carry a parcel: analogue auto and manual tuning
// progress, digital auto tuning progress, and HbbTV user-interface events.
#pragma once

#include "core/parcel.h"

namespace pij {

class JNIVSrvListener;

enum class AtvScanKind { Auto, Manual };

void postAtvScan(const JNIVSrvListener& listener, const android::Parcel& p, AtvScanKind kind);
void postDtvScan(const JNIVSrvListener& listener, const android::Parcel& p);
void postHbbtvEvent(const JNIVSrvListener& listener, const android::Parcel& p);

}  // namespace pij
