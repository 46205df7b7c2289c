#include "orlostring.h"

#include "orlonumbertext.h"
#include "orlounit.h"
#include "platform/characters.h"
#include "text/immortal.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <stdexcept>

namespace orlo {

namespace {

[[noreturn]] void throwPosition()
{
    throw std::out_of_range("invalid string position");
}

} // namespace

string::string(const string& text, std::size_t position, std::size_t count)
{
    text.checkPosition(position);
    std::u16string::assign(text, position, count);
}

string::string(const char* narrow)
{
    const std::size_t length = std::strlen(narrow);
    std::u16string::resize(length);
    if (!platform::isPlainCharacterLocale()) {
        std::u16string::resize(platform::widenText(narrow, data()));
        return;
    }
    std::transform(narrow, narrow + length, begin(), [](char byte) {
        return static_cast<char16_t>(static_cast<unsigned char>(byte));
    });
}

string& string::trimLeft(std::u16string_view set)
{
    const std::size_t first = find_first_not_of(set);
    std::u16string::erase(0, first);
    return *this;
}

string& string::trimRight(std::u16string_view set)
{
    const std::size_t last = find_last_not_of(set);
    std::u16string::resize(last == npos ? 0 : last + 1);
    return *this;
}

string& string::trimRight(char16_t unit)
{
    const std::size_t last = find_last_not_of(unit);
    if (last != npos) std::u16string::resize(last + 1);
    return *this;
}

string& string::removeChars(std::u16string_view set)
{
    // A copy, as the set may be a piece of the text whose units are about to move.
    const std::u16string units(set);
    const auto kept = std::remove_if(begin(), end(),
                                     [&units](char16_t unit) { return units.find(unit) != npos; });
    std::u16string::erase(kept, end());
    return *this;
}

string& string::replaceAll(std::u16string_view from, std::u16string_view to)
{
    if (from.empty()) return *this;
    std::size_t hit = find(from);
    if (hit == npos) return *this;

    // Built beside the old text: in place, each replacement would move all that follows.
    std::u16string result;
    result.reserve(size());
    std::size_t start = 0;
    for (; hit != npos; hit = find(from, start)) {
        result.append(*this, start, hit - start).append(to);
        start = hit + from.size();
    }
    result.append(*this, start, npos);
    swap(result);
    return *this;
}

string& string::replaceChar(char16_t from, char16_t to)
{
    std::replace(begin(), end(), from, to);
    return *this;
}

bool string::split(std::u16string_view delimiter, std::vector<string>& pieces, bool firstOnly) const
{
    // The text may itself be one of the pieces, so the list is filled before it is replaced.
    std::vector<string> found;
    std::size_t start = 0;
    if (!empty()) {
        for (std::size_t hit = find(delimiter); hit != npos;
             hit = firstOnly ? npos : find(delimiter, start)) {
            found.emplace_back(data() + start, hit - start);
            start = hit + delimiter.size();
        }
        found.emplace_back(data() + start, size() - start);
    }
    pieces.swap(found);
    return !pieces.empty();
}

string& string::toLower()
{
    if (platform::isPlainCharacterLocale())
        std::transform(begin(), end(), begin(), lowerUnit);
    else
        std::transform(begin(), end(), begin(), platform::lowerCaseOf);
    return *this;
}

string& string::toUpper()
{
    if (platform::isPlainCharacterLocale())
        std::transform(begin(), end(), begin(), upperUnit);
    else
        std::transform(begin(), end(), begin(), platform::upperCaseOf);
    return *this;
}

string string::lowerCopy() const
{
    string copy(*this);
    copy.toLower();
    return copy;
}

string& string::setNumber(double value)
{
    printNumber(*this, value);
    return *this;
}

const string& string::emptyString()
{
    static immortal<const string> shared([] { return string(); });
    return shared.get();
}

string::iterator string::insert(const_iterator position, std::initializer_list<char16_t> units)
{
    return std::u16string::insert(position, units);
}

string& string::replace(const_iterator first, const_iterator last,
                        std::initializer_list<char16_t> units)
{
    std::u16string::replace(first, last, units);
    return *this;
}

string& string::erase(std::size_t position, std::size_t count)
{
    checkPosition(position);
    std::u16string::erase(position, count);
    return *this;
}

void string::resize(std::size_t units, char16_t fill)
{
    std::u16string::resize(checkedLength(units), fill);
}

void string::reserve(std::size_t units)
{
    std::u16string::reserve(checkedLength(units));
}

string string::substr(std::size_t position, std::size_t count) const
{
    return {*this, position, count};
}

char16_t& string::at(std::size_t position)
{
    if (position >= size()) throwPosition();
    return (*this)[position];
}

const char16_t& string::at(std::size_t position) const
{
    if (position >= size()) throwPosition();
    return (*this)[position];
}

void string::rethrow(std::size_t count) const
{
    try {
        throw;
    } catch (const std::out_of_range&) {
        throwPosition();
    } catch (const std::length_error&) {
        throwLength(count > maxLength - size() ? npos : count);
    }
}

void string::checkPosition(std::size_t position) const
{
    if (position > size()) throwPosition();
}

// Where the library's own limit is lower, a length below ours fails for want of memory alone.
void string::throwLength(std::size_t units)
{
    if (units > maxLength) throw std::length_error("string too long");
    throw std::bad_alloc();
}

bool operator==(const string& a, const string& b)
{
    return a.size() == b.size() &&
           std::char_traits<char16_t>::compare(a.data(), b.data(), a.size()) == 0;
}

bool operator==(const string& a, const char16_t* b)
{
    return std::u16string_view(a) == std::u16string_view(b);
}

string operator+(const string& a, const string& b)
{
    string sum;
    sum.reserve(a.size() + b.size());
    sum.append(a).append(b);
    return sum;
}

string operator+(const string& a, const char16_t* b)
{
    string sum(a);
    sum.append(b);
    return sum;
}

string operator+(const string& a, char16_t b)
{
    string sum(a);
    sum.push_back(b);
    return sum;
}

string operator+(string&& a, const string& b)
{
    a.append(b);
    return std::move(a);
}

string operator+(string&& a, const char16_t* b)
{
    a.append(b);
    return std::move(a);
}

string operator+(string&& a, char16_t b)
{
    a.push_back(b);
    return std::move(a);
}

string operator+(const char16_t* a, const string& b)
{
    string sum(a);
    sum.append(b);
    return sum;
}

string operator+(char16_t a, const string& b)
{
    string sum(a);
    sum.append(b);
    return sum;
}

} // namespace orlo
