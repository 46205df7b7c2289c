#include "platform/platform.h"
#include "platform/posix/nativetext.h"

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <langinfo.h>

namespace orlo::platform {

namespace {

// The separator of the locale that the environment names. As everywhere on this system, a
// locale that is not installed counts as "C".
string environmentSeparator()
{
    const locale_t user = ::newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (user == nullptr) return u".";
    string separator = textOf(::nl_langinfo_l(RADIXCHAR, user));
    ::freelocale(user);
    return separator;
}

// The name of the user's LC_TIME locale, found in the system's own order.
const char* environmentTimeLocale()
{
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const char* name = std::getenv(variable);
        if (name != nullptr && *name != '\0') return name;
    }
    return "C";
}

// "C" with UTF-8 has the very texts of "C", but comes from files, at the price of a dozen calls.
bool isPlainLocale(const char* name)
{
    return std::strcmp(name, "C.UTF-8") == 0 || std::strcmp(name, "C.utf8") == 0;
}

} // namespace

bool queryTimeLocale(string& name)
{
    const char* current = ::setlocale(LC_TIME, nullptr);
    if (current == nullptr) return false;
    name = textOf(current);
    return true;
}

bool setTimeLocale(const string& name)
{
    const std::string given = name.empty() ? environmentTimeLocale() : nativeText(name);
    return ::setlocale(LC_TIME, isPlainLocale(given.c_str()) ? "C" : given.c_str()) != nullptr;
}

bool userDecimalSeparator(string& separator)
{
    separator = environmentSeparator();
    return true;
}

// There is no format of the system beside that of the environment.
bool systemDecimalSeparator(string& separator)
{
    return userDecimalSeparator(separator);
}

} // namespace orlo::platform
