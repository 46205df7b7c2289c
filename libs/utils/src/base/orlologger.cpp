#include "orlologger.h"

#include <atomic>

namespace orlolog {

orlo::refptr<logger> unnamedLogger = logger::create(orlo::string(), false, 0);
orlo::refptr<logger> rootLogger = logger::create(u"root", false, 0);
const orlo::string defaultLineFormat = u"<%s> [PID %p] [TID %t] (%l) {%f, L %r, %c} - %m %o";

logger::logger(const orlo::string& name, bool flag, std::uint32_t level)
    : m_name(name), m_level(level), m_flag(flag)
{}

orlo::refptr<logger> logger::create(const orlo::string& name, bool flag, std::uint32_t level)
{
    return new logger(name, flag, level);
}

std::uint32_t logger::getRefCount()
{
    return std::atomic_ref(m_count).load();
}

std::uint32_t logger::addRef()
{
    return refObj::addRef();
}

std::uint32_t logger::release()
{
    return refObj::release();
}

void logger::deleteThis()
{
    delete this;
}

} // namespace orlolog
