// The managed classes the library builds or reads, with every field it looks up (name and
// JNI type). Each marshalling file declares its classes here-by-registration and looks its
// fields up from the same table, so that tools checking a managed build against the library
// read exactly what the library reads.
#pragma once

#include <cstddef>
#include <vector>

namespace pij {

struct FieldSpec {
    const char* name;
    const char* signature;
    bool isStatic = false;
};

struct ClassSpec {
    const char* path;
    std::vector<FieldSpec> fields;
};

// Every registered class, in registration order.
const std::vector<const ClassSpec*>& valueClasses();

struct ValueClassRegistration {
    explicit ValueClassRegistration(const ClassSpec& spec);
};

}  // namespace pij

#define PIJ_CONCAT2(a, b) a##b
#define PIJ_CONCAT(a, b) PIJ_CONCAT2(a, b)
// At namespace scope in the file that uses the class: registers `spec` (a ClassSpec).
#define PIJ_REGISTER_VALUE_CLASS(spec) \
    static const ::pij::ValueClassRegistration PIJ_CONCAT(gValueClassReg, __LINE__)(spec)
