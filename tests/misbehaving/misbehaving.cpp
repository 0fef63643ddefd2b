// A library that breaks the device runtime's JNI rules on request, one misuse per name, for
// the tests of the layer that enforces them (test_jni_rules.cpp). "well" keeps every rule,
// including the calls the device allows with an exception pending.
#include <jni.h>

#include <cstring>

namespace {

void behaveWell(JNIEnv* e, jclass target, jobject valueObject) {
    jfieldID flag = e->GetStaticFieldID(target, "flag", "Z");
    e->SetStaticBooleanField(target, flag, JNI_TRUE);
    e->CallStaticVoidMethod(target, e->GetStaticMethodID(target, "take", "(ZI)V"), JNI_FALSE, 7);
    // A value object of the API gets a record's boolean byte whole.
    jclass valueClass = e->GetObjectClass(valueObject);
    e->SetBooleanField(valueObject, e->GetFieldID(valueClass, "bSetCusWin", "Z"), 2);
    e->DeleteLocalRef(valueClass);
    // Four-byte sequences, overlong forms and encoded surrogates pass.
    e->DeleteLocalRef(e->NewStringUTF("\xF0\x9F\x93\xBA \xC0\x80 \xED\xA0\x80"));
    e->DeleteLocalRef(e->NewIntArray(0));
    // What may follow a pending exception.
    e->ThrowNew(e->FindClass("java/lang/IllegalStateException"), "pending");
    jthrowable pending = e->ExceptionOccurred();
    e->ExceptionCheck();
    e->DeleteLocalRef(pending);
    e->ExceptionClear();
}

}  // namespace

extern "C" __attribute__((visibility("default"))) void misbehave(JNIEnv* e, const char* how,
                                                                 jclass target, jobject valueObject,
                                                                 jobject targetObject) {
    auto is = [how](const char* name) { return strcmp(how, name) == 0; };
    if (is("well")) {
        behaveWell(e, target, valueObject);
    } else if (is("null_class")) {
        e->GetStaticFieldID(nullptr, "flag", "Z");
    } else if (is("null_field")) {
        e->GetStaticIntField(target, nullptr);
    } else if (is("null_method")) {
        e->CallStaticVoidMethod(target, nullptr);
    } else if (is("null_array")) {
        e->GetArrayLength(nullptr);
    } else if (is("pending")) {
        e->ThrowNew(e->FindClass("java/lang/IllegalStateException"), "pending");
        e->GetStaticFieldID(target, "flag", "Z");
    } else if (is("bad_text")) {
        e->NewStringUTF("ok \xE2\x82");  // a three-byte sequence cut short by the NUL (byte 5)
    } else if (is("negative_length")) {
        e->NewIntArray(-1);
    } else if (is("boolean_static_field")) {
        e->SetStaticBooleanField(target, e->GetStaticFieldID(target, "flag", "Z"), 2);
    } else if (is("boolean_argument")) {
        e->CallStaticVoidMethod(target, e->GetStaticMethodID(target, "take", "(ZI)V"), 2, 7);
    } else if (is("boolean_argument_array")) {
        jvalue args[2];
        args[0].z = 255;
        args[1].i = 7;
        e->CallStaticVoidMethodA(target, e->GetStaticMethodID(target, "take", "(ZI)V"), args);
    } else if (is("boolean_field_of_other_object")) {
        e->SetBooleanField(targetObject, e->GetFieldID(target, "own", "Z"), 2);
    }
}
