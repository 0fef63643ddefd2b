// Shared pieces of the value-object builders: field look-up from a class's registered field
// list, copy tables that set managed fields from record members, and primitive arrays made
// from record byte arrays.
//
// The builders find their class on every call and do not test the results of FindClass,
// GetFieldID or AllocObject: the managed classes ship with the library, and a missing one
// leaves the VM's pending exception to surface in the managed caller.
#pragma once

#include <jni.h>

#include <cstddef>
#include <cstdint>

#include "marshal/value_classes.h"

namespace pij {

// Field ids of one class, indexed like its ManagedClass's field list.
constexpr size_t kMaxClassFields = 24;
struct FieldIds {
    jfieldID id[kMaxClassFields] = {};
    jfieldID operator[](size_t i) const { return id[i]; }
};

// Looks every field of `mc` up, in the list's order (or in `order`, a permutation of the
// list's indices, where a builder fetches them differently).
inline FieldIds lookupFields(JNIEnv* env, jclass cls, const ManagedClass& mc,
                             const uint8_t* order = nullptr) {
    FieldIds ids;
    const size_t n = mc.fields.size() < kMaxClassFields ? mc.fields.size() : kMaxClassFields;
    for (size_t k = 0; k < n; ++k) {
        const size_t i = order != nullptr ? order[k] : k;
        ids.id[i] = env->GetFieldID(cls, mc.fields[i].name, mc.fields[i].signature);
    }
    return ids;
}

inline jfieldID lookupField(JNIEnv* env, jclass cls, const ManagedClass& mc, size_t i) {
    return env->GetFieldID(cls, mc.fields[i].name, mc.fields[i].signature);
}

// The JNI setter a row uses.
enum class Jt : uint8_t { Z, B, S, I, F };

// One row of a copy table: managed field (index into the ManagedClass), setter, and the reader
// that widens or narrows the record member to the managed type.
template <typename Rec>
struct FieldCopy {
    uint8_t field;
    Jt type;
    jvalue (*read)(const Rec&);
};

template <typename>
struct MemberOf;
template <typename C, typename T>
struct MemberOf<T C::*> {
    using Class = C;
    using Type = T;
};

// The conversion is C++'s own from the member's declared type: a signed member sign-extends,
// an unsigned one zero-extends, a narrower managed type keeps the low bits, and a boolean
// byte passes whole (never reduced to 0/1).
template <typename Rec, typename T, T Rec::*M, Jt J>
jvalue readMember(const Rec& rec) {
    jvalue v{};
    const T x = rec.*M;
    switch (J) {
        case Jt::Z:
            v.z = static_cast<jboolean>(x);
            break;
        case Jt::B:
            v.b = static_cast<jbyte>(x);
            break;
        case Jt::S:
            v.s = static_cast<jshort>(x);
            break;
        case Jt::I:
            v.i = static_cast<jint>(x);
            break;
        case Jt::F:
            v.f = static_cast<jfloat>(x);
            break;
    }
    return v;
}

template <Jt J, typename P, P M>
constexpr FieldCopy<typename MemberOf<P>::Class> copy(uint8_t field) {
    using Rec = typename MemberOf<P>::Class;
    return {field, J, &readMember<Rec, typename MemberOf<P>::Type, M, J>};
}

}  // namespace pij

// A copy row for the record member `member` (a pointer to member), set with setter `J`:
// PIJ_COPY(Jt::I, &VideoInfoRec::frameRate)(kFrameRate).
#define PIJ_COPY(J, member) ::pij::copy<J, decltype(member), member>

namespace pij {

inline void setField(JNIEnv* env, jobject obj, jfieldID id, Jt type, jvalue v) {
    switch (type) {
        case Jt::Z:
            env->SetBooleanField(obj, id, v.z);
            break;
        case Jt::B:
            env->SetByteField(obj, id, v.b);
            break;
        case Jt::S:
            env->SetShortField(obj, id, v.s);
            break;
        case Jt::I:
            env->SetIntField(obj, id, v.i);
            break;
        case Jt::F:
            env->SetFloatField(obj, id, v.f);
            break;
    }
}

// Sets the rows in table order with ids fetched beforehand.
template <typename Rec, size_t N>
void copyFields(JNIEnv* env, jobject obj, const FieldIds& ids, const FieldCopy<Rec> (&rows)[N],
                const Rec& rec) {
    for (const auto& row : rows) setField(env, obj, ids[row.field], row.type, row.read(rec));
}

// Sets the rows in table order, fetching each field's id just before it is set.
template <typename Rec, size_t N>
void copyFieldsFetchingEach(JNIEnv* env, jclass cls, jobject obj, const ManagedClass& mc,
                            const FieldCopy<Rec> (&rows)[N], const Rec& rec) {
    for (const auto& row : rows) {
        setField(env, obj, lookupField(env, cls, mc, row.field), row.type, row.read(rec));
    }
}

// Primitive arrays built from record bytes; each element is C++'s conversion of the source
// element, so signed bytes sign-extend and unsigned ones zero-extend.
template <typename Elem>
struct ArrayOps;
template <>
struct ArrayOps<jchar> {
    using Array = jcharArray;
    static Array make(JNIEnv* e, jsize n) { return e->NewCharArray(n); }
    static jchar* get(JNIEnv* e, Array a) { return e->GetCharArrayElements(a, nullptr); }
    static void release(JNIEnv* e, Array a, jchar* p) { e->ReleaseCharArrayElements(a, p, 0); }
};
template <>
struct ArrayOps<jshort> {
    using Array = jshortArray;
    static Array make(JNIEnv* e, jsize n) { return e->NewShortArray(n); }
    static jshort* get(JNIEnv* e, Array a) { return e->GetShortArrayElements(a, nullptr); }
    static void release(JNIEnv* e, Array a, jshort* p) { e->ReleaseShortArrayElements(a, p, 0); }
};
template <>
struct ArrayOps<jint> {
    using Array = jintArray;
    static Array make(JNIEnv* e, jsize n) { return e->NewIntArray(n); }
    static jint* get(JNIEnv* e, Array a) { return e->GetIntArrayElements(a, nullptr); }
    static void release(JNIEnv* e, Array a, jint* p) { e->ReleaseIntArrayElements(a, p, 0); }
};

// A new managed array holding `src[0..n)`, elements taken and released with mode 0.
template <typename Elem, typename Src>
typename ArrayOps<Elem>::Array newWidenedArray(JNIEnv* env, const Src* src, jsize n) {
    using Ops = ArrayOps<Elem>;
    auto array = Ops::make(env, n);
    if (array == nullptr) return nullptr;  // out of memory: the VM's exception is pending
    Elem* out = Ops::get(env, array);
    if (out == nullptr) return array;
    for (jsize i = 0; i < n; ++i) out[i] = static_cast<Elem>(src[i]);
    Ops::release(env, array, out);
    return array;
}

// Sets a field to such an array and deletes the local reference to it.
template <typename Elem, typename Src>
void setWidenedArrayField(JNIEnv* env, jobject obj, jfieldID id, const Src* src, jsize n) {
    auto array = newWidenedArray<Elem>(env, src, n);
    env->SetObjectField(obj, id, array);
    env->DeleteLocalRef(array);
}

}  // namespace pij
