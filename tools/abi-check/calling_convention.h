// When two spellings of a parameter list are the same call at the binary boundary: what a
// slot of a table of virtual operations is judged by. Both lists are in the demangler's
// spelling ("(int, RfInfoRec&)", "(unsigned char const*) const").
#pragma once

#include <set>
#include <string>
#include <vector>

namespace abi_check {

// Splits "(int, std::map<int, int>&) const" into its parameters ("int",
// "std::map<int, int>&") and what follows the list (" const"). "()" has no parameter.
// Returns false when the text is not a parenthesised list.
bool splitParameters(const std::string& params, std::vector<std::string>& parameters,
                     std::string& qualifiers);

// True when a parameter spelled `theirs` and one spelled `ours` travel in the same register
// with the same value on AArch64 and on x86-64: the same spelling; two one-byte integers
// (bool, char, signed char, unsigned char); two pointers or references to the same type, with
// or without const on it; or int and one of `intEnums`, the enumerations our header gives an
// int underlying type. Anything else (32 against 64 bits, integer against floating point, a
// structure by value) is another parameter.
bool sameRegisterClass(const std::string& theirs, const std::string& ours,
                       const std::set<std::string>& intEnums);

// True when every parameter of two lists of the same length is sameRegisterClass, and the
// operations differ at most in const on the object (the hidden pointer parameter).
bool sameCall(const std::string& theirs, const std::string& ours,
              const std::set<std::string>& intEnums);

}  // namespace abi_check
