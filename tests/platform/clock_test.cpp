#include "platform/platform.h"

#include "support/text.h"

#include <gtest/gtest.h>

#include <chrono>
#include <clocale>
#include <limits>

namespace clockTest {

using namespace orlo;

namespace {

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

// Leaves LC_TIME as it was.
class localeKeeper {
public:
    localeKeeper() { platform::queryTimeLocale(m_name); }
    localeKeeper(const localeKeeper&) = delete;
    localeKeeper& operator=(const localeKeeper&) = delete;
    ~localeKeeper() { platform::setTimeLocale(m_name); }

private:
    string m_name;
};

} // namespace

TEST(clockSystem, tellsThePresent)
{
    const auto present = std::chrono::system_clock::now().time_since_epoch();
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(present).count();
    EXPECT_NEAR(static_cast<double>(platform::now()), static_cast<double>(seconds), 5.0);
}

TEST(clockSystem, turnsUniversalTimeIntoSeconds)
{
    static const struct {
        std::tm time;
        std::int64_t seconds;
    } rows[] = {
        {universal(1970, 1, 1), 0},
        {universal(2024, 2, 29, 12, 30, 15), 1709209815},
        {universal(2024, 3, 1), 1709251200},
        {universal(2038, 1, 19, 3, 14, 8), 2147483648},
        {universal(2024, 13, 1), 1735689600},          // January of 2025
        {universal(2024, 1, 31, 24), 1706745600},      // the next day
        {universal(2024, 1, 1, 0, 0, -1), 1704067199}, // the second before
    };
    for (const auto& row : rows) {
        std::tm time = row.time;
        EXPECT_EQ(platform::secondsOf(time), row.seconds);
    }
}

TEST(clockSystem, normalisesTheFields)
{
    std::tm time = universal(2024, 13, 32, 25, 61, 61);
    ASSERT_NE(platform::secondsOf(time), -1);
    EXPECT_EQ(time.tm_year, 125);
    EXPECT_EQ(time.tm_mon, 1);
    EXPECT_EQ(time.tm_mday, 2);
    EXPECT_EQ(time.tm_hour, 2);
    EXPECT_EQ(time.tm_min, 2);
    EXPECT_EQ(time.tm_sec, 1);
}

TEST(clockSystem, turnsSecondsIntoLocalTimeAndBack)
{
    for (const std::int64_t seconds : {86400LL * 2, 1709209815LL, 1720000000LL, 4102444800LL}) {
        std::tm local{};
        ASSERT_TRUE(platform::localTime(seconds, local));
        std::tm sameFields = local;
        // A zone lies at most 14 hours from universal time, and a quarter of an hour is its step.
        const std::int64_t offset = platform::secondsOf(sameFields) - seconds;
        EXPECT_LE(std::abs(offset), 14 * 3600);
        EXPECT_EQ(offset % 900, 0);
    }
}

TEST(clockSystem, survivesTimesThatNobodyKnows)
{
    constexpr int highest = std::numeric_limits<int>::max();
    constexpr int lowest = std::numeric_limits<int>::min();
    for (const int extreme : {highest, lowest, -1}) {
        std::tm time{};
        time.tm_year = time.tm_mon = time.tm_mday = time.tm_hour = time.tm_min = time.tm_sec =
            extreme;
        time.tm_wday = time.tm_yday = extreme;
        char text[128];
        EXPECT_LT(platform::formatTime(text, sizeof text, "%c", time), sizeof text);
        platform::secondsOf(time);
    }
    std::tm local{};
    EXPECT_FALSE(platform::localTime(std::numeric_limits<std::int64_t>::max(), local));
    EXPECT_FALSE(platform::localTime(std::numeric_limits<std::int64_t>::min(), local));
}

TEST(clockSystem, formatsUnderTheCurrentLocale)
{
    const localeKeeper keeper;
    ASSERT_TRUE(platform::setTimeLocale(u"C"));
    std::tm time = universal(2024, 2, 29, 12, 30, 15);
    platform::secondsOf(time);
    char text[128];
    const std::size_t length =
        platform::formatTime(text, sizeof text, "%Y-%m-%d %H:%M:%S %a %b", time);
    EXPECT_EQ(std::string(text, length), "2024-02-29 12:30:15 Thu Feb");
    EXPECT_EQ(platform::formatTime(text, 5, "%Y-%m-%d", time), 0u);
}

TEST(clockSystem, setsAndTellsTheTimeLocale)
{
    const localeKeeper keeper;
    string name;
    ASSERT_TRUE(platform::setTimeLocale(u"C"));
    ASSERT_TRUE(platform::queryTimeLocale(name));
    EXPECT_EQ(name, string(u"C"));
    EXPECT_FALSE(platform::setTimeLocale(u"no such locale"));
    ASSERT_TRUE(platform::queryTimeLocale(name));
    EXPECT_EQ(name, string(u"C"));
}

// Numbers, letters and sorting of a process stay as they are while a time is shown.
TEST(clockSystem, setsTheLocaleOfTimesAlone)
{
    const localeKeeper keeper;
    // One of these is known to each system.
    ASSERT_TRUE(platform::setTimeLocale(u"German") || platform::setTimeLocale(u"C.UTF-8"));
    string name;
    ASSERT_TRUE(platform::queryTimeLocale(name));
    EXPECT_NE(name, string(u"C"));
    for (const int category : {LC_COLLATE, LC_CTYPE, LC_MONETARY, LC_NUMERIC})
        EXPECT_STREQ(std::setlocale(category, nullptr), "C") << category;
}

TEST(clockSystem, tellsTheDecimalSeparators)
{
    string user;
    string system;
    EXPECT_TRUE(platform::userDecimalSeparator(user));
    EXPECT_TRUE(platform::systemDecimalSeparator(system));
    EXPECT_FALSE(user.empty());
    EXPECT_FALSE(system.empty());
}

} // namespace clockTest
