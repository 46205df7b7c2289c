// The one text type of the system: a counted sequence of UTF-16 code units.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace orlo {

// A text of 16-bit units. Copies are deep, equality and order go by unsigned unit, and no
// operation knows of characters: a surrogate pair is two units everywhere. All operations
// of std::u16string stay usable, also with pieces of the text itself as arguments. Positions
// behind the end raise std::out_of_range with the text "invalid string position", growth past
// maxLength std::length_error with "string too long"; running out of memory passes through as
// std::bad_alloc.
class string : public std::u16string {
public:
    static constexpr std::size_t maxLength = 0x7ffffffffffffffe;

    string() = default;
    // Copies up to the first zero unit; `text` must not be null.
    string(const char16_t* text) : std::u16string(text) {}
    // Exactly `count` units, zero units included.
    string(const char16_t* text, std::size_t count) : std::u16string(text, checkedLength(count)) {}
    string(std::size_t count, char16_t unit) : std::u16string(checkedLength(count), unit) {}
    // From `position` on, at most `count` units.
    string(const string& text, std::size_t position, std::size_t count = npos);
    template <std::input_iterator Iterator>
    string(Iterator first, Iterator last) : std::u16string(first, last)
    {}
    string(std::initializer_list<char16_t> units) : std::u16string(units) {}
    explicit string(char16_t unit) : std::u16string(1, unit) {}
    // What the runtime library's character locale in force makes of narrow text, up to the first
    // zero byte: under "C", in which a process begins, each byte the unit of the same value.
    // Bytes that it can't convert end the text.
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

    // Case of letters, unit by unit, under the character locale in force: under "C" that of the
    // ASCII letters alone. The length never changes.
    string& toLower();
    string& toUpper();
    [[nodiscard]] string lowerCopy() const;

    // Becomes the text of `value`: at most 8 decimals, "." as separator, no trailing zeros.
    string& setNumber(double value);

    // One shared empty text that lives until the process ends.
    static const string& emptyString();

    // The standard operations that can fail, in all their forms.
    string& operator=(const char16_t* text)
    {
        assign(text);
        return *this;
    }
    string& operator=(char16_t unit)
    {
        std::u16string::operator=(unit);
        return *this;
    }
    string& operator=(const std::u16string& text)
    {
        std::u16string::operator=(text);
        return *this;
    }
    string& operator=(std::u16string&& text) noexcept
    {
        std::u16string::operator=(std::move(text));
        return *this;
    }
    string& operator=(std::u16string_view text)
    {
        assign(text);
        return *this;
    }
    string& operator=(std::initializer_list<char16_t> units)
    {
        std::u16string::operator=(units);
        return *this;
    }
    template <class What>
    string& operator+=(const What& what)
    {
        std::u16string::operator+=(what);
        return *this;
    }
    string& operator+=(std::initializer_list<char16_t> units) { return append(units); }
    template <class... What>
    string& assign(const What&... what)
    {
        change([&] { std::u16string::assign(argument(what)...); }, what...);
        return *this;
    }
    string& assign(std::initializer_list<char16_t> units) { return *this = units; }
    template <class... What>
    string& append(const What&... what)
    {
        change([&] { std::u16string::append(argument(what)...); }, what...);
        return *this;
    }
    string& append(std::initializer_list<char16_t> units)
    {
        std::u16string::append(units);
        return *this;
    }
    template <class... What>
    string& insert(std::size_t position, const What&... what)
    {
        change([&] { std::u16string::insert(position, argument(what)...); }, what...);
        return *this;
    }
    template <class... What>
    iterator insert(const_iterator position, const What&... what)
    {
        change([&] { position = std::u16string::insert(position, argument(what)...); }, what...);
        return begin() + (position - cbegin());
    }
    iterator insert(const_iterator position, std::initializer_list<char16_t> units);
    template <class... What>
    string& replace(const What&... what)
    {
        change([&] { std::u16string::replace(argument(what)...); }, what...);
        return *this;
    }
    string& replace(const_iterator first, const_iterator last,
                    std::initializer_list<char16_t> units);
    string& erase(std::size_t position = 0, std::size_t count = npos);
    iterator erase(const_iterator position) { return std::u16string::erase(position); }
    iterator erase(const_iterator first, const_iterator last)
    {
        return std::u16string::erase(first, last);
    }
    void resize(std::size_t units, char16_t fill = 0);
    void reserve(std::size_t units);
    void reserve() { shrink_to_fit(); }
    [[nodiscard]] string substr(std::size_t position = 0, std::size_t count = npos) const;
    char16_t& at(std::size_t position);
    [[nodiscard]] const char16_t& at(std::size_t position) const;

private:
    // Runs a standard operation and gives its failures their texts, which differ from one
    // runtime library to the other.
    template <class Operation, class... What>
    void change(Operation operation, const What&... what)
    {
        try {
            operation();
        } catch (...) {
            rethrow(greatestOf(what...));
        }
    }
    // Counts and positions as the standard operations take them: a literal's value, which fits, is
    // no constant any more when it gets here.
    template <class What>
    static decltype(auto) argument(const What& what)
    {
        if constexpr (std::signed_integral<What>)
            return static_cast<std::size_t>(what);
        else
            return (what);
    }
    // The greatest number among the arguments, which is the count where the text got too long.
    template <class... What>
    static std::size_t greatestOf(const What&... what)
    {
        std::size_t greatest = 0;
        const auto look = [&greatest](const auto& argument) {
            if constexpr (std::integral<std::remove_cvref_t<decltype(argument)>>)
                greatest = std::max(greatest, static_cast<std::size_t>(argument));
        };
        (look(what), ...);
        return greatest;
    }
    [[noreturn]] void rethrow(std::size_t count) const;
    void checkPosition(std::size_t position) const;
    static std::size_t checkedLength(std::size_t units)
    {
        if (units > std::u16string().max_size()) throwLength(units);
        return units;
    }
    [[noreturn]] static void throwLength(std::size_t units);
};

bool operator==(const string& a, const string& b);
bool operator==(const string& a, const char16_t* b);
string operator+(const string& a, const string& b);
string operator+(const string& a, const char16_t* b);
string operator+(const string& a, char16_t b);
string operator+(string&& a, const string& b);
string operator+(string&& a, const char16_t* b);
string operator+(string&& a, char16_t b);
string operator+(const char16_t* a, const string& b);
string operator+(char16_t a, const string& b);

} // namespace orlo
