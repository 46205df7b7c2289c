// What the targets need to take their bytes apart, and to tell a broken promise.
#pragma once

#include "orlostring.h"
#include "targets.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace orlo::fuzz {

// Ends the process, with the promise told, if it does not hold.
void expect(bool holds, const char* promise);

// The bytes cut at each 1E, so that inputs of several parts can be written by hand, and a
// fuzzer can take parts out and put them in.
std::vector<bytes> cut(bytes given);

// Each byte is a unit, except that F0 to FF stand in front of two bytes that make any unit.
string textOf(bytes given);

// Small things that the judges need too, which share no code with what they judge.
std::vector<std::u16string> piecesOf(const std::u16string& whole, const std::u16string& delimiter);
std::u16string lowered(std::u16string word); // ASCII letters
// From left to right; what was put in is not looked at again. Nothing stands for an empty `from`.
void replaceEach(std::u16string& in, std::u16string_view from, std::u16string_view to);

// Whether a format has a width or precision of five digits or more, which asks for that much text:
// allowed, but slow. A "*" between the digits counts for nothing, and belongs to the number too.
bool asksForMuch(std::u16string_view format);

// Values from the front of the bytes; zeros where they have ended.
class input {
public:
    explicit input(bytes given) : m_rest(given) {}

    template <class Value>
    Value take()
    {
        Value value{};
        const std::size_t count = m_rest.size() < sizeof value ? m_rest.size() : sizeof value;
        if (count > 0) std::memcpy(&value, m_rest.data(), count);
        m_rest = m_rest.subspan(count);
        return value;
    }
    std::uint8_t byte() { return take<std::uint8_t>(); }
    // At most `most` bytes.
    bytes some(std::size_t most)
    {
        const bytes taken = m_rest.first(m_rest.size() < most ? m_rest.size() : most);
        m_rest = m_rest.subspan(taken.size());
        return taken;
    }
    [[nodiscard]] bytes rest() const { return m_rest; }
    [[nodiscard]] bool ended() const { return m_rest.empty(); }

private:
    bytes m_rest;
};

} // namespace orlo::fuzz
