#include "orlologger.h"

namespace orlolog {

logger::logger(const orlo::string& name, bool flag, std::uint32_t level)
    : m_name(name), m_level(level), m_flag(flag)
{}

orlo::refptr<logger> logger::create(const orlo::string& name, bool flag, std::uint32_t level)
{
    return new logger(name, flag, level);
}

std::uint32_t logger::getRefCount()
{
    return referenceCount();
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
