// The lock of all singletons: a recursive mutex of the operating system.
#pragma once

#include <cstdint>

namespace orlo {

// An unnamed mutex that the owning thread may take again, and must release as often.
class mutex {
public:
    mutex();
    ~mutex();
    mutex(const mutex&) = delete;
    mutex& operator=(const mutex&) = delete;

    // Waits without limit; false only if the wait itself failed.
    bool lock();
    void unlock();

private:
    void* m_handle;
};

// Holds a mutex for a scope. A null mutex throws the plain bool false.
class mutexLock {
public:
    explicit mutexLock(mutex* target);
    ~mutexLock() { release(); }
    mutexLock(const mutexLock&) = delete;
    mutexLock& operator=(const mutexLock&) = delete;

    // Gives the mutex back early; nothing if it is not held.
    void release();

private:
    mutex* m_mutex;
    bool m_held = false;
};

} // namespace orlo
