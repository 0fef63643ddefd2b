#include "harness/fields.h"

#include <sstream>
#include <string>
#include <type_traits>

#include "harness/jvm_harness.h"

namespace th {

jfieldID fieldId(jobject o, const char* name, const char* sig) {
    JNIEnv* e = env();
    jclass c = e->GetObjectClass(o);
    jfieldID id = e->GetFieldID(c, name, sig);
    e->DeleteLocalRef(c);
    failOnPendingException();
    return id;
}

jint getI(jobject o, const char* n) { return env()->GetIntField(o, fieldId(o, n, "I")); }
jshort getS(jobject o, const char* n) { return env()->GetShortField(o, fieldId(o, n, "S")); }
jbyte getB(jobject o, const char* n) { return env()->GetByteField(o, fieldId(o, n, "B")); }
jfloat getF(jobject o, const char* n) { return env()->GetFloatField(o, fieldId(o, n, "F")); }
jboolean getZ(jobject o, const char* n) { return env()->GetBooleanField(o, fieldId(o, n, "Z")); }
jobject getL(jobject o, const char* n, const char* sig) {
    return env()->GetObjectField(o, fieldId(o, n, sig));
}
std::string getStr(jobject o, const char* n, bool* isNull) {
    auto s = static_cast<jstring>(getL(o, n, "Ljava/lang/String;"));
    std::string out = toStdString(s, isNull);
    if (s != nullptr) env()->DeleteLocalRef(s);
    return out;
}
std::vector<jint> getInts(jobject o, const char* n) {
    auto a = static_cast<jintArray>(getL(o, n, "[I"));
    std::vector<jint> out = ints(a);
    if (a != nullptr) env()->DeleteLocalRef(a);
    return out;
}

void setI(jobject o, const char* n, jint v) { env()->SetIntField(o, fieldId(o, n, "I"), v); }
void setS(jobject o, const char* n, jshort v) { env()->SetShortField(o, fieldId(o, n, "S"), v); }
void setB(jobject o, const char* n, jbyte v) { env()->SetByteField(o, fieldId(o, n, "B"), v); }
void setZ(jobject o, const char* n, jboolean v) {
    env()->SetBooleanField(o, fieldId(o, n, "Z"), v);
}
void setStr(jobject o, const char* n, const char* text) {
    jstring s = text != nullptr ? env()->NewStringUTF(text) : nullptr;
    env()->SetObjectField(o, fieldId(o, n, "Ljava/lang/String;"), s);
    if (s != nullptr) env()->DeleteLocalRef(s);
}

jboolean rawBooleanStore(const char* cls, const char* name, jbyte byte) {
    JNIEnv* e = env();
    jclass c = findClass(cls);
    jobject o = e->AllocObject(c);
    jfieldID id = e->GetFieldID(c, name, "Z");
    e->SetBooleanField(o, id, static_cast<jboolean>(byte));
    jboolean v = e->GetBooleanField(o, id);
    e->DeleteLocalRef(o);
    return v;
}

std::vector<jint> ints(jintArray a) {
    std::vector<jint> v(a != nullptr ? static_cast<size_t>(env()->GetArrayLength(a)) : 0);
    if (!v.empty()) env()->GetIntArrayRegion(a, 0, static_cast<jsize>(v.size()), v.data());
    return v;
}

template <typename T>
std::string numbers(jarray a) {
    static_assert(std::is_same_v<T, jchar> || std::is_same_v<T, jshort> || std::is_same_v<T, jint>);
    if (a == nullptr) return "null";
    JNIEnv* e = env();
    jsize len = e->GetArrayLength(a);
    std::string s;
    for (jsize i = 0; i < len; ++i) {
        T v{};
        if constexpr (std::is_same_v<T, jchar>)
            e->GetCharArrayRegion(static_cast<jcharArray>(a), i, 1, &v);
        if constexpr (std::is_same_v<T, jshort>)
            e->GetShortArrayRegion(static_cast<jshortArray>(a), i, 1, &v);
        if constexpr (std::is_same_v<T, jint>)
            e->GetIntArrayRegion(static_cast<jintArray>(a), i, 1, &v);
        s += std::to_string(v) + (i + 1 < len ? "," : "");
    }
    return s;
}

template <typename T>
std::string numbers(jobject o, const char* n, const char* sig) {
    auto a = static_cast<jarray>(getL(o, n, sig));
    std::string s = numbers<T>(a);
    if (a != nullptr) env()->DeleteLocalRef(a);
    return s;
}

template std::string numbers<jchar>(jarray);
template std::string numbers<jshort>(jarray);
template std::string numbers<jint>(jarray);
template std::string numbers<jchar>(jobject, const char*, const char*);
template std::string numbers<jshort>(jobject, const char*, const char*);
template std::string numbers<jint>(jobject, const char*, const char*);

jobject newObject(const char* cls) {
    jclass c = findClass(cls);
    jobject o = env()->NewObject(c, env()->GetMethodID(c, "<init>", "()V"));
    failOnPendingException();
    return o;
}

bool isA(jobject o, const char* cls) { return env()->IsInstanceOf(o, findClass(cls)); }

std::string fields(jobject o, const std::string& list, bool write) {
    std::istringstream in(list);
    std::string item, out;
    while (in >> item) {
        const std::string name = item.substr(0, item.find(':'));
        const char t = item.at(name.size() + 1), *n = name.c_str();
        if (write) {
            const jint v = std::stoi(item.substr(item.find('=') + 1));
            t == 'S'   ? setS(o, n, static_cast<jshort>(v))
            : t == 'B' ? setB(o, n, static_cast<jbyte>(v))
            : t == 'Z' ? setZ(o, n, static_cast<jboolean>(v))
                       : setI(o, n, v);
            continue;
        }
        jint got = t == 'S'   ? getS(o, n)
                   : t == 'B' ? getB(o, n)
                   : t == 'Z' ? getZ(o, n)
                              : getI(o, n);
        out += (out.empty() ? "" : " ") + name + ':' + t + '=' + std::to_string(got);
    }
    return out;
}

}  // namespace th
