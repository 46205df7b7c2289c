#include "orlomutex.h"

#include "platform/platform.h"

namespace orlo {

mutex::mutex() : m_handle(platform::createMutex()) {}

mutex::~mutex()
{
    platform::destroyMutex(m_handle);
}

bool mutex::lock()
{
    return platform::lockMutex(m_handle);
}

void mutex::unlock()
{
    platform::unlockMutex(m_handle);
}

mutexLock::mutexLock(mutex* target) : m_mutex(target)
{
    if (m_mutex == nullptr) throw false;
    m_held = m_mutex->lock();
}

void mutexLock::release()
{
    if (!m_held) return;
    m_held = false;
    m_mutex->unlock();
}

} // namespace orlo
