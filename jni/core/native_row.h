// One row of a native table, checked by the compiler: PIJ_NATIVE(name, signature, handler)
// makes the platform's JNINativeMethod and fails the build when the signature string and the
// handler's C++ type disagree (return type, number of parameters, kind of each). The runtime
// would register such a row all the same and hand the handler garbage.
//
// Each JNI type letter stands for one C++ type of <jni.h>: Z jboolean, B jbyte, C jchar,
// S jshort, I jint, J jlong, F jfloat, D jdouble, V void (return only); a reference is a
// jobject, or one of its refinements where the signature says which: jstring for
// "Ljava/lang/String;", jclass for "Ljava/lang/Class;", jintArray for "[I" (and so on for the
// other primitive arrays), jobjectArray for an array of references, jarray for any array.
// A handler takes (JNIEnv*, jobject) for an instance method or (JNIEnv*, jclass) for a static
// one, then the method's parameters.
#pragma once

#include <jni.h>

#include <cstddef>
#include <cstdint>

namespace pij {

// The primitive types and their arrays stand in the same order (see arrayOf).
enum class JniType : uint8_t {
    Void,
    Boolean,
    Byte,
    Char,
    Short,
    Int,
    Long,
    Float,
    Double,
    Object,  // any reference
    String,
    Class,
    Array,  // any array
    ObjectArray,
    BooleanArray,
    ByteArray,
    CharArray,
    ShortArray,
    IntArray,
    LongArray,
    FloatArray,
    DoubleArray,
};

// Only the types of <jni.h> have a JNI type; any other handler type fails to build here.
template <typename T>
struct JniTypeOf;
#define PIJ_JNI_TYPE(T, kind)                           \
    template <>                                         \
    struct JniTypeOf<T> {                               \
        static constexpr JniType value = JniType::kind; \
    }
PIJ_JNI_TYPE(void, Void);
PIJ_JNI_TYPE(jboolean, Boolean);
PIJ_JNI_TYPE(jbyte, Byte);
PIJ_JNI_TYPE(jchar, Char);
PIJ_JNI_TYPE(jshort, Short);
PIJ_JNI_TYPE(jint, Int);
PIJ_JNI_TYPE(jlong, Long);
PIJ_JNI_TYPE(jfloat, Float);
PIJ_JNI_TYPE(jdouble, Double);
PIJ_JNI_TYPE(jobject, Object);
PIJ_JNI_TYPE(jstring, String);
PIJ_JNI_TYPE(jclass, Class);
PIJ_JNI_TYPE(jarray, Array);
PIJ_JNI_TYPE(jobjectArray, ObjectArray);
PIJ_JNI_TYPE(jbooleanArray, BooleanArray);
PIJ_JNI_TYPE(jbyteArray, ByteArray);
PIJ_JNI_TYPE(jcharArray, CharArray);
PIJ_JNI_TYPE(jshortArray, ShortArray);
PIJ_JNI_TYPE(jintArray, IntArray);
PIJ_JNI_TYPE(jlongArray, LongArray);
PIJ_JNI_TYPE(jfloatArray, FloatArray);
PIJ_JNI_TYPE(jdoubleArray, DoubleArray);
#undef PIJ_JNI_TYPE

// The primitive letters, in the order of JniType from Boolean and from BooleanArray.
constexpr const char* kPrimitiveLetters = "ZBCSIJFD";

// The type of a primitive letter, or Void for any other character.
constexpr JniType primitiveOf(char c) {
    for (size_t i = 0; kPrimitiveLetters[i] != '\0'; ++i) {
        if (kPrimitiveLetters[i] == c) {
            return static_cast<JniType>(static_cast<size_t>(JniType::Boolean) + i);
        }
    }
    return JniType::Void;
}

// The array of an element type: a primitive array, or an array of references.
constexpr JniType arrayOf(JniType element) {
    if (element < JniType::Boolean || element > JniType::Double) return JniType::ObjectArray;
    return static_cast<JniType>(
        static_cast<size_t>(JniType::BooleanArray) +
        (static_cast<size_t>(element) - static_cast<size_t>(JniType::Boolean)));
}

constexpr bool startsWith(const char* s, const char* prefix) {
    while (*prefix != '\0' && *s == *prefix) {
        ++s;
        ++prefix;
    }
    return *prefix == '\0';
}

// One type read from a signature: what it is, and where the next one starts (null when the
// text is not a type).
struct Token {
    JniType type;
    const char* next;
};

constexpr Token readType(const char* s) {
    if (*s == 'V') return Token{JniType::Void, s + 1};
    if (primitiveOf(*s) != JniType::Void) return Token{primitiveOf(*s), s + 1};
    if (*s == 'L') {
        const bool string = startsWith(s, "Ljava/lang/String;");
        const bool klass = startsWith(s, "Ljava/lang/Class;");
        const char* end = s + 1;
        while (*end != '\0' && *end != ';') ++end;
        if (*end != ';' || end == s + 1) return Token{JniType::Void, nullptr};
        return Token{string ? JniType::String : klass ? JniType::Class : JniType::Object, end + 1};
    }
    if (*s == '[') {
        const Token element = readType(s + 1);
        if (element.next == nullptr || element.type == JniType::Void) {
            return Token{JniType::Void, nullptr};
        }
        return Token{arrayOf(element.type), element.next};
    }
    return Token{JniType::Void, nullptr};
}

constexpr bool isArray(JniType t) { return t >= JniType::Array; }

// Whether a handler's C++ type `declared` receives or returns the signature's type `given`.
constexpr bool accepts(JniType declared, JniType given) {
    if (declared == given) return true;
    if (declared == JniType::Object) return given >= JniType::Object;  // any reference
    if (declared == JniType::Array) return isArray(given);
    return false;
}

// Whether `signature` describes a handler taking `params` (after JNIEnv* and the object or
// class) and returning `result`.
constexpr bool signatureFits(const char* signature, const JniType* params, size_t count,
                             JniType result) {
    if (*signature != '(') return false;
    const char* s = signature + 1;
    for (size_t i = 0; i < count; ++i) {
        const Token t = readType(s);
        if (t.next == nullptr || t.type == JniType::Void || !accepts(params[i], t.type)) {
            return false;
        }
        s = t.next;
    }
    if (*s != ')') return false;
    const Token r = readType(s + 1);
    return r.next != nullptr && *r.next == '\0' && accepts(result, r.type);
}

template <typename R, typename... Args>
constexpr bool handlerFits(const char* signature, R (*)(JNIEnv*, jobject, Args...)) {
    const JniType params[] = {JniTypeOf<Args>::value..., JniType::Void};
    return signatureFits(signature, params, sizeof...(Args), JniTypeOf<R>::value);
}

template <typename R, typename... Args>
constexpr bool handlerFits(const char* signature, R (*)(JNIEnv*, jclass, Args...)) {
    const JniType params[] = {JniTypeOf<Args>::value..., JniType::Void};
    return signatureFits(signature, params, sizeof...(Args), JniTypeOf<R>::value);
}

// Instantiated once per row by PIJ_NATIVE; a row that does not fit stops the build here, and
// the compiler's note names the row.
template <bool Fits>
struct RowCheck {
    static_assert(Fits, "a native row's signature disagrees with its handler's C++ type");
    static constexpr bool fits = Fits;
};

}  // namespace pij

// A row of a native table: managed name, signature and handler, checked as above. The row
// stays constant data (no code runs for it when the library is loaded).
#define PIJ_NATIVE(name, signature, handler)                                                       \
    {                                                                                              \
        name, signature,                                                                           \
            reinterpret_cast<void*>(                                                               \
                ::pij::RowCheck<::pij::handlerFits(signature, handler)>::fits ? handler : nullptr) \
    }
