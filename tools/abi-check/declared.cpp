// Our side of the comparison, taken from the library's own headers by the compiler.
//
// Slots: the service's order of operations is the shared list in service_slots.h; each
// operation's slot is read from a pointer to the member (slotOf), exactly as the layout report
// does, so the slot is the one our compiled calls use.
//
// Parameter lists: for each operation we let the compiler mangle its declared function type,
// R(A...), taken from the type of &PlayerImpl::name, and run that through the same demangler as
// the closed library's symbols. A symbol name carries the parameter list in the same mangling,
// so both sides come out in the demangler's spelling ("android::sp<android::Surface> const&",
// typedefs such as int32_t resolved), and nothing is copied from the header by hand: change a
// declaration and the expectation follows. The function type's type information holds only
// its mangled name, so this needs no definition of the classes' members (no link against a
// substitute). The same parameter types tell which of them are enumerations with an int
// underlying type (DeclaredTable::intEnums), which the calling convention passes as int.
#include "declared.h"

#include <cxxabi.h>

#include <cstdlib>
#include <memory>
#include <type_traits>
#include <typeinfo>

#include "service_slots.h"
#include "surface/VTvDisaplyImpl.h"

namespace abi_check {
namespace {

std::string paramsFromFunctionType(const char* mangledType) {
    std::string qualified, params;
    splitSignature(demangle(mangledType), qualified, params);
    return params;
}

template <typename R, typename C, typename... A>
std::string paramsOf(R (C::*)(A...)) {
    return paramsFromFunctionType(typeid(R(A...)).name());
}

// Records a parameter passed by value whose type is an enumeration with an int underlying type.
template <typename A>
void noteIntEnum(std::set<std::string>& intEnums) {
    using T = std::remove_cv_t<A>;
    if constexpr (std::is_enum_v<T>) {
        if constexpr (std::is_same_v<std::underlying_type_t<T>, int>) {
            intEnums.insert(demangle(typeid(T).name()));
        }
    }
}

template <typename R, typename C, typename... A>
void noteIntEnums(R (C::*)(A...), std::set<std::string>& intEnums) {
    (noteIntEnum<A>(intEnums), ...);
}

std::string tableSymbol(const std::string& cls) {
    return "_ZTV" + std::to_string(cls.size()) + cls;
}

// Adds the destructor pair after the last operation and checks the operations' slots.
void finish(DeclaredTable& table, long probeSlot) {
    table.length = probeSlot;
    for (long slot = probeSlot - 2; slot < probeSlot; ++slot) {
        table.operations.push_back({slot, slot, "~" + table.cls, "()"});
    }
}

}  // namespace

DeclaredTable declaredProxy() {
    using service_slots::slotOf;
    DeclaredTable table{"PlayerImpl", tableSymbol("PlayerImpl"), 0, {}, false, {}};
    long next = 0;
#define PIJ_PLAYER_PLACEHOLDER(name) ++next;
#define PIJ_PLAYER_OP(result, name, parameters, arguments)                        \
    table.operations.push_back(                                                   \
        {slotOf(&PlayerImpl::name), next++, #name, paramsOf(&PlayerImpl::name)}); \
    noteIntEnums(&PlayerImpl::name, table.intEnums);
#include "core/player_operations.def"
#undef PIJ_PLAYER_OP
#undef PIJ_PLAYER_PLACEHOLDER
    finish(table, slotOf(&service_slots::ProxyProbe::probe));
    return table;
}

DeclaredTable declaredListener() {
    using service_slots::slotOf;
    DeclaredTable table{"PlayerImplListener", tableSymbol("PlayerImplListener"), 0, {}, true, {}};
    long next = 0;
#define PIJ_LISTENER_OP(name, parameters)                                                         \
    table.operations.push_back(                                                                   \
        {slotOf(&PlayerImplListener::name), next++, #name, paramsOf(&PlayerImplListener::name)}); \
    noteIntEnums(&PlayerImplListener::name, table.intEnums);
#define PIJ_LISTENER_EVENT(name) PIJ_LISTENER_OP(name, )
#define PIJ_LISTENER_PARCEL_EVENT(name) PIJ_LISTENER_OP(name, )
#include "core/listener_operations.def"
#undef PIJ_LISTENER_OP
#undef PIJ_LISTENER_EVENT
#undef PIJ_LISTENER_PARCEL_EVENT
    finish(table, slotOf(&service_slots::ListenerProbe::probe));
    return table;
}

const std::vector<std::string>& closedClasses() {
    // Named through the declarations, so a renamed class fails to compile here.
#define CLOSED(C) (static_cast<void>(sizeof(C)), #C)
    static const std::vector<std::string> classes = {CLOSED(PlayerImpl), CLOSED(PlayerImplListener),
                                                     CLOSED(VTvDisaplyImpl)};
#undef CLOSED
    return classes;
}

std::string demangle(const std::string& mangled) {
    int status = 0;
    std::unique_ptr<char, void (*)(void*)> out(
        abi::__cxa_demangle(mangled.c_str(), nullptr, nullptr, &status), std::free);
    return status == 0 && out ? std::string(out.get()) : mangled;
}

bool splitSignature(const std::string& demangled, std::string& qualifiedName, std::string& params) {
    // Find the last ')' at depth 0 of the template brackets, then its matching '('.
    size_t close = demangled.rfind(')');
    if (close == std::string::npos) return false;
    int depth = 0;
    for (size_t i = close + 1; i-- > 0;) {
        char c = demangled[i];
        if (c == ')') ++depth;
        if (c == '(' && --depth == 0) {
            qualifiedName = demangled.substr(0, i);
            while (!qualifiedName.empty() && qualifiedName.back() == ' ') qualifiedName.pop_back();
            params = demangled.substr(i);
            return true;
        }
    }
    return false;
}

std::string unqualified(const std::string& qualifiedName) {
    // The last "::" outside template arguments.
    int depth = 0;
    for (size_t i = qualifiedName.size(); i-- > 0;) {
        char c = qualifiedName[i];
        if (c == '>') ++depth;
        if (c == '<') --depth;
        if (depth == 0 && c == ':' && i > 0 && qualifiedName[i - 1] == ':') {
            return qualifiedName.substr(i + 1);
        }
    }
    return qualifiedName;
}

}  // namespace abi_check
