#include "platform/platform.h"

#include <pthread.h>

#include <memory>
#include <new>

namespace orlo::platform {

namespace {

bool makeRecursive(pthread_mutex_t& mutex)
{
    pthread_mutexattr_t attributes;
    if (::pthread_mutexattr_init(&attributes) != 0) return false;
    const bool made = ::pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE) == 0 &&
                      ::pthread_mutex_init(&mutex, &attributes) == 0;
    ::pthread_mutexattr_destroy(&attributes);
    return made;
}

pthread_mutex_t* mutexOf(void* handle)
{
    return static_cast<pthread_mutex_t*>(handle);
}

} // namespace

void* createMutex()
{
    std::unique_ptr<pthread_mutex_t> made(new (std::nothrow) pthread_mutex_t);
    return made && makeRecursive(*made) ? made.release() : nullptr;
}

bool lockMutex(void* mutex)
{
    return mutex != nullptr && ::pthread_mutex_lock(mutexOf(mutex)) == 0;
}

void unlockMutex(void* mutex)
{
    if (mutex != nullptr) ::pthread_mutex_unlock(mutexOf(mutex));
}

void destroyMutex(void* mutex)
{
    if (mutex == nullptr) return;
    ::pthread_mutex_destroy(mutexOf(mutex));
    delete mutexOf(mutex);
}

} // namespace orlo::platform
