// The device runtime's JNI rules, enforced on the workstation's VM.
//
// The TV set's runtime ends the process on JNI misuse that HotSpot forgives, warns about or
// quietly survives. This layer replaces the VM's JNI function table (JVMTI
// SetJNIFunctionTable) with one that judges every call made from a judged library (by the
// call's return address) before passing it on to the VM's own table (the checked one under
// -Xcheck:jni). A call that breaks a rule prints one line to stderr,
//   "device JNI rule broken: <JNI function>: <rule>; called from <library>+<offset>"
// (the offset of the return address from the library's load address) and aborts the process,
// as the device does. The rules:
//   - a null class, field id, method id or array argument;
//   - any call made with an exception pending, except the exception queries and clearing,
//     DeleteLocalRef/DeleteGlobalRef/DeleteWeakGlobalRef, the Release* functions of elements,
//     strings and critical regions, PopLocalFrame and MonitorExit;
//   - NewStringUTF text that is not Modified UTF-8 as the device's runtime reads it;
//   - a negative length for a new array;
//   - a jboolean argument (a field value, a method argument) other than 0 or 1, except the
//     value-object copies of SetBooleanField (see kRecordBooleans in jni_rules.cpp).
//
// Judged: libplayerimpl_jni.so, and the libraries named (by file name, ':'-separated) in
// PIJ_JNI_RULES_JUDGE. PIJ_JNI_RULES=off leaves the VM's table alone, for a comparison run.
#pragma once

#include <jni.h>

namespace th {
namespace jni_rules {

// Installs the layer on `vm` (once per process), unless PIJ_JNI_RULES=off. True when the layer
// is on.
bool install(JavaVM* vm);
bool installed();

}  // namespace jni_rules
}  // namespace th
