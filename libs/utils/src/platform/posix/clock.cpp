#include "platform/platform.h"

#include <ctime>

namespace orlo::platform {

std::int64_t now()
{
    return std::time(nullptr);
}

std::int64_t secondsOf(std::tm& universal)
{
    return ::timegm(&universal);
}

bool localTime(std::int64_t seconds, std::tm& local)
{
    ::tzset();
    const std::time_t time = seconds;
    return ::localtime_r(&time, &local) != nullptr;
}

std::size_t formatTime(char* buffer, std::size_t size, const char* format, const std::tm& time)
{
    return std::strftime(buffer, size, format, &time);
}

} // namespace orlo::platform
