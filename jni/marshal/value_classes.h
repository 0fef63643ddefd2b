// The managed classes the library builds or reads, with every field it looks up (name and
// JNI type). Each marshalling file registers its class descriptions here (see
// marshal/marshal_util.h), so that tools checking a managed build against the library read
// exactly the rows the library looks its fields up from.
#pragma once

#include <cstddef>
#include <vector>

namespace pij {

struct ManagedField {
    const char* name;
    const char* signature;
    bool isStatic = false;
};

struct ManagedClass {
    const char* path;
    std::vector<ManagedField> fields;  // in the order the library looks them up
};

// Every registered class, in registration order.
const std::vector<const ManagedClass*>& valueClasses();

// Holds one class's entry for as long as the library is loaded.
class ValueClassRegistration {
public:
    explicit ValueClassRegistration(ManagedClass mc);
    ValueClassRegistration(const ValueClassRegistration&) = delete;
    ValueClassRegistration& operator=(const ValueClassRegistration&) = delete;

private:
    ManagedClass mc_;
};

}  // namespace pij

// Name pasting for PIJ_REGISTER_VALUE_CLASS (an argument expanded before it is pasted).
#define PIJ_CONCAT2(a, b) a##b
#define PIJ_CONCAT(a, b) PIJ_CONCAT2(a, b)
// At namespace scope in the file that describes the class: registers `vc`, a
// pij::ValueClass, with the fields of its rows in lookup order. Built when the library is
// loaded, once; nothing of it is used per call.
#define PIJ_REGISTER_VALUE_CLASS(vc)                                      \
    static const ::pij::ValueClassRegistration PIJ_CONCAT(gValueClassReg, \
                                                          __LINE__)(::pij::managedClassOf(vc))
