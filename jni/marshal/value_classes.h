// The managed classes the library builds or reads, with every field it looks up (name and
// JNI type). Each marshalling file declares its classes here-by-registration and looks its
// fields up from the same table, so that tools checking a managed build against the library
// read exactly what the library reads.
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
    std::vector<ManagedField> fields;
};

// Every registered class, in registration order.
const std::vector<const ManagedClass*>& valueClasses();

struct ValueClassRegistration {
    explicit ValueClassRegistration(const ManagedClass& mc);
};

}  // namespace pij

#define PIJ_CONCAT2(a, b) a##b
#define PIJ_CONCAT(a, b) PIJ_CONCAT2(a, b)
// At namespace scope in the file that uses the class: registers `mc` (a ManagedClass).
#define PIJ_REGISTER_VALUE_CLASS(mc) \
    static const ::pij::ValueClassRegistration PIJ_CONCAT(gValueClassReg, __LINE__)(mc)
