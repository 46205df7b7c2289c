#include "orloreport.h"

#include "support/allocations.h"
#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

namespace orloreportTest {

using namespace orlo;
using orlo::tests::allocationFault;
using orlo::tests::machine;

namespace {

constexpr std::uint32_t ownProcess = 77;
constexpr std::uint32_t otherProcess = 78;

void* handle(std::uintptr_t number)
{
    return reinterpret_cast<void*>(number);
}

class reportTest : public testing::Test {
protected:
    reportTest() : here(machine::renew()) { here.process = ownProcess; }

    string shown() const
    {
        return here.boxes.size() == 1 ? here.boxes[0].text : string(u"(not one box)");
    }

    // Fails the assertion and gives what was thrown.
    static bool thrownByAssertion(const char16_t* condition, const char16_t* file, int line)
    {
        try {
            failAssertion(condition, file, line);
        } catch (bool value) {
            return value;
        }
    }

    machine& here;
};
using ownerWindowTest = reportTest;
using assertionTest = reportTest;

} // namespace

TEST_F(reportTest, showsATaskModalBoxWithTheTitleOfTheSystem)
{
    reportMessage(u"Hello");
    ASSERT_EQ(here.boxes.size(), 1u);
    EXPECT_EQ(here.boxes[0].text, string(u"Hello"));
    EXPECT_EQ(here.boxes[0].title, string(u"Velmora"));
    EXPECT_EQ(here.boxes[0].style, 0x2000u);
}

TEST_F(reportTest, formatsByThePrintfRules)
{
    reportMessage(u"File \"%s\", line %d, %u, %x, 100%%", u"C:\\a.xml", -3, 7u, 255);
    EXPECT_EQ(shown(), string(u"File \"C:\\a.xml\", line -3, 7, ff, 100%"));
}

TEST_F(reportTest, cutsTheTextAt511Units)
{
    for (const std::size_t length : {510u, 511u, 512u, 600u, 5000u}) {
        machine::renew();
        const string text(std::u16string(length, u'm').c_str());
        reportMessage(u"%s", text);
        EXPECT_EQ(shown(), text.substr(0, 511)) << length;
    }
}

TEST_F(reportTest, cutsInTheMiddleOfAnArgument)
{
    const string text(std::u16string(600, u'x').c_str());
    reportMessage(u"<%s>", text);
    EXPECT_EQ(shown(), u"<" + text.substr(0, 510));
}

TEST_F(reportTest, comesBackAlsoIfTheBoxFails)
{
    here.failCall("showMessageBox", 1);
    reportMessage(u"unseen");
    EXPECT_EQ(here.countCalls("showMessageBox"), 1u);
    EXPECT_TRUE(here.boxes.empty());
}

TEST_F(reportTest, tellsTheProcess)
{
    EXPECT_EQ(getProcessId(), ownProcess);
}

TEST_F(ownerWindowTest, isNoneWithoutAWindowInTheProcess)
{
    EXPECT_EQ(findOwnerWindow(), nullptr);
    reportMessage(u"alone");
    ASSERT_EQ(here.boxes.size(), 1u);
    EXPECT_EQ(here.boxes[0].owner, nullptr);
}

TEST_F(ownerWindowTest, isTheFirstPopupOfAWindowWithoutParent)
{
    void* const none = nullptr;
    const struct {
        const char* name;
        std::vector<machine::desktopWindow> windows;
        void* owner;
    } rows[] = {
        {"another process's window", {{otherProcess, none, handle(9)}}, none},
        {"a window whose process is unknown", {{0, none, handle(9)}}, none},
        {"a window with a parent", {{ownProcess, handle(5), handle(9)}}, none},
        {"a window without a popup", {{ownProcess, none, none}}, none},
        {"an own window", {{ownProcess, none, handle(9)}}, handle(9)},
        {"the first of two",
         {{ownProcess, none, handle(8)}, {ownProcess, none, handle(9)}},
         handle(8)},
        {"the first that will do",
         {{otherProcess, none, handle(4)},
          {ownProcess, handle(5), handle(6)},
          {ownProcess, none, none},
          {ownProcess, none, handle(8)},
          {ownProcess, none, handle(9)}},
         handle(8)},
    };
    for (const auto& row : rows) {
        here.windows = row.windows;
        EXPECT_EQ(findOwnerWindow(), row.owner) << row.name;
    }
}

TEST_F(ownerWindowTest, isNotLookedForInAProcessWithoutNumber)
{
    here.process = 0;
    here.windows = {{0, nullptr, handle(9)}};
    EXPECT_EQ(findOwnerWindow(), nullptr);
}

TEST_F(ownerWindowTest, ownsTheBox)
{
    here.windows = {{ownProcess, nullptr, handle(9)}};
    reportMessage(u"owned");
    ASSERT_EQ(here.boxes.size(), 1u);
    EXPECT_EQ(here.boxes[0].owner, handle(9));
}

TEST_F(ownerWindowTest, isNoneIfTheEnumerationFails)
{
    here.windows = {{ownProcess, nullptr, handle(9)}};
    here.failCall("enumerateWindows", 1);
    EXPECT_EQ(findOwnerWindow(), nullptr);
}

TEST_F(ownerWindowTest, isTheFirstOfTheListAsFarAsTheEnumerationCame)
{
    here.windows = {{otherProcess, nullptr, handle(7)},
                    {ownProcess, nullptr, handle(8)},
                    {ownProcess, nullptr, handle(9)}};
    here.windowsUntilFailure = 2;
    EXPECT_EQ(findOwnerWindow(), handle(8));
}

TEST_F(ownerWindowTest, isLookedForBehindANullWindowThatIsNotAsked)
{
    here.windows = {{ownProcess, nullptr, handle(8), true}, {ownProcess, nullptr, handle(9)}};
    EXPECT_EQ(findOwnerWindow(), handle(9));
    EXPECT_EQ(here.countCalls("windowProcess"), 1u);
}

TEST_F(reportTest, isShownAlsoWithoutMemory)
{
    here.windows = {{ownProcess, nullptr, handle(9)}};
    {
        const allocationFault fault(1, allocationFault::lasting::forGood);
        reportMessage(u"%s, line %d, %g", u"C:\\a file with a rather long name.xml", 12, 0.5);
    }
    EXPECT_EQ(shown(), string(u"C:\\a file with a rather long name.xml, line 12, 0.5"));
}

TEST_F(assertionTest, isShownAndThrowsAPlainFalseAlsoWithoutMemory)
{
    {
        const allocationFault fault(1, allocationFault::lasting::forGood);
        EXPECT_FALSE(thrownByAssertion(u"m_p != NULL", u"libs/utils/inc/orlorefptr", 315));
    }
    EXPECT_TRUE(shown().starts_with(u"Assertion failed:\nm_p != NULL"));
}

TEST_F(assertionTest, reportsConditionFileAndLineAndThrowsAPlainFalse)
{
    EXPECT_FALSE(thrownByAssertion(u"m_p != NULL", u"libs/utils/inc/orlorefptr", 315));
    EXPECT_EQ(
        shown(),
        string(u"Assertion failed:\nm_p != NULL\n\nFile: libs/utils/inc/orlorefptr\nLine: 315"));
}

TEST_F(assertionTest, readsItsOwnTextAsAFormat)
{
    EXPECT_FALSE(thrownByAssertion(u"a %% b", u"f%%", 1));
    EXPECT_EQ(shown(), string(u"Assertion failed:\na % b\n\nFile: f%\nLine: 1"));
}

TEST_F(assertionTest, readsNoArgumentThatWasNotPassed)
{
    EXPECT_FALSE(thrownByAssertion(u"a%sb", u"%n", 2));
    EXPECT_EQ(shown(), string(u"Assertion failed:\nab\n\nFile: \nLine: 2"));
}

TEST_F(assertionTest, showsAtMost511UnitsOfItsText)
{
    const string condition(std::u16string(2000, u'c').c_str());
    EXPECT_FALSE(thrownByAssertion(condition.c_str(), u"file", 3));
    const string whole = u"Assertion failed:\n" + condition;
    EXPECT_EQ(shown(), whole.substr(0, 511));
}

// What lies behind unit 1023 is lost before the text is read as a format: conversions without
// an argument print nothing, so that the place of the cut can be seen.
TEST_F(assertionTest, formatsAtMost1023Units)
{
    const string heading = u"Assertion failed:\n"; // 18 units
    string condition;
    for (int i = 0; i < 502; ++i) condition.append(u"%s");
    condition.append(u"AZ");
    EXPECT_FALSE(thrownByAssertion(condition.c_str(), u"file", 3));
    EXPECT_EQ(shown(), heading + u"A");
}

} // namespace orloreportTest
