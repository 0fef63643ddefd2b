// Reading and writing fields of managed objects by name, managed arrays as numbers, and
// new managed objects, as the managed side would see them. Each helper fails the current
// test on a pending exception (a missing field, class or constructor).
#pragma once

#include <jni.h>

#include <string>
#include <vector>

namespace th {

// The field of o's class with this name and signature.
jfieldID fieldId(jobject o, const char* name, const char* sig);

jint getI(jobject o, const char* name);
jshort getS(jobject o, const char* name);
jbyte getB(jobject o, const char* name);
jfloat getF(jobject o, const char* name);
jboolean getZ(jobject o, const char* name);
// A new local reference (or null).
jobject getL(jobject o, const char* name, const char* sig);
// A String field as text; *isNull tells a null field apart from an empty string.
std::string getStr(jobject o, const char* name, bool* isNull = nullptr);
// An int[] field's elements (none for a null array).
std::vector<jint> getInts(jobject o, const char* name);

void setI(jobject o, const char* name, jint v);
void setS(jobject o, const char* name, jshort v);
void setB(jobject o, const char* name, jbyte v);
void setZ(jobject o, const char* name, jboolean v);
// A null text stores a null String.
void setStr(jobject o, const char* name, const char* text);

// The fields `list` names as "name:T=value" (T the managed type: I, S, B or Z), one by one:
// `write` stores each value given; otherwise the list comes back with the values found, so
// one comparison shows every field.
std::string fields(jobject o, const std::string& list, bool write = false);

// What a plain SetBooleanField of `byte` leaves in the boolean field `name` of a new
// object of class `cls` on this VM.
jboolean rawBooleanStore(const char* cls, const char* name, jbyte byte);

// ---- Arrays ----
// The elements of an int[] (none for null).
std::vector<jint> ints(jintArray a);
// The elements of a char[], short[] or int[] (T is jchar, jshort or jint) as comma-separated
// numbers, or "null".
template <typename T>
std::string numbers(jarray a);
// The same for the array field `name` of o (whose signature is sig); the array's local
// reference is deleted.
template <typename T>
std::string numbers(jobject o, const char* name, const char* sig);

// ---- Objects ----
// A new object of class `cls` (a path such as "java/lang/Object") from its no-argument
// constructor; a local reference.
jobject newObject(const char* cls);
bool isA(jobject o, const char* cls);

}  // namespace th
