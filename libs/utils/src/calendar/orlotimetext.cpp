#include "orlotimetext.h"

#include "orlomutex.h"
#include "platform/platform.h"

#include <cstdint>

namespace orlo {

namespace {

constexpr std::size_t longestTime = 127;
constexpr std::size_t bytesOfUnit = 4; // at most, in any character set

// The user's LC_TIME locale for a scope, and no other category. The locale is the process's, so
// one thread at a time has it; where the kept one can't be told, the user's stays.
class userTimeLocale {
public:
    userTimeLocale() : m_held(&guard()), m_known(platform::queryTimeLocale(m_kept))
    {
        platform::setTimeLocale(string::emptyString());
    }
    ~userTimeLocale()
    {
        if (m_known) platform::setTimeLocale(m_kept);
    }
    userTimeLocale(const userTimeLocale&) = delete;
    userTimeLocale& operator=(const userTimeLocale&) = delete;

private:
    // Never destroyed: a text may be asked for while the process ends.
    static mutex& guard()
    {
        static mutex& only = *new mutex;
        return only;
    }

    mutexLock m_held;
    string m_kept;
    bool m_known;
};

} // namespace

string localTimeText(std::tm universal)
{
    std::tm local{};
    if (!platform::localTime(platform::secondsOf(universal), local)) return {};

    const userTimeLocale users;
    char formatted[longestTime * bytesOfUnit + 1] = "";
    if (platform::formatTime(formatted, sizeof formatted, "%c", local) == 0) return {};
    string text = platform::timeText(formatted);
    return text.size() > longestTime ? string() : text;
}

} // namespace orlo
