// Which spellings of a parameter list the ABI check takes for the same call (COMPATIBLE) and
// which it keeps as failures, in the demangler's spelling both sides come in.
#include "calling_convention.h"

#include <gtest/gtest.h>

namespace abi_check {
namespace {

const std::set<std::string> kIntEnums = {"WIN_DEV"};

bool same(const std::string& theirs, const std::string& ours) {
    return sameCall(theirs, ours, kIntEnums);
}

TEST(CallingConvention, SplitsParametersAtTheTopLevelOnly) {
    std::vector<std::string> parameters;
    std::string qualifiers;
    ASSERT_TRUE(splitParameters("(std::map<int, int>&, void (*)(int, char), int) const", parameters,
                                qualifiers));
    EXPECT_EQ(parameters,
              (std::vector<std::string>{"std::map<int, int>&", "void (*)(int, char)", "int"}));
    EXPECT_EQ(qualifiers, " const");
    ASSERT_TRUE(splitParameters("()", parameters, qualifiers));
    EXPECT_TRUE(parameters.empty());
    EXPECT_FALSE(splitParameters("int", parameters, qualifiers));
}

TEST(CallingConvention, SpellingsOfOneRegisterClassAreTheSameCall) {
    EXPECT_TRUE(same("(unsigned char)", "(bool)"));
    EXPECT_TRUE(same("(int, signed char)", "(int, char)"));
    EXPECT_TRUE(same("(RfInfoRec*)", "(RfInfoRec&)"));
    EXPECT_TRUE(same("(RfInfoRec const&)", "(RfInfoRec*)"));
    EXPECT_TRUE(same("(unsigned char const*)", "(unsigned char*)"));
    EXPECT_TRUE(same("(char const* const*)", "(char const**)"));
    EXPECT_TRUE(same("(int)", "(WIN_DEV)"));
    EXPECT_TRUE(same("(WIN_DEV)", "(int)"));
    EXPECT_TRUE(same("(int) const", "(int)"));  // const on the object the hidden pointer reaches
}

TEST(CallingConvention, OtherClassesCountOrPointeesAreAnotherCall) {
    EXPECT_FALSE(same("(long long)", "(int)"));
    EXPECT_FALSE(same("(unsigned int)", "(int)"));
    EXPECT_FALSE(same("(float)", "(int)"));
    EXPECT_FALSE(same("(short)", "(bool)"));
    EXPECT_FALSE(same("(RfInfoRec)", "(RfInfoRec const&)"));  // a structure by value
    EXPECT_FALSE(same("(char const*)", "(unsigned char*)"));  // a pointer to another type
    EXPECT_FALSE(same("(char**)", "(char const**)"));         // const below the pointee
    EXPECT_FALSE(same("(int, int)", "(int)"));
    EXPECT_FALSE(same("(OTHER_ENUM)", "(int)"));  // not an int enumeration of our header
    EXPECT_FALSE(same("(WIN_DEV)", "(unsigned int)"));
}

}  // namespace
}  // namespace abi_check
