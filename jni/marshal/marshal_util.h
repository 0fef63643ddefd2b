// How the library moves values between native records and managed value objects.
//
// Each managed value class is described once, by a list of rows. A row carries the managed
// field's name, its JNI type and the record member it comes from or goes to:
//
//     constexpr pij::Field<VideoArcInfoRec> kArcFields[] = {
//         PIJ_FIELD(VideoArcInfoRec, arcType, I),     // int arcType <- int32_t arcType
//         PIJ_FIELD(VideoArcInfoRec, bSetCusWin, Z),  // boolean bSetCusWin <- uint8_t
//     };
//     constexpr auto kVideoArcInfo = pij::valueClass("com/.../VideoArcInfo", kArcFields);
//
// and each file lists its classes once, for the check tool (marshal/value_classes.h):
//
//     constexpr pij::ManagedClass kClasses[] = {PIJ_DESCRIBE(kVideoArcInfo), ...};
//     constexpr pij::ManagedClassList pij::kPictureClasses = pij::classList(kClasses);
//
// The rows are listed in the order the fields are set (record -> object) or read (object ->
// record). Where the handler fetches the field ids in another order, the class carries that
// order too, written with the fields' names and checked when the library is compiled.
//
// The same rows give the field ids (lookUp), both copies (toObject, toRecord) and the list
// of fields the library looks up (marshal/value_classes.h), which tools checking a managed
// build read. The conversions follow from the member's declared type and the row's JNI type:
// a signed member sign-extends, an unsigned one zero-extends, a narrower managed type keeps
// the low bits, a boolean byte passes whole in both directions (never reduced to 0/1), and a
// managed value going into a narrower member is cut to the member's width without a test.
//
// Rows that are not one number (strings, character and number arrays, nested objects, the
// EWBS code list) are "custom" rows: their name and JNI type are in the same list, with a
// small function that does the copy. Array and string members get theirs from PIJ_FIELD
// itself.
//
// Classes are found and field ids looked up on every call; nothing is cached, the managed
// side may be another build than the one seen last. A managed class that does not match (a
// class or field missing) stops the handler at the first failed lookup: no further JNI call
// is made (the device's runtime aborts on a call with a null id or with an exception
// pending), the runtime's NoClassDefFoundError or NoSuchFieldError stays pending for the
// managed caller, and the handler returns its neutral value. The event payloads, which have
// no managed caller, clear that error and drop the event with an ERROR line instead.
#pragma once

#include <jni.h>
#include <log/log.h>
#include <utils/String8.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "core/scoped.h"
#include "core/service_text.h"
#include "marshal/value_classes.h"

namespace pij {

// The managed type of a field, by its JNI letter; L stands for any reference (string, array,
// object), which only custom rows carry.
enum class Jt : uint8_t { Z, B, C, S, I, J, F, L };

constexpr const char* signatureOf(Jt t) {
    switch (t) {
        case Jt::Z:
            return "Z";
        case Jt::B:
            return "B";
        case Jt::C:
            return "C";
        case Jt::S:
            return "S";
        case Jt::I:
            return "I";
        case Jt::J:
            return "J";
        case Jt::F:
            return "F";
        case Jt::L:
            break;
    }
    return "L";
}

constexpr const char* arraySignatureOf(Jt t) {
    switch (t) {
        case Jt::C:
            return "[C";
        case Jt::S:
            return "[S";
        case Jt::I:
            return "[I";
        default:
            break;
    }
    return "[";  // no other element type is used; a row of it fails the check tool
}

// Field ids of one class, by row index, and the class they were looked up on. One holder for
// every class: the largest has 21 fields.
constexpr size_t kMaxFields = 24;
struct FieldIds {
    FieldIds() = default;
    FieldIds(const FieldIds&) = delete;
    FieldIds& operator=(const FieldIds&) = delete;
    // A class found by lookUp is this holder's local reference, deleted with it.
    ~FieldIds() {
        if (mOwner != nullptr) mOwner->DeleteLocalRef(cls);
    }
    void own(JNIEnv* env, jclass found) {
        cls = found;
        mOwner = found != nullptr ? env : nullptr;
    }

    jclass cls = nullptr;
    jfieldID id[kMaxFields] = {};
    int failedRow = -1;  // the row whose lookup failed, or -1 (also when the class is missing)
    jfieldID operator[](size_t row) const { return id[row]; }

private:
    JNIEnv* mOwner = nullptr;
};

// What a custom row may need besides its record: the environment, the name the handler logs
// under (service text repaired on its way to a string is reported with it), and the ids of
// classes nested in this one, looked up by the handler before the object is made.
struct Copy {
    JNIEnv* env;
    const char* caller;
    const FieldIds* nested = nullptr;
};

// One row. Numeric rows use load/store; custom rows use out/in, which return false when they
// stop with the runtime's exception pending (a failed lookup of a nested class, no memory).
template <typename Rec>
struct Field {
    const char* name;
    const char* signature;
    Jt type;
    jvalue (*load)(const Rec&);
    void (*store)(Rec&, jvalue);
    bool (*out)(const Copy&, jobject obj, jfieldID id, const Rec&);
    bool (*in)(const Copy&, jobject obj, jfieldID id, Rec&);
};

// A custom row; `in` may be null for a class that only goes to the managed side.
template <typename Rec>
constexpr Field<Rec> customField(const char* name, const char* signature,
                                 bool (*out)(const Copy&, jobject, jfieldID, const Rec&),
                                 bool (*in)(const Copy&, jobject, jfieldID, Rec&) = nullptr) {
    return Field<Rec>{name, signature, Jt::L, nullptr, nullptr, out, in};
}

// ---- Numeric rows ----

template <typename Rec, typename T, T Rec::*M, Jt J>
jvalue loadMember(const Rec& rec) {
    // C++'s own conversion from the member's declared type (see the top of this file).
    jvalue v{};
    const T x = rec.*M;
    switch (J) {
        case Jt::Z:
            v.z = static_cast<jboolean>(x);
            break;
        case Jt::B:
            v.b = static_cast<jbyte>(x);
            break;
        case Jt::C:
            v.c = static_cast<jchar>(x);
            break;
        case Jt::S:
            v.s = static_cast<jshort>(x);
            break;
        case Jt::I:
            v.i = static_cast<jint>(x);
            break;
        case Jt::J:
            v.j = static_cast<jlong>(x);
            break;
        case Jt::F:
            v.f = static_cast<jfloat>(x);
            break;
        case Jt::L:
            break;
    }
    return v;
}

template <typename Rec, typename T, T Rec::*M, Jt J>
void storeMember(Rec& rec, jvalue v) {
    switch (J) {
        case Jt::Z:
            rec.*M = static_cast<T>(v.z);  // the byte as the managed side holds it
            break;
        case Jt::B:
            rec.*M = static_cast<T>(v.b);
            break;
        case Jt::C:
            rec.*M = static_cast<T>(v.c);
            break;
        case Jt::S:
            rec.*M = static_cast<T>(v.s);
            break;
        case Jt::I:
            rec.*M = static_cast<T>(v.i);
            break;
        case Jt::J:
            rec.*M = static_cast<T>(v.j);
            break;
        case Jt::F:
            rec.*M = static_cast<T>(v.f);
            break;
        case Jt::L:
            break;
    }
}

// ---- Array and string members ----

// A new managed array of the primitive type `E` holding src[0..n), or null with the
// runtime's exception pending. The lengths are the records' fixed array lengths.
inline jarray newArray(JNIEnv* env, const jchar* src, jsize n) {
    jcharArray a = env->NewCharArray(n);
    if (a != nullptr) env->SetCharArrayRegion(a, 0, n, src);
    return a;
}
inline jarray newArray(JNIEnv* env, const jshort* src, jsize n) {
    jshortArray a = env->NewShortArray(n);
    if (a != nullptr) env->SetShortArrayRegion(a, 0, n, src);
    return a;
}
inline jarray newArray(JNIEnv* env, const jint* src, jsize n) {
    jintArray a = env->NewIntArray(n);
    if (a != nullptr) env->SetIntArrayRegion(a, 0, n, src);
    return a;
}

template <Jt J>
struct ElementOf;
template <>
struct ElementOf<Jt::C> {
    using Type = jchar;
};
template <>
struct ElementOf<Jt::S> {
    using Type = jshort;
};
template <>
struct ElementOf<Jt::I> {
    using Type = jint;
};

// Sets `id` to a new array of the elements `src[0..N)`, each converted as C++ converts it
// (signed bytes sign-extend, unsigned ones zero-extend); the array reference is dropped when it
// returns.
template <Jt J, typename T, size_t N>
bool setArrayField(JNIEnv* env, jobject obj, jfieldID id, const T (&src)[N]) {
    using E = typename ElementOf<J>::Type;
    E elements[N];
    for (size_t i = 0; i < N; ++i) elements[i] = static_cast<E>(src[i]);
    ScopedLocalRef<jarray> array(env, newArray(env, elements, static_cast<jsize>(N)));
    if (array.get() == nullptr) return false;  // no memory: the runtime's exception is pending
    env->SetObjectField(obj, id, array.get());
    return true;
}

template <typename Rec, typename T, T Rec::*M, Jt J>
bool arrayOut(const Copy& c, jobject obj, jfieldID id, const Rec& rec) {
    return setArrayField<J>(c.env, obj, id, rec.*M);
}

// An empty name gives an empty string, never null; text the runtime would refuse is repaired
// first (see core/service_text.h).
template <typename Rec, typename T, T Rec::*M, Jt J>
bool stringOut(const Copy& c, jobject obj, jfieldID id, const Rec& rec) {
    ScopedLocalRef<jstring> s(c.env, newStringFromService(c.env, (rec.*M).c_str(), c.caller));
    if (s.get() == nullptr) return false;  // no memory: the runtime's exception is pending
    c.env->SetObjectField(obj, id, s.get());
    return true;
}

template <typename>
struct MemberOf;
template <typename C, typename T>
struct MemberOf<T C::*> {
    using Class = C;
    using Type = T;
};

// The row PIJ_FIELD makes, by the member's type: a number, an array or a String8.
enum class MemberKind { Number, Array, Text };
template <typename T>
constexpr MemberKind kindOf() {
    return std::is_array<T>::value                    ? MemberKind::Array
           : std::is_same<T, android::String8>::value ? MemberKind::Text
                                                      : MemberKind::Number;
}

template <typename P, P M, Jt J, MemberKind K = kindOf<typename MemberOf<P>::Type>()>
struct RowFor;
template <typename P, P M, Jt J>
struct RowFor<P, M, J, MemberKind::Number> {
    using Rec = typename MemberOf<P>::Class;
    using T = typename MemberOf<P>::Type;
    static constexpr Field<Rec> make(const char* name) {
        return Field<Rec>{
            name,    signatureOf(J), J, &loadMember<Rec, T, M, J>, &storeMember<Rec, T, M, J>,
            nullptr, nullptr};
    }
};
template <typename P, P M, Jt J>
struct RowFor<P, M, J, MemberKind::Array> {
    using Rec = typename MemberOf<P>::Class;
    using T = typename MemberOf<P>::Type;
    static constexpr Field<Rec> make(const char* name) {
        return customField<Rec>(name, arraySignatureOf(J), &arrayOut<Rec, T, M, J>);
    }
};
template <typename P, P M, Jt J>
struct RowFor<P, M, J, MemberKind::Text> {
    using Rec = typename MemberOf<P>::Class;
    using T = typename MemberOf<P>::Type;
    static constexpr Field<Rec> make(const char* name) {
        static_assert(J == Jt::L, "a String8 member becomes a managed String (L)");
        return customField<Rec>(name, "Ljava/lang/String;", &stringOut<Rec, T, M, J>);
    }
};

}  // namespace pij

// The constant description of the value class `vc` (a constexpr pij::ValueClass at namespace
// scope) that the check tool reads: one entry of the list of classes its file defines.
#define PIJ_DESCRIBE(vc) ::pij::Described<decltype(vc), vc>::describe()

// The row of the managed field named like the record member `member` of `Rec`, of JNI type
// `J` (Z, B, C, S, I, J or F for a number; the element's letter for an array member, which
// becomes a new primitive array; L for a String8 member, which becomes a String). It is the
// only way a row names a member, so the member's type always decides the conversion.
#define PIJ_FIELD(Rec, member, J) \
    ::pij::RowFor<decltype(&Rec::member), &Rec::member, ::pij::Jt::J>::make(#member)

namespace pij {

template <typename Rec, uint8_t Rec::*M>
void storeFlagAsZeroOrOne(Rec& rec, jvalue v) {
    rec.*M = v.z != 0 ? 1 : 0;
}

template <typename Rec>
constexpr Field<Rec> withStore(Field<Rec> row, void (*store)(Rec&, jvalue)) {
    row.store = store;
    return row;
}

}  // namespace pij

// The row of a boolean flag byte that the service reads as 0 or 1 only: on its way into the
// record any non-zero managed byte becomes 1; on its way out it passes whole, as every record
// boolean does. Every other managed boolean reaches the service as the byte it is.
#define PIJ_FLAG_ZERO_OR_ONE_IN(Rec, member) \
    ::pij::withStore(PIJ_FIELD(Rec, member, Z), &::pij::storeFlagAsZeroOrOne<Rec, &Rec::member>)

namespace pij {

// ---- Orders and classes ----

// Row indices in the order a handler fetches the field ids, where that differs from the rows'.
template <size_t N>
struct Order {
    uint8_t at[N];
};

constexpr bool sameName(const char* a, const char* b) {
    while (*a != '\0' && *a == *b) {
        ++a;
        ++b;
    }
    return *a == *b;
}

// Not constexpr on purpose: an order naming a field that has no row, or naming one twice,
// reaches it while the compiler evaluates the order, and the build fails there.
inline uint8_t orderNamesAFieldWithoutRowOrTwice() { return 0; }

template <typename Rec, size_t N, typename... Names>
constexpr Order<N> orderOf(const Field<Rec> (&rows)[N], Names... names) {
    static_assert(sizeof...(Names) == N, "an order names every row once");
    const char* const list[] = {names...};
    Order<N> order{};
    bool taken[N] = {};
    for (size_t k = 0; k < N; ++k) {
        size_t i = 0;
        while (i < N && !sameName(rows[i].name, list[k])) ++i;
        if (i == N || taken[i]) {
            order.at[0] = orderNamesAFieldWithoutRowOrTwice();
            return order;
        }
        taken[i] = true;
        order.at[k] = static_cast<uint8_t>(i);
    }
    return order;
}

template <typename Rec>
struct ValueClass {
    const char* path;
    const Field<Rec>* rows;
    size_t count;
    const uint8_t* lookupOrder;  // null: the ids are fetched in the rows' order

    constexpr size_t lookedUpAt(size_t k) const {
        return lookupOrder != nullptr ? lookupOrder[k] : k;
    }
};

template <typename Rec, size_t N>
constexpr ValueClass<Rec> valueClass(const char* path, const Field<Rec> (&rows)[N],
                                     const Order<N>* lookupOrder = nullptr) {
    static_assert(N <= kMaxFields, "more fields than FieldIds holds");
    return ValueClass<Rec>{path, rows, N, lookupOrder != nullptr ? lookupOrder->at : nullptr};
}

// The check tool's view of a class: its path and, in lookup order, every field's name and
// type, worked out by the compiler from the class's rows (see marshal/value_classes.h).
template <size_t N>
struct ManagedFields {
    ManagedField at[N];
};

template <size_t N, typename Rec>
constexpr ManagedFields<N> managedFieldsOf(const ValueClass<Rec>& vc) {
    ManagedFields<N> out{};
    for (size_t k = 0; k < N; ++k) {
        const Field<Rec>& f = vc.rows[vc.lookedUpAt(k)];
        out.at[k].name = f.name;
        out.at[k].signature = f.signature;
    }
    return out;
}

template <typename V, V& vc>
struct Described {
    static constexpr ManagedFields<vc.count> fields = managedFieldsOf<vc.count>(vc);
    static constexpr ManagedClass describe() {
        return ManagedClass{vc.path, ConstRange<ManagedField>{fields.at, vc.count}};
    }
};
template <typename V, V& vc>
constexpr ManagedFields<vc.count> Described<V, vc>::fields;

// ---- Look-ups: the one place field ids are fetched ----

// Fetches the id of row `row` into `ids`. False when the field is missing: the runtime's
// NoSuchFieldError is pending and the caller makes no further JNI call but returns.
template <typename Rec>
bool lookUpField(JNIEnv* env, const ValueClass<Rec>& vc, size_t row, FieldIds* ids) {
    const Field<Rec>& f = vc.rows[row];
    ids->id[row] = env->GetFieldID(ids->cls, f.name, f.signature);
    if (ids->id[row] != nullptr) return true;
    ids->failedRow = static_cast<int>(row);
    return false;
}

// Every field id of `vc` on the class in `ids` (null when it was not found), in the class's
// lookup order or in `order` where a handler fetches them otherwise. Stops at the first
// failure.
template <typename Rec>
bool lookUpFields(JNIEnv* env, const ValueClass<Rec>& vc, FieldIds* ids, const uint8_t* order) {
    if (ids->cls == nullptr) return false;  // the runtime's NoClassDefFoundError is pending
    for (size_t k = 0; k < vc.count; ++k) {
        if (!lookUpField(env, vc, order != nullptr ? order[k] : vc.lookedUpAt(k), ids)) {
            return false;
        }
    }
    return true;
}

// Every field id of `vc` on `cls`, a class the caller holds.
template <typename Rec>
bool lookUpOn(JNIEnv* env, jclass cls, const ValueClass<Rec>& vc, FieldIds* ids,
              const uint8_t* order = nullptr) {
    ids->cls = cls;
    return lookUpFields(env, vc, ids, order);
}

// Finds the class by its path (held by `ids`), then looks every field up.
template <typename Rec>
bool lookUp(JNIEnv* env, const ValueClass<Rec>& vc, FieldIds* ids, const uint8_t* order = nullptr) {
    ids->own(env, env->FindClass(vc.path));
    return lookUpFields(env, vc, ids, order);
}

// ---- Copies ----

inline void setValue(JNIEnv* env, jobject obj, jfieldID id, Jt type, jvalue v) {
    switch (type) {
        case Jt::Z:
            env->SetBooleanField(obj, id, v.z);
            break;
        case Jt::B:
            env->SetByteField(obj, id, v.b);
            break;
        case Jt::C:
            env->SetCharField(obj, id, v.c);
            break;
        case Jt::S:
            env->SetShortField(obj, id, v.s);
            break;
        case Jt::I:
            env->SetIntField(obj, id, v.i);
            break;
        case Jt::J:
            env->SetLongField(obj, id, v.j);
            break;
        case Jt::F:
            env->SetFloatField(obj, id, v.f);
            break;
        case Jt::L:
            break;
    }
}

inline jvalue getValue(JNIEnv* env, jobject obj, jfieldID id, Jt type) {
    jvalue v{};
    switch (type) {
        case Jt::Z:
            v.z = env->GetBooleanField(obj, id);
            break;
        case Jt::B:
            v.b = env->GetByteField(obj, id);
            break;
        case Jt::C:
            v.c = env->GetCharField(obj, id);
            break;
        case Jt::S:
            v.s = env->GetShortField(obj, id);
            break;
        case Jt::I:
            v.i = env->GetIntField(obj, id);
            break;
        case Jt::J:
            v.j = env->GetLongField(obj, id);
            break;
        case Jt::F:
            v.f = env->GetFloatField(obj, id);
            break;
        case Jt::L:
            break;
    }
    return v;
}

template <typename Rec>
bool rowToObject(const Copy& c, jobject obj, const Field<Rec>& f, jfieldID id, const Rec& rec) {
    if (f.out != nullptr) return f.out(c, obj, id, rec);
    setValue(c.env, obj, id, f.type, f.load(rec));
    return true;
}

template <typename Rec>
bool rowToRecord(const Copy& c, jobject obj, const Field<Rec>& f, jfieldID id, Rec& rec) {
    if (f.in != nullptr) return f.in(c, obj, id, rec);
    if (f.store != nullptr) f.store(rec, getValue(c.env, obj, id, f.type));
    return true;
}

// Sets every field of `obj` from `rec`, in the rows' order, with ids looked up beforehand.
// False when a custom row stopped with the runtime's exception pending.
template <typename Rec>
bool toObject(const Copy& c, jobject obj, const ValueClass<Rec>& vc, const FieldIds& ids,
              const Rec& rec) {
    for (size_t i = 0; i < vc.count; ++i) {
        if (!rowToObject(c, obj, vc.rows[i], ids[i], rec)) return false;
    }
    return true;
}

// Reads every field of `obj` into `rec`, in the rows' order.
template <typename Rec>
bool toRecord(const Copy& c, jobject obj, const ValueClass<Rec>& vc, const FieldIds& ids,
              Rec& rec) {
    for (size_t i = 0; i < vc.count; ++i) {
        if (!rowToRecord(c, obj, vc.rows[i], ids[i], rec)) return false;
    }
    return true;
}

// The same two copies for handlers that fetch each id just before its field is set or read;
// `ids.cls` is the class to look them up on.
template <typename Rec>
bool toObjectFetchingEach(const Copy& c, jobject obj, const ValueClass<Rec>& vc, FieldIds* ids,
                          const Rec& rec) {
    for (size_t i = 0; i < vc.count; ++i) {
        if (!lookUpField(c.env, vc, i, ids) || !rowToObject(c, obj, vc.rows[i], ids->id[i], rec)) {
            return false;
        }
    }
    return true;
}

template <typename Rec>
bool toRecordFetchingEach(const Copy& c, jobject obj, const ValueClass<Rec>& vc, FieldIds* ids,
                          Rec& rec) {
    for (size_t i = 0; i < vc.count; ++i) {
        if (!lookUpField(c.env, vc, i, ids) || !rowToRecord(c, obj, vc.rows[i], ids->id[i], rec)) {
            return false;
        }
    }
    return true;
}

// A new object of `vc` (no constructor runs) whose ids are in `ids`; null, with the runtime's
// exception pending, when there is no memory.
inline jobject allocate(JNIEnv* env, const FieldIds& ids) { return env->AllocObject(ids.cls); }

// The usual builder: find the class, fetch every id, make the object, set every field from
// `rec`. Null, with the runtime's exception pending for the managed caller, when any step
// fails.
template <typename Rec>
jobject newObject(JNIEnv* env, const char* caller, const ValueClass<Rec>& vc, const Rec& rec,
                  const uint8_t* lookupOrder = nullptr) {
    FieldIds ids;
    if (!lookUp(env, vc, &ids, lookupOrder)) return nullptr;
    jobject obj = allocate(env, ids);
    if (obj == nullptr || !toObject(Copy{env, caller}, obj, vc, ids, rec)) return nullptr;
    return obj;
}

// The same for a class whose custom rows build objects of two nested classes: the class and
// then each nested class are found, with their ids, before the object is made; the custom
// rows read the nested ids from Copy::nested, [0] for `first` and [1] for `second`.
template <typename Rec, typename First, typename Second>
jobject newObjectWithNested(JNIEnv* env, const char* caller, const ValueClass<Rec>& vc,
                            const ValueClass<First>& first, const ValueClass<Second>& second,
                            const Rec& rec) {
    FieldIds ids[3];
    if (!lookUp(env, vc, &ids[0]) || !lookUp(env, first, &ids[1]) ||
        !lookUp(env, second, &ids[2])) {
        return nullptr;
    }
    jobject obj = allocate(env, ids[0]);
    if (obj == nullptr || !toObject(Copy{env, caller, &ids[1]}, obj, vc, ids[0], rec)) {
        return nullptr;
    }
    return obj;
}

// For the paths that have no managed caller to receive the runtime's error of a failed
// field look-up (service threads, the parcel conversion): clears it, so that the thread's
// next JNI call does not meet it (the device's runtime aborts on a call with an exception
// pending), and writes one ERROR line naming the missing field.
template <typename Rec>
void clearMissingField(JNIEnv* env, const ValueClass<Rec>& vc, const FieldIds& ids) {
    env->ExceptionClear();
    if (ids.failedRow < 0) return;
    const Field<Rec>& f = vc.rows[ids.failedRow];
    ALOGE("%s has no field %s %s", vc.path, f.name, f.signature);
}

}  // namespace pij
