#include "marshal/value_classes.h"

namespace pij {
namespace {
std::vector<const ClassSpec*>& registry() {
    static std::vector<const ClassSpec*> classes;
    return classes;
}
}  // namespace

const std::vector<const ClassSpec*>& valueClasses() { return registry(); }

ValueClassRegistration::ValueClassRegistration(const ClassSpec& spec) {
    registry().push_back(&spec);
}

}  // namespace pij
