// What our own headers declare about the closed libraries: the classes whose symbols come from
// them, and for the proxy and its listener every operation's slot and parameter list.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace abi_check {

struct DeclaredOperation {
    long slot;           // where our compiled code calls it
    long serviceSlot;    // its position in the service's order
    std::string name;    // unqualified: "openTeletext", "~PlayerImpl"
    std::string params;  // as the demangler writes them: "(int, RfInfoRec&)"
};

struct DeclaredTable {
    std::string cls;                            // "PlayerImpl"
    std::string tableSymbol;                    // "_ZTV10PlayerImpl"
    long length;                                // slots, destructor pair included
    std::vector<DeclaredOperation> operations;  // named slots, destructor pair included
    // True for an interface this library implements (the listener): the closed library's
    // copy of the table may hold only pure slots.
    bool implementedByUs;
    // The enumerations among the operations' parameters that our header gives an int
    // underlying type, as the demangler names them: the calling convention passes them as int.
    std::set<std::string> intEnums;
};

DeclaredTable declaredProxy();
DeclaredTable declaredListener();

// The classes the closed libraries define (PlayerImpl, PlayerImplListener, VTvDisaplyImpl).
const std::vector<std::string>& closedClasses();

// The C++ runtime's demangler; returns the input when it is not a mangled name.
std::string demangle(const std::string& mangled);

// Splits "A::B::f(int, char) const" into "A::B::f" and "(int, char) const"; the parameter
// list is the last parenthesised group at the top level. Returns false when there is none.
bool splitSignature(const std::string& demangled, std::string& qualifiedName, std::string& params);

// The last component of a qualified name: "f" for "A::B::f".
std::string unqualified(const std::string& qualifiedName);

}  // namespace abi_check
