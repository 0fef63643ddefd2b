// The player service proxy and its callback interface, as the closed PlayerImpl_hidl
// library lays them out. Only the order of the virtual operations matters to us: we call
// every operation through the proxy's table of virtual operations, so each declaration
// sits at the slot the service library gives it. The proxy's operations are listed once,
// in player_operations.def; slots the bridge never calls are kept there as placeholders so
// that the ones after them stay where they are.
//
// Slot numbers in the comments are 0-based positions in each class's primary table.
#pragma once

#include <cstdint>
#include <vector>

// clang-format off
#include "core/parcel.h"  // the platform Parcel header, ahead of the other platform headers
#include <utils/RefBase.h>
#include <utils/String8.h>
// clang-format on

// Booleans answered by the proxy travel as one byte; the service does not promise 0 or 1
// in it, so we read the byte as a number and keep bit 0 ourselves.
using ProxyBool = uint8_t;

// Native records exchanged with the proxy; each is laid out by the file that marshals it.
struct VideoArcInfoRec;
struct VideoInfoRec;
struct DtvProgramSignalInfoRec;
struct DtvAudioInfoRec;
struct RfInfoRec;
struct DvbMuxInfoRec;
struct MwAtscEasInfoRec;
struct DtvDemodVersionRec;
struct DtvDemodDvbtInfoRec;
struct DtvDemodDvbcInfoRec;
struct SatelliteInfoRec;
struct DvbsTransponderInfoRec;
struct LocationInfoRec;
struct CaptionOptionSettingRec;
struct HdmiGpioRec;

class PlayerImplListener;

class PlayerImpl : public virtual android::RefBase {
public:
    // Non-virtual members, imported by name.
    static android::sp<PlayerImpl> connect();
    void disconnect();
    void setListener(const android::sp<PlayerImplListener>& listener);

    // Slots 0 to 166, in the service's order (player_operations.def).
#define PIJ_PLAYER_OP(result, name, parameters, arguments) virtual result name parameters;
#define PIJ_PLAYER_PLACEHOLDER(name) virtual void name();
#include "core/player_operations.def"
#undef PIJ_PLAYER_OP
#undef PIJ_PLAYER_PLACEHOLDER

    // Slots 167 and 168: the destructor pair.
    virtual ~PlayerImpl();

protected:
    PlayerImpl();
};

// The callback interface the proxy calls with events. All operations but the destructor
// are pure; JNIVSrvListener implements them.
class PlayerImplListener : public virtual android::RefBase {
public:
    // Slots 0 to 58, in the service's order (listener_operations.def).
#define PIJ_LISTENER_OP(name, parameters) virtual void name parameters = 0;
#define PIJ_LISTENER_EVENT(name) virtual void name(int ext1, int ext2) = 0;
#define PIJ_LISTENER_PARCEL_EVENT(name) virtual void name(const android::Parcel& p) = 0;
#include "core/listener_operations.def"
#undef PIJ_LISTENER_OP
#undef PIJ_LISTENER_EVENT
#undef PIJ_LISTENER_PARCEL_EVENT

    // Slots 59 and 60: the destructor pair.
    virtual ~PlayerImplListener();
};
