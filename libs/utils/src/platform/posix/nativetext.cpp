#include "platform/posix/nativetext.h"

#include "orlounit.h"
#include "platform/utf8codec.h"

#include <algorithm>

namespace orlo::platform {

namespace {

// A lone unit U+DCxx stands for the byte xx.
constexpr char16_t escapeBase = 0xDC00;
constexpr char16_t escapedBackslash = escapeBase + u'\\';

constexpr bool isEscape(char16_t unit)
{
    return unit == escapedBackslash || (unit >= 0xDC80 && unit <= 0xDCFF);
}

bool isEscapeAt(std::u16string_view text, std::size_t index)
{
    return isEscape(text[index]) && (index == 0 || !isHighSurrogate(text[index - 1]));
}

char16_t* writeEscaped(const unsigned char* bytes, std::size_t count, char16_t* to)
{
    for (std::size_t i = 0; i < count; ++i) *to++ = static_cast<char16_t>(escapeBase + bytes[i]);
    return to;
}

// Every byte gives at most one unit.
void appendUnits(string& text, std::string_view source)
{
    const std::size_t before = text.size();
    text.resize(before + source.size());
    char16_t* to = text.data() + before;
    const auto* bytes = reinterpret_cast<const unsigned char*>(source.data());
    for (const unsigned char* const end = bytes + source.size(); bytes != end;) {
        const utf8Sequence next = readUtf8Sequence(bytes, static_cast<std::size_t>(end - bytes));
        to = next.codePoint == utf8Sequence::badSequence ? writeEscaped(bytes, next.length, to)
                                                         : writeCodePoint(next.codePoint, to);
        bytes += next.length;
    }
    text.resize(static_cast<std::size_t>(to - text.data()));
}

constexpr bool isSeparator(char16_t unit)
{
    return unit == u'\\' || unit == u'/';
}

bool isAscii(std::u16string_view text)
{
    char16_t all = 0;
    for (const char16_t unit : text) all |= unit;
    return all < 0x80;
}

// Nearly all paths are such, and each file call begins with one.
std::string asciiPath(std::u16string_view text)
{
    std::string bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(),
                   [](char16_t unit) { return unit == u'\\' ? '/' : static_cast<char>(unit); });
    return bytes;
}

} // namespace

char* writeNative(std::u16string_view text, char* bytes)
{
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isEscapeAt(text, i)) continue;
        bytes += encodeUtf8Units(text.data() + start, i - start, bytes);
        *bytes++ = static_cast<char>(text[i] - escapeBase);
        start = i + 1;
    }
    return bytes + encodeUtf8Units(text.data() + start, text.size() - start, bytes);
}

std::string nativeText(std::u16string_view text)
{
    std::string bytes(3 * text.size(), '\0');
    bytes.resize(static_cast<std::size_t>(writeNative(text, bytes.data()) - bytes.data()));
    return bytes;
}

std::string nativePath(const string& path)
{
    std::u16string_view text(path.c_str());
    if (text.size() >= 2 && text[1] == u':') {
        if (lowerUnit(text[0]) != u'c') return {};
        text.remove_prefix(2);
        // The drive alone is the current directory on it.
        if (text.empty()) return ".";
    } else if (text.size() >= 2 && isSeparator(text[0]) && isSeparator(text[1])) {
        return {};
    }
    return isAscii(text) ? asciiPath(text) : nativeText(string(text).replaceChar(u'\\', u'/'));
}

string textOf(std::string_view bytes)
{
    string text;
    appendUnits(text, bytes);
    return text;
}

void nameOf(std::string_view bytes, string& name)
{
    name.clear();
    appendUnits(name, bytes);
    name.replaceChar(u'\\', escapedBackslash);
}

string pathTextOf(std::string_view bytes)
{
    string text;
    nameOf(bytes, text);
    text.replaceChar(u'/', u'\\');
    text.insert(0, u"C:");
    return text;
}

} // namespace orlo::platform
