#include "marshal/value_classes.h"

namespace pij {
namespace {
std::vector<const ManagedClass*>& registry() {
    static std::vector<const ManagedClass*> classes;
    return classes;
}
}  // namespace

const std::vector<const ManagedClass*>& valueClasses() { return registry(); }

ValueClassRegistration::ValueClassRegistration(const ManagedClass& mc) {
    registry().push_back(&mc);
}

}  // namespace pij
