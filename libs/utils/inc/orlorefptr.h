// Reference-counted objects and the pointer that counts.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace orlo {

// Change a 32-bit word by an interlocked operation and return its new value.
inline std::uint32_t atomicIncrement(std::uint32_t& word)
{
    return std::atomic_ref(word).fetch_add(1) + 1;
}
inline std::uint32_t atomicDecrement(std::uint32_t& word)
{
    return std::atomic_ref(word).fetch_sub(1) - 1;
}

// Base of all reference-counted objects. A new object has the count 0 and goes to a refptr
// at once.
class refObj {
public:
    refObj() = default;
    refObj(const refObj&) = delete;
    refObj& operator=(const refObj&) = delete;

    // Adds 1, and returns the count read afterwards.
    virtual std::uint32_t addRef();
    // Subtracts 1, deletes the object at 0, and returns the value of the decrement.
    virtual std::uint32_t release();
    virtual void deleteThis() = 0;
    virtual ~refObj() = default;

protected:
    [[nodiscard]] std::uint32_t referenceCount() { return std::atomic_ref(m_count).load(); }

    std::uint32_t m_count = 0;
};

// Counting of references, seen from outside.
class iRefCount {
public:
    [[nodiscard]] virtual std::uint32_t getRefCount() = 0;
    // Both give the new count.
    virtual std::uint32_t addRef() = 0;
    virtual std::uint32_t release() = 0;

protected:
    ~iRefCount() = default;
};

// An object that is reached through a counted interface.
class iRefObj : public iRefCount {
protected:
    ~iRefObj() = default;
};

namespace detail {
// Reports the dereference of an empty pointer and throws the plain bool false.
[[noreturn]] void failEmptyRefptr();
} // namespace detail

// Counts one reference to a refObj, or is empty. Access through an empty one fails an
// assertion: a message box, then the plain bool false.
template <class T>
class refptr {
public:
    refptr() = default;
    refptr(std::nullptr_t) {}
    refptr(T* object) : m_p(object)
    {
        if (m_p) m_p->addRef();
    }
    refptr(const refptr& other) : refptr(other.m_p) {}
    refptr(refptr&& other) noexcept : m_p(std::exchange(other.m_p, nullptr)) {}
    template <class U>
    requires std::is_convertible_v<U*, T*> refptr(const refptr<U>& other)
        : refptr(static_cast<T*>(other.get()))
    {}
    refptr& operator=(refptr other) noexcept
    {
        std::swap(m_p, other.m_p);
        return *this;
    }
    ~refptr()
    {
        if (m_p) m_p->release();
    }

    [[nodiscard]] T* get() const { return m_p; }
    // Takes over a reference that is counted already.
    static refptr attach(T* counted)
    {
        refptr taken;
        taken.m_p = counted;
        return taken;
    }
    // Gives the counted reference to the caller.
    [[nodiscard]] T* detach() { return std::exchange(m_p, nullptr); }
    T& operator*() const { return *checked(); }
    T* operator->() const { return checked(); }
    explicit operator bool() const { return m_p != nullptr; }
    friend bool operator==(const refptr& a, const refptr& b) { return a.m_p == b.m_p; }

private:
    T* checked() const
    {
        if (m_p == nullptr) detail::failEmptyRefptr();
        return m_p;
    }

    T* m_p = nullptr;
};

} // namespace orlo
