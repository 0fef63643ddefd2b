#include "core/log.h"

#include "marshal/value_classes.h"

#include <utility>

namespace pij {
namespace {
std::vector<const ManagedClass*>& registry() {
    static std::vector<const ManagedClass*> classes;
    return classes;
}
}  // namespace

const std::vector<const ManagedClass*>& valueClasses() { return registry(); }

ValueClassRegistration::ValueClassRegistration(ManagedClass mc) : mc_(std::move(mc)) {
    registry().push_back(&mc_);
}

}  // namespace pij
