#include "orlorefptr.h"

#include "orloreport.h"

namespace orlo {

std::uint32_t refObj::addRef()
{
    atomicIncrement(m_count);
    return referenceCount();
}

std::uint32_t refObj::release()
{
    const std::uint32_t left = atomicDecrement(m_count);
    if (left == 0) deleteThis();
    return left;
}

void detail::failEmptyRefptr()
{
    failAssertion(u"m_p != NULL", u"libs/utils/inc/orlorefptr", 315);
}

} // namespace orlo
