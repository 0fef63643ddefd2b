// Satellites and transponders between the player's records and the managed value objects.
// Each class is one field list; the copies walk a list of record slots in the order the
// fields are set or read, so there is one copy routine per direction, not one per field.
#include "marshal/satellite.h"

#include <cstring>
#include <vector>

#include "core/frame.h"
#include "core/handlers.h"
#include "core/log.h"
#include "core/service_text.h"
#include "marshal/value_classes.h"

namespace {

using pij::Exc;
using pij::Site;

// Source lines of the failure reports, one per handler (rows 116 and 122 to 126).
constexpr int kLineGetSatellite = 3976;
constexpr int kLineGetTransponder = 4180;
constexpr int kLineUpdateSatellite = 4216;
constexpr int kLineUpdateTransponder = 4282;
constexpr int kLineAddSatellite = 4308;
constexpr int kLineAddTransponder = 4352;

// Field lists in lookup order: the name first for satellites, then the managed order.
const pij::ManagedClass kSatelliteClass{"com/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo",
                                        {{"satName", "Ljava/lang/String;"},
                                         {"lowLOF", "I"},
                                         {"hiLOF", "I"},
                                         {"lnbFreq", "I"},
                                         {"lnbType", "I"},
                                         {"diseqcLevel", "S"},
                                         {"toneburstType", "S"},
                                         {"swt10Port", "S"},
                                         {"swt11Port", "S"},
                                         {"e22KOnOff", "S"},
                                         {"lnbPwrOnOff", "S"},
                                         {"ov12VOnOff", "S"},
                                         {"position", "S"},
                                         {"angle", "I"},
                                         {"numberOfTp", "I"},
                                         {"satelliteId", "S"},
                                         {"channelId", "S"},
                                         {"frequency", "I"},
                                         {"mdu", "Z"},
                                         {"pin", "S"},
                                         {"lnbIdx", "S"}}};
PIJ_REGISTER_VALUE_CLASS(kSatelliteClass);

const pij::ManagedClass kTransponderClass{
    "com/vireo/android/tvapi/dtv/dvb/dvbs/vo/DvbsTransponderInfo",
    {{"frequency", "I"},
     {"symbolRate", "I"},
     {"polarity", "B"},
     {"satelliteId", "S"},
     {"rf", "S"},
     {"tpId", "I"}}};
PIJ_REGISTER_VALUE_CLASS(kTransponderClass);

// A numeric record field: where it sits in the record, how wide it is, and the managed field
// of the same name (its index in the class list, resolved once from the name). Record values
// are unsigned but for the transponder frequency, which is 32 bits and crosses bit for bit.
struct Slot {
    const char* name;
    size_t offset;
    size_t width;
    size_t field = 0;
};

struct SlotTable {
    const pij::ManagedClass& mc;
    std::vector<Slot> slots;
};

// Pairs every slot with its managed field by name; a slot whose name is missing from the
// class list would be a build mistake, and is dropped rather than used with a wrong id.
SlotTable pair(const pij::ManagedClass& mc, std::vector<Slot> slots) {
    std::vector<Slot> paired;
    for (Slot s : slots) {
        for (size_t i = 0; i < mc.fields.size(); ++i) {
            if (std::strcmp(mc.fields[i].name, s.name) == 0) {
                s.field = i;
                paired.push_back(s);
                break;
            }
        }
    }
    return SlotTable{mc, paired};
}

#define PIJ_SLOT(Rec, member) \
    Slot { #member, offsetof(Rec, member), sizeof(Rec::member) }

// Copy order of satellites: the flag, then the int fields, then the short fields.
constexpr size_t kSatName = 0;  // first in the class list
const SlotTable kSatelliteSlots =
    pair(kSatelliteClass,
         {PIJ_SLOT(SatelliteInfoRec, mdu),         PIJ_SLOT(SatelliteInfoRec, lowLOF),
          PIJ_SLOT(SatelliteInfoRec, hiLOF),       PIJ_SLOT(SatelliteInfoRec, lnbFreq),
          PIJ_SLOT(SatelliteInfoRec, lnbType),     PIJ_SLOT(SatelliteInfoRec, angle),
          PIJ_SLOT(SatelliteInfoRec, numberOfTp),  PIJ_SLOT(SatelliteInfoRec, frequency),
          PIJ_SLOT(SatelliteInfoRec, diseqcLevel), PIJ_SLOT(SatelliteInfoRec, toneburstType),
          PIJ_SLOT(SatelliteInfoRec, swt10Port),   PIJ_SLOT(SatelliteInfoRec, swt11Port),
          PIJ_SLOT(SatelliteInfoRec, e22KOnOff),   PIJ_SLOT(SatelliteInfoRec, lnbPwrOnOff),
          PIJ_SLOT(SatelliteInfoRec, ov12VOnOff),  PIJ_SLOT(SatelliteInfoRec, position),
          PIJ_SLOT(SatelliteInfoRec, satelliteId), PIJ_SLOT(SatelliteInfoRec, channelId),
          PIJ_SLOT(SatelliteInfoRec, pin),         PIJ_SLOT(SatelliteInfoRec, lnbIdx)});

const SlotTable kTransponderSlots =
    pair(kTransponderClass,
         {PIJ_SLOT(DvbsTransponderInfoRec, frequency), PIJ_SLOT(DvbsTransponderInfoRec, symbolRate),
          PIJ_SLOT(DvbsTransponderInfoRec, polarity), PIJ_SLOT(DvbsTransponderInfoRec, satelliteId),
          PIJ_SLOT(DvbsTransponderInfoRec, rf), PIJ_SLOT(DvbsTransponderInfoRec, tpId)});

#undef PIJ_SLOT

// The record value, zero-extended to 32 bits.
uint32_t load(const void* rec, const Slot& s) {
    const auto* at = static_cast<const uint8_t*>(rec) + s.offset;
    switch (s.width) {
        case 1:
            return *at;
        case 2: {
            uint16_t v;
            std::memcpy(&v, at, sizeof v);
            return v;
        }
        default: {
            uint32_t v;
            std::memcpy(&v, at, sizeof v);
            return v;
        }
    }
}

// Stores the low `width` bits of v: managed values narrow silently.
void store(void* rec, const Slot& s, uint32_t v) {
    auto* at = static_cast<uint8_t*>(rec) + s.offset;
    switch (s.width) {
        case 1:
            *at = static_cast<uint8_t>(v);
            break;
        case 2: {
            auto n = static_cast<uint16_t>(v);
            std::memcpy(at, &n, sizeof n);
            break;
        }
        default:
            std::memcpy(at, &v, sizeof v);
            break;
    }
}

struct Looked {
    jclass cls;
    jfieldID ids[21];
};

// The class and every field id of the class list, looked up from that same list.
Looked lookUp(JNIEnv* env, const pij::ManagedClass& mc) {
    Looked l{};
    l.cls = env->FindClass(mc.path);
    for (size_t i = 0; i < mc.fields.size() && i < 21; ++i) {
        l.ids[i] = env->GetFieldID(l.cls, mc.fields[i].name, mc.fields[i].signature);
    }
    return l;
}

void recordToObject(JNIEnv* env, const SlotTable& t, const Looked& l, jobject obj,
                    const void* rec) {
    const pij::ManagedClass& mc = t.mc;
    for (const Slot& s : t.slots) {
        uint32_t v = load(rec, s);
        jfieldID id = l.ids[s.field];
        switch (mc.fields[s.field].signature[0]) {
            case 'Z':  // the flag byte as it stands
                env->SetBooleanField(obj, id, static_cast<jboolean>(v));
                break;
            case 'B':  // the byte as it is: 0xFF reads -1
                env->SetByteField(obj, id, static_cast<jbyte>(static_cast<uint8_t>(v)));
                break;
            case 'S':
                env->SetShortField(obj, id, static_cast<jshort>(v));
                break;
            default:
                env->SetIntField(obj, id, static_cast<jint>(v));
                break;
        }
    }
}

// Each managed value is read with the accessor of its declared type, widened and cut to the
// record width. (The service's own reader takes every transponder field as an int; reading
// a byte or short field that way is undefined in JNI, and the typed read gives the same
// record for every value the managed side is allowed to hold.)
void objectToRecord(JNIEnv* env, const SlotTable& t, const Looked& l, jobject obj, void* rec) {
    const pij::ManagedClass& mc = t.mc;
    for (const Slot& s : t.slots) {
        jfieldID id = l.ids[s.field];
        uint32_t v;
        switch (mc.fields[s.field].signature[0]) {
            case 'Z':
                v = env->GetBooleanField(obj, id) != 0 ? 1u : 0u;
                break;
            case 'B':
                v = static_cast<uint32_t>(env->GetByteField(obj, id));
                break;
            case 'S':
                v = static_cast<uint32_t>(env->GetShortField(obj, id));
                break;
            default:
                v = static_cast<uint32_t>(env->GetIntField(obj, id));
                break;
        }
        store(rec, s, v);
    }
}

// Out of contract: a null value object has no fields to read (reading one is a fatal JNI
// error). It is refused with an ERROR line and false; the player is not called.
jboolean refuseNullInfo(const Site& site) {
    ALOGE("%s: null value object refused", site.function);
    return JNI_FALSE;
}

// Update and add share everything but the operation.
template <typename Call>
jboolean satelliteToPlayer(JNIEnv* env, jobject thiz, jobject info, const Site& site, Call&& call) {
    return pij::withPlayer(env, thiz, site, jboolean{JNI_FALSE}, [&](PlayerImpl& p) -> jboolean {
        if (info == nullptr) return refuseNullInfo(site);
        Looked l = lookUp(env, kSatelliteClass);
        SatelliteInfoRec rec{};
        objectToRecord(env, kSatelliteSlots, l, info, &rec);
        auto name = static_cast<jstring>(env->GetObjectField(info, l.ids[kSatName]));
        const char* chars = nullptr;
        if (name != nullptr) {
            // Copied whole: a satellite name has no length limit.
            chars = env->GetStringUTFChars(name, nullptr);
            if (chars != nullptr) rec.satName.setTo(chars);
        } else {
            ALOGD("Attention the Dtv_DVBS_Satellite_Info Satellite Name is null");
        }
        jboolean result = pij::bit0(call(p, rec));
        // Only characters that were taken are released; a null name has none.
        if (chars != nullptr) env->ReleaseStringUTFChars(name, chars);
        if (name != nullptr) env->DeleteLocalRef(name);
        env->DeleteLocalRef(l.cls);
        return result;
    });
}

template <typename Call>
jboolean transponderToPlayer(JNIEnv* env, jobject thiz, jobject info, const Site& site,
                             Call&& call) {
    return pij::withPlayer(env, thiz, site, jboolean{JNI_FALSE}, [&](PlayerImpl& p) -> jboolean {
        if (info == nullptr) return refuseNullInfo(site);
        Looked l = lookUp(env, kTransponderClass);
        DvbsTransponderInfoRec rec{};
        objectToRecord(env, kTransponderSlots, l, info, &rec);
        env->DeleteLocalRef(l.cls);
        return pij::bit0(call(p, rec));
    });
}

}  // namespace

PIJ_EXPORT jobject PIJ_IMPL(getSatelliteInfo)(JNIEnv* env, jobject thiz, jint index) {
    ALOGD("getSatelliteInfo");
    Site site{__func__, kLineGetSatellite, Exc::IllegalState};
    return pij::withPlayer(env, thiz, site, jobject{nullptr}, [&](PlayerImpl& p) {
        Looked l = lookUp(env, kSatelliteClass);
        // Cleared first: a player that does not know the index leaves zeros, not stack bytes.
        SatelliteInfoRec rec{};
        p.getSatelliteInfo(index, rec);
        jobject obj = env->AllocObject(l.cls);
        recordToObject(env, kSatelliteSlots, l, obj, &rec);
        jstring name = pij::newStringFromService(env, rec.satName.c_str(), "getSatelliteInfo");
        env->SetObjectField(obj, l.ids[kSatName], name);
        env->DeleteLocalRef(name);
        env->DeleteLocalRef(l.cls);
        return obj;
    });
}

PIJ_EXPORT jboolean PIJ_IMPL(updateSatelliteInfo)(JNIEnv* env, jobject thiz, jint index,
                                                  jobject info) {
    ALOGD("updateSatelliteInfo");
    return satelliteToPlayer(
        env, thiz, info, Site{__func__, kLineUpdateSatellite, Exc::IllegalState},
        [&](PlayerImpl& p, SatelliteInfoRec& rec) { return p.updateSatelliteInfo(index, rec); });
}

PIJ_EXPORT jboolean PIJ_IMPL(addSatelliteInfo)(JNIEnv* env, jobject thiz, jobject info) {
    ALOGD("addSatelliteInfo");
    return satelliteToPlayer(
        env, thiz, info, Site{__func__, kLineAddSatellite, Exc::IllegalState},
        [&](PlayerImpl& p, SatelliteInfoRec& rec) { return p.addSatelliteInfo(rec); });
}

PIJ_EXPORT jobject PIJ_IMPL(getTransponderInfo)(JNIEnv* env, jobject thiz, jint satellite,
                                                jint index) {
    ALOGD("getTransponderInfo");
    Site site{__func__, kLineGetTransponder, Exc::IllegalState};
    return pij::withPlayer(env, thiz, site, jobject{nullptr}, [&](PlayerImpl& p) {
        Looked l = lookUp(env, kTransponderClass);
        DvbsTransponderInfoRec rec{};
        p.getTransponderInfo(satellite, index, rec);
        jobject obj = env->AllocObject(l.cls);
        recordToObject(env, kTransponderSlots, l, obj, &rec);
        env->DeleteLocalRef(l.cls);
        return obj;
    });
}

PIJ_EXPORT jboolean PIJ_IMPL(updateTransponderInfo)(JNIEnv* env, jobject thiz, jint satellite,
                                                    jint index, jobject info) {
    ALOGD("updateTransponderInfo");
    return transponderToPlayer(env, thiz, info,
                               Site{__func__, kLineUpdateTransponder, Exc::IllegalState},
                               [&](PlayerImpl& p, DvbsTransponderInfoRec& rec) {
                                   return p.updateTransponderInfo(satellite, index, rec);
                               });
}

PIJ_EXPORT jboolean PIJ_IMPL(addTransponderInfo)(JNIEnv* env, jobject thiz, jint satellite,
                                                 jobject info) {
    ALOGD("addTransponderInfo");
    return transponderToPlayer(env, thiz, info,
                               Site{__func__, kLineAddTransponder, Exc::IllegalState},
                               [&](PlayerImpl& p, DvbsTransponderInfoRec& rec) {
                                   return p.addTransponderInfo(satellite, rec);
                               });
}
