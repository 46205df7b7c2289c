#include "orlounit.h"

#include <gtest/gtest.h>

#include <cctype>

namespace orlounitTest {

namespace {

// The narrow functions of the "C" locale judge the first 128 units; no other unit is anything.
template <class Question>
bool narrowAnswer(unsigned unit, Question question)
{
    return unit < 128 && question(static_cast<int>(unit)) != 0;
}

TEST(unit, answersForAllUnitsAsTheCLocaleDoes)
{
    for (unsigned code = 0; code <= 0xffff; ++code) {
        const auto unit = static_cast<char16_t>(code);
        const bool upper = narrowAnswer(code, [](int c) { return std::isupper(c); });
        const bool lower = narrowAnswer(code, [](int c) { return std::islower(c); });
        ASSERT_EQ(orlo::isDigitUnit(unit),
                  narrowAnswer(code, [](int c) { return std::isdigit(c); }))
            << code;
        ASSERT_EQ(orlo::isSpaceUnit(unit),
                  narrowAnswer(code, [](int c) { return std::isspace(c); }))
            << code;
        ASSERT_EQ(orlo::lowerUnit(unit), upper ? code + 32 : code) << code;
        ASSERT_EQ(orlo::upperUnit(unit), lower ? code - 32 : code) << code;
    }
}

TEST(unit, blanksAreTheSixOfAscii)
{
    for (const char16_t unit : {u' ', u'\t', u'\n', u'\v', u'\f', u'\r'})
        EXPECT_TRUE(orlo::isSpaceUnit(unit));
    for (const char16_t unit : {u'\0', u'\b', u'\u00a0', u'\u2003', u'\ufeff'})
        EXPECT_FALSE(orlo::isSpaceUnit(unit));
}

} // namespace

} // namespace orlounitTest
