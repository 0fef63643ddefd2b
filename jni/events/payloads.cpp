// Placeholder until the payload decoding lands: the events are accepted and dropped.
#include "events/payloads.h"

#include "events/listener.h"

namespace pij {

void postAtvScan(const JNIVSrvListener&, const android::Parcel&, AtvScanKind) {}
void postDtvScan(const JNIVSrvListener&, const android::Parcel&) {}
void postHbbtvEvent(const JNIVSrvListener&, const android::Parcel&) {}

}  // namespace pij
