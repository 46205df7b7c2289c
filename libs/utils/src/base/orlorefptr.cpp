#include "orlorefptr.h"

#include "orloreport.h"

namespace orlo {

std::uint32_t refObj::addRef()
{
    atomicIncrement(m_count);
    return referenceCount();
}

// The holder of the only reference has nobody to race with, and an interlocked operation on
// memory that has left the cache is most of what the release of a large tree costs.
std::uint32_t refObj::release()
{
    if (referenceCount() == 1) {
        m_count = 0;
        deleteThis();
        return 0;
    }
    const std::uint32_t left = atomicDecrement(m_count);
    if (left == 0) deleteThis();
    return left;
}

void detail::failEmptyRefptr()
{
    failAssertion(u"m_p != NULL", u"libs/utils/inc/orlorefptr", 315);
}

} // namespace orlo
