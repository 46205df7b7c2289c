#include "messages/languagetext.h"

#include "files/filecontent.h"
#include "platform/platform.h"
#include "text/unitsearch.h"

#include <new>

namespace orlo {

namespace {

std::u16string copyUnits(std::string_view bytes)
{
    std::u16string units(bytes.size() / 2, u'\0');
    const auto byteAt = [bytes](std::size_t index) {
        return static_cast<unsigned char>(bytes[index]);
    };
    for (std::size_t index = 0; index < units.size(); ++index)
        units[index] = static_cast<char16_t>(byteAt(2 * index) | byteAt(2 * index + 1) << 8);
    return units;
}

std::u16string decodeWith(platform::encoding from, std::string_view bytes)
{
    std::u16string units;
    units.reserve(bytes.size());
    platform::expectFilling(units.data(), bytes.size() * sizeof(char16_t));
    units.resize(bytes.size());
    if (!bytes.empty())
        units.resize(platform::decode(from, bytes.data(), bytes.size(), units.data()));
    return units;
}

std::u16string decodeByMark(std::string_view bytes)
{
    if (bytes.starts_with(utf16Mark)) return copyUnits(bytes.substr(utf16Mark.size()));
    if (bytes.starts_with(utf8Mark))
        return decodeWith(platform::encoding::utf8, bytes.substr(utf8Mark.size()));
    return decodeWith(platform::encoding::unmarked, bytes);
}

void joinLineEnds(std::u16string& text)
{
    const std::size_t first = indexOfUnit(text, u'\r');
    if (first == text.size()) return;
    auto to = text.begin() + static_cast<std::ptrdiff_t>(first);
    for (auto from = to; from != text.end(); ++from) {
        const bool dropped = *from == u'\r' && from + 1 != text.end() && from[1] == u'\n';
        if (!dropped) *to++ = *from;
    }
    text.erase(to, text.end());
}

// Whatever the encoding, its units below 128 are bytes of ASCII, or pairs of such a byte and a
// zero.
bool mayHold(std::string_view bytes, std::string_view word)
{
    if (!bytes.starts_with(utf16Mark)) return bytes.find(word) != bytes.npos;
    std::string pairs;
    for (const char letter : word) pairs.append(1, letter).append(1, '\0');
    return bytes.find(pairs) != bytes.npos;
}

bool readBytes(const file& source, const std::optional<fileStatus>& status, fileContent& content)
{
    if (!status || (status->mode & fileStatus::directoryBit)) return false;
    const readResult result = readContent(source, static_cast<std::size_t>(status->size), content);
    return result == readResult::whole || result == readResult::cutShort;
}

std::optional<std::u16string> readTextWith(std::string_view word, const file& source,
                                           const std::optional<fileStatus>& status)
try {
    fileContent content;
    if (!readBytes(source, status, content)) return std::nullopt;
    const std::string_view bytes(reinterpret_cast<const char*>(content.bytes.get()), content.size);
    if (!mayHold(bytes, word)) return std::nullopt;
    std::u16string text = decodeByMark(bytes);
    joinLineEnds(text);
    return text;
} catch (const std::bad_alloc&) {
    return std::nullopt;
}

} // namespace

std::optional<std::u16string> readLanguageText(const file& source)
{
    return readLanguageText(source, statusOf(source));
}

std::optional<std::u16string> readLanguageText(const file& source,
                                               const std::optional<fileStatus>& status)
{
    return readTextWith({}, source, status);
}

std::optional<std::u16string> readLanguageTextWith(std::string_view word, const file& source)
{
    return readTextWith(word, source, statusOf(source));
}

} // namespace orlo
