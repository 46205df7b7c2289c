// Objects that are made once and never destroyed.
#pragma once

#include <cstddef>
#include <new>

namespace orlo {

// Holds an object for as long as the process lives, so that it serves to the last of the
// destructors at exit. As a static variable of a function it is made on first use, and again at
// the next one if making it failed. It takes no memory beyond its own.
//
//   table& theTable()
//   {
//       static immortal<table> only([] { return table(); });
//       return only.get();
//   }
template <class T>
class immortal {
public:
    // Holds what `make` returns, without moving it.
    template <class Make>
    explicit immortal(Make make) : m_object(::new (static_cast<void*>(m_room)) T(make()))
    {}
    immortal(const immortal&) = delete;
    immortal& operator=(const immortal&) = delete;

    [[nodiscard]] T& get() { return *m_object; }

private:
    alignas(T) std::byte m_room[sizeof(T)];
    T* m_object;
};

} // namespace orlo
