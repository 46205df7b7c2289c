// The one text type of the system: a counted sequence of UTF-16 code units.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orlo {

// A text of 16-bit units. Copies are deep, equality and order go by unsigned unit, and no
// operation knows of characters: a surrogate pair is two units everywhere. All operations
// of std::u16string stay usable. Positions behind the end raise std::out_of_range with the
// text "invalid string position", growth past maxLength std::length_error with "string too
// long"; running out of memory passes through as std::bad_alloc.
class string : public std::u16string {
public:
    static constexpr std::size_t maxLength = 0x7ffffffffffffffe;

    string() = default;
    // Copies up to the first zero unit; `text` must not be null.
    string(const char16_t* text) : std::u16string(text) {}
    // Exactly `count` units, zero units included.
    string(const char16_t* text, std::size_t count) : std::u16string(text, count) {}
    explicit string(char16_t unit) : std::u16string(1, unit) {}
    // Each byte becomes the unit of the same value, up to the first zero byte, which is what
    // the "C" character locale makes of narrow text.
    explicit string(const char* narrow);
    explicit string(std::u16string_view view) : std::u16string(view) {}
    string(std::u16string&& other) noexcept : std::u16string(std::move(other)) {}

    // Removes the longest prefix (suffix) whose units all lie in `set`; an empty set removes
    // nothing.
    string& trimLeft(std::u16string_view set);
    string& trimRight(std::u16string_view set);
    // Removes the run of `unit` at the end, except that a text of nothing but `unit` stays
    // as it is: three backslashes trimmed of the backslash are still three.
    string& trimRight(char16_t unit);
    // Deletes every occurrence of every unit of `set`.
    string& removeChars(std::u16string_view set);
    // Replaces all occurrences from left to right; text just put in is not searched again.
    // An empty `from` changes nothing.
    string& replaceAll(std::u16string_view from, std::u16string_view to);
    string& replaceChar(char16_t from, char16_t to);
    // Cuts the text at each `delimiter`, which must not be empty; empty pieces are kept.
    // With `firstOnly` only the first delimiter counts. False, with no piece, for the empty
    // text alone.
    //
    //   string(u"a=b=c").split(u"=", pieces, true)     { a, b=c }
    bool split(std::u16string_view delimiter, std::vector<string>& pieces,
               bool firstOnly = false) const;

    // Case of ASCII letters, unit by unit; the length never changes.
    string& toLower();
    string& toUpper();
    [[nodiscard]] string lowerCopy() const;

    // Becomes the text of `value`: at most 8 decimals, "." as separator, no trailing zeros.
    string& setNumber(double value);

    // One shared empty text that lives until the process ends.
    static const string& emptyString();

    // The standard operations with a position, whose failures read the same on every runtime
    // library.
    string& insert(std::size_t position, std::u16string_view text);
    string& insert(std::size_t position, std::size_t count, char16_t unit);
    template <class... What>
    iterator insert(const_iterator position, const What&... what)
    {
        return std::u16string::insert(position, what...);
    }
    string& replace(std::size_t position, std::size_t count, std::u16string_view text);
    string& erase(std::size_t position = 0, std::size_t count = npos);
    using std::u16string::erase;
    [[nodiscard]] string substr(std::size_t position = 0, std::size_t count = npos) const;
    char16_t& at(std::size_t position);
    [[nodiscard]] const char16_t& at(std::size_t position) const;
    void reserve(std::size_t units);
    void resize(std::size_t units, char16_t fill = 0);

private:
    void checkPosition(std::size_t position) const;
    void checkLength(std::size_t units) const;
};

bool operator==(const string& a, const string& b);
bool operator==(const string& a, const char16_t* b);
string operator+(const string& a, const string& b);
string operator+(const string& a, const char16_t* b);
string operator+(string&& a, const string& b);
string operator+(string&& a, const char16_t* b);
string operator+(const char16_t* a, const string& b);

} // namespace orlo
