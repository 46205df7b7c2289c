#include "switches.h"

#include "support/text.h"

#include <gtest/gtest.h>

namespace switchesTest {

using orlo::string;
using namespace taven;

namespace {

struct readValues {
    string first = u"start";
    string second;
};

template <std::size_t Count>
readValues read(const char16_t* const (&values)[Count])
{
    readValues result;
    readSwitches({static_cast<int>(Count), values},
                 {{u"-one:", &result.first}, {u"-two:", &result.second}});
    return result;
}

} // namespace

TEST(switches, neverReadTheProgramName)
{
    EXPECT_EQ(read({u"-one:x"}).first, u"start");
}

TEST(switches, takeTheRestBehindTheLiteral)
{
    EXPECT_EQ(read({u"p", u"-one: a \"b\" "}).first, u" a \"b\" ");
}

TEST(switches, mayBeEmpty)
{
    EXPECT_EQ(read({u"p", u"-one:"}).first, u"");
}

TEST(switches, distinguishCase)
{
    EXPECT_EQ(read({u"p", u"-One:x"}).first, u"start");
}

TEST(switches, countOnlyAtTheBeginningOfAnArgument)
{
    EXPECT_EQ(read({u"p", u"x-one:y"}).first, u"start");
}

TEST(switches, lastOccurrenceWins)
{
    EXPECT_EQ(read({u"p", u"-one:a", u"-one:b"}).first, u"b");
}

TEST(switches, laterEmptyValueReplacesToo)
{
    EXPECT_EQ(read({u"p", u"-one:a", u"-one:"}).first, u"");
}

TEST(switches, passOverWhatIsNotKnown)
{
    const readValues values = read({u"p", u"one:a", u"", u"-", u"/one:b", u"-three:c", u"-two:d"});
    EXPECT_EQ(values.first, u"start");
    EXPECT_EQ(values.second, u"d");
}

TEST(switches, countForTheFirstSwitchThatFits)
{
    string shorter;
    string longer;
    const char16_t* const values[] = {u"p", u"-ab:x"};
    readSwitches({2, values}, {{u"-a", &shorter}, {u"-ab:", &longer}});
    EXPECT_EQ(shorter, u"b:x");
    EXPECT_EQ(longer, u"");
}

TEST(switches, withoutArgumentsKeepTheirStartValues)
{
    string value = u"start";
    readSwitches({0, nullptr}, {{u"-a:", &value}});
    EXPECT_EQ(value, u"start");
}

} // namespace switchesTest
