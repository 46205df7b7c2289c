#include "platform/platform.h"

#include <cstring>
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

// Nearly all locales of this system write UTF-8. One that does not gives itself away by its
// bad sequences, and is taken for one of single bytes.
string timeText(const char* formatted)
{
    constexpr char16_t replacement = 0xFFFD;
    string text;
    text.resize(std::strlen(formatted));
    text.resize(decode(encoding::utf8, formatted, text.size(), text.data()));
    return text.find(replacement) == string::npos ? text : string(formatted);
}

} // namespace orlo::platform
