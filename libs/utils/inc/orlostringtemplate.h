// A text with open places that are filled one value at a time.
#pragma once

#include "orlostring.h"
#include "orlotextformat.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace orlo {

// One printf conversion while it is collected, from its percent sign to its letter.
class conversionSpec {
public:
    enum class valueClass : std::uint32_t {
        none = 0,
        character = 1,
        integer = 2,
        floating = 3,
        text = 4,
        empty = 5
    };
    static constexpr std::size_t maxLength = 15;

    // Adds a unit; one beyond 15 is refused. A letter of a class completes the conversion.
    void addChar(char16_t unit);
    [[nodiscard]] bool isComplete() const { return m_class != valueClass::none; }
    [[nodiscard]] valueClass type() const { return m_class; }
    // 0 behind the length letter h, 2 behind l, else 1.
    [[nodiscard]] std::uint32_t size() const { return m_size; }
    [[nodiscard]] const char16_t* conversion() const { return m_conversion; }

private:
    std::uint32_t m_size = 1;
    valueClass m_class = valueClass::none;
    std::size_t m_length = 0;
    char16_t m_conversion[maxLength + 1] = {};
};

// A text with places of three kinds: "[name]" or "[name:%conversion]", "$1", and plain printf
// conversions. Each insertion fills exactly one place; places that are not found drop the
// value in silence.
//
//   stringTemplate text(u"E:[File] has [Count:%03d] lines");     severity 3
//   text.insertValue(7, u"Count");                               [File] has 007 lines
class stringTemplate {
public:
    stringTemplate() = default;
    explicit stringTemplate(const char16_t* text) { setText(text); }
    stringTemplate(const stringTemplate& other);
    stringTemplate& operator=(const stringTemplate& other);

    // Takes a raw text: a letter and a colon in front are the severity and fall away, and so
    // do leading blanks. A null text counts as empty. Out of memory for the severity throws
    // outOfMemoryException.
    void setText(const char16_t* text);
    [[nodiscard]] const string& text() const { return m_text; }
    // Null, or 0 unknown letter, 1 information, 2 warning, 3 error.
    [[nodiscard]] const std::uint32_t* severity() const { return m_severity.get(); }
    // The number of values that were inserted without a name since setText().
    [[nodiscard]] std::int32_t nextPosition() const { return m_nextPosition; }

    // Fills the place of this name, or, for a null name, the next numbered place. The text
    // overload gives false if no place is found; all others give true. The int overload leaves
    // a place whose text would be empty.
    bool insertValue(short value, const char16_t* name);
    bool insertValue(int value, const char16_t* name);
    bool insertValue(long value, const char16_t* name);
    bool insertValue(double value, const char16_t* name);
    bool insertValue(const char16_t* value, const char16_t* name);
    bool insertValue(bool value, const char16_t* name);
    bool insertValue(char16_t value, const char16_t* name);

private:
    struct place {
        std::size_t position = 0;
        std::size_t end = 0;
    };
    bool findPosition(std::int32_t number, place& found) const;
    // A place with another content is left in `found` even without a match: a conversion is
    // then looked for there and nowhere else.
    bool findName(std::u16string_view name, place& found) const;
    // Reads the bracket at `at`; without a match, `next` tells where the search goes on.
    bool readPlace(std::size_t at, std::u16string_view name, place& found, std::size_t& next) const;
    // Collects the first conversion that begins within `found`, which becomes its place unless
    // one was found already.
    void findConversion(conversionSpec& format, place& found, bool placeFound) const;
    bool locatePlaceholder(conversionSpec& format, place& found, const char16_t* name);
    void fillPlace(const place& found, std::u16string_view text);
    template <class Value>
    bool insertAlways(Value value, const char16_t* name);

    string m_text;
    std::int32_t m_nextPosition = 0;
    std::unique_ptr<std::uint32_t> m_severity;
};

} // namespace orlo
