#include "platform/platform.h"

#include <ctime>
#include <time.h>

namespace orlo::platform {

namespace {

// The runtime library answers times and fields that it does not know with its handler for
// invalid arguments, which ends the process. So they are kept away from it.
constexpr std::int64_t lastKnownSecond = 32535215999; // 3000-12-31 23:59:59

constexpr bool isBetween(int value, int first, int last)
{
    return value >= first && value <= last;
}

bool isKnown(const std::tm& time)
{
    return isBetween(time.tm_sec, 0, 59) && isBetween(time.tm_min, 0, 59) &&
           isBetween(time.tm_hour, 0, 23) && isBetween(time.tm_mday, 1, 31) &&
           isBetween(time.tm_mon, 0, 11) && isBetween(time.tm_year, -1900, 8099) &&
           isBetween(time.tm_wday, 0, 6) && isBetween(time.tm_yday, 0, 365);
}

} // namespace

std::int64_t now()
{
    return ::_time64(nullptr);
}

std::int64_t secondsOf(std::tm& universal)
{
    return ::_mkgmtime64(&universal);
}

bool localTime(std::int64_t seconds, std::tm& local)
{
    if (seconds < 0 || seconds > lastKnownSecond) return false;
    const __time64_t time = seconds;
    return ::_localtime64_s(&local, &time) == 0;
}

std::size_t formatTime(char* buffer, std::size_t size, const char* format, const std::tm& time)
{
    return isKnown(time) ? std::strftime(buffer, size, format, &time) : 0;
}

string timeText(const char* formatted)
{
    return string(formatted);
}

} // namespace orlo::platform
