#include "orlotimetext.h"

#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <limits>

namespace orlotimetextTest {

using orlo::localTimeText;
using orlo::tests::machine;

namespace {

class timeText : public testing::Test {
protected:
    void SetUp() override { machine::renew(); }
};

std::tm universal(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    std::tm time{};
    time.tm_year = year - 1900;
    time.tm_mon = month - 1;
    time.tm_mday = day;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    return time;
}

} // namespace

TEST_F(timeText, isThatOfTheLocalZone)
{
    EXPECT_EQ(localTimeText(universal(2024, 3, 5, 12, 30, 15)), u"Tue Mar  5 12:30:15 2024");
    machine::current().timeZoneOffset = 3600;
    EXPECT_EQ(localTimeText(universal(2024, 12, 31, 23, 30)), u"Wed Jan  1 00:30:00 2025");
}

TEST_F(timeText, letsFieldsOutOfRangeRollOver)
{
    EXPECT_EQ(localTimeText(universal(2023, 13, 31)), u"Wed Jan 31 00:00:00 2024");
    EXPECT_EQ(localTimeText(universal(2024, 1, 30, 25, 61, 61)), u"Wed Jan 31 02:02:01 2024");
}

TEST_F(timeText, isInTheUsersOwnFormatAndTheLocaleIsRestored)
{
    machine& m = machine::current();
    m.timeLocale = u"C.of the process";
    m.timeText = "5. M\xE4rz 2024";
    EXPECT_EQ(localTimeText(universal(2024, 3, 5)), u"5. M\u00E4rz 2024")
        << "bytes are units of the same value";
    EXPECT_EQ(m.timeLocale, u"C.of the process");
}

// One thread at a time may have the locale, from asking for the old one to restoring it.
TEST_F(timeText, holdsALockOverTheLocale)
{
    machine& m = machine::current();
    localTimeText(universal(2024, 3, 5)); // makes the lock
    m.calls.clear();
    localTimeText(universal(2024, 3, 5));
    std::vector<std::string> operations;
    for (const auto& call : m.calls)
        operations.push_back(call.operation + " " + orlo::narrow(call.subject));
    EXPECT_EQ(operations, (std::vector<std::string>{
                              "secondsOf ", "localTime ", "lockMutex ", "queryTimeLocale ",
                              "setTimeLocale ", "formatTime ", "setTimeLocale C", "unlockMutex "}));
}

TEST_F(timeText, keepsTheUsersLocaleWhereTheProcesssCannotBeTold)
{
    machine& m = machine::current();
    m.failCall("queryTimeLocale", 1);
    EXPECT_EQ(localTimeText(universal(2024, 3, 5)), u"Tue Mar  5 00:00:00 2024");
    EXPECT_EQ(m.timeLocale, m.userTimeLocale);
}

TEST_F(timeText, isThatOfTheProcesssLocaleWhereTheUsersCannotBeSet)
{
    machine::current().failCall("setTimeLocale", 1);
    EXPECT_EQ(localTimeText(universal(2024, 3, 5)), u"Tue Mar  5 00:00:00 2024");
}

TEST_F(timeText, holds127Units)
{
    machine::current().timeText = std::string(127, 'x');
    EXPECT_EQ(localTimeText(universal(2024, 3, 5)), std::u16string(127, u'x').c_str());
    machine::current().timeText = std::string(128, 'x');
    EXPECT_EQ(localTimeText(universal(2024, 3, 5)), u"");
    machine::current().timeText = std::string(100000, 'x');
    EXPECT_EQ(localTimeText(universal(2024, 3, 5)), u"");
}

TEST_F(timeText, isEmptyWhereTheSystemHasNone)
{
    for (const char* call : {"secondsOf", "localTime", "formatTime"}) {
        machine::renew().failCall(call, 1);
        EXPECT_EQ(localTimeText(universal(2024, 3, 5)), u"") << call;
        EXPECT_EQ(machine::current().timeLocale, u"C") << call;
    }
}

TEST_F(timeText, survivesTimesThatNobodyKnows)
{
    for (const int extreme : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        std::tm time{};
        time.tm_year = time.tm_mon = time.tm_mday = time.tm_hour = time.tm_min = time.tm_sec =
            extreme;
        EXPECT_EQ(localTimeText(time), u"");
    }
}

} // namespace orlotimetextTest
