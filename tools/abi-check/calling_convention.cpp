#include "calling_convention.h"

namespace abi_check {
namespace {

std::string trimmed(const std::string& text) {
    size_t begin = text.find_first_not_of(' ');
    if (begin == std::string::npos) return {};
    size_t end = text.find_last_not_of(' ');
    return text.substr(begin, end - begin + 1);
}

// Removes one trailing " const" (the demangler writes const after what it qualifies).
std::string withoutConst(const std::string& type) {
    static const std::string kConst = " const";
    if (type.size() >= kConst.size() &&
        type.compare(type.size() - kConst.size(), kConst.size(), kConst) == 0) {
        return type.substr(0, type.size() - kConst.size());
    }
    return type;
}

bool isOneByteInteger(const std::string& type) {
    return type == "bool" || type == "char" || type == "signed char" || type == "unsigned char";
}

// "T*", "T&", "T&&" -> "T" without const; false for anything else (a function pointer such as
// "void (*)(int)" ends in its parameter list and is compared by spelling only).
bool pointee(const std::string& type, std::string& target) {
    size_t cut = 0;
    if (type.size() > 2 && type.compare(type.size() - 2, 2, "&&") == 0) {
        cut = 2;
    } else if (type.size() > 1 && (type.back() == '*' || type.back() == '&')) {
        cut = 1;
    } else {
        return false;
    }
    target = withoutConst(trimmed(type.substr(0, type.size() - cut)));
    return true;
}

}  // namespace

bool splitParameters(const std::string& params, std::vector<std::string>& parameters,
                     std::string& qualifiers) {
    parameters.clear();
    if (params.empty() || params.front() != '(') return false;
    int depth = 0;
    size_t start = 1;
    for (size_t i = 0; i < params.size(); ++i) {
        char c = params[i];
        if (c == '(' || c == '<' || c == '[') ++depth;
        if (c == ')' || c == '>' || c == ']') --depth;
        if ((c == ',' && depth == 1) || depth == 0) {
            std::string parameter = trimmed(params.substr(start, i - start));
            if (!parameter.empty() || c == ',') parameters.push_back(parameter);
            start = i + 1;
        }
        if (depth == 0) {
            qualifiers = params.substr(i + 1);
            return true;
        }
    }
    return false;
}

bool sameRegisterClass(const std::string& theirs, const std::string& ours,
                       const std::set<std::string>& intEnums) {
    if (theirs == ours) return true;
    if (isOneByteInteger(theirs) && isOneByteInteger(ours)) return true;
    std::string theirTarget, ourTarget;
    if (pointee(theirs, theirTarget) && pointee(ours, ourTarget)) return theirTarget == ourTarget;
    return (theirs == "int" && intEnums.count(ours) != 0) ||
           (ours == "int" && intEnums.count(theirs) != 0);
}

bool sameCall(const std::string& theirs, const std::string& ours,
              const std::set<std::string>& intEnums) {
    std::vector<std::string> theirParameters, ourParameters;
    std::string theirQualifiers, ourQualifiers;
    if (!splitParameters(theirs, theirParameters, theirQualifiers) ||
        !splitParameters(ours, ourParameters, ourQualifiers) ||
        theirParameters.size() != ourParameters.size() ||
        withoutConst(theirQualifiers) != withoutConst(ourQualifiers)) {
        return false;
    }
    for (size_t i = 0; i < ourParameters.size(); ++i) {
        if (!sameRegisterClass(theirParameters[i], ourParameters[i], intEnums)) return false;
    }
    return true;
}

}  // namespace abi_check
