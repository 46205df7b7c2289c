#include "source.h"

#include "files/filecontent.h"
#include "messages/languagetext.h"
#include "platform/platform.h"

#include <algorithm>
#include <string_view>

namespace orlo::languagecheck {

namespace {

constexpr std::string_view otherUtf16Mark = "\xFE\xFF";

// False, with a finding, if the file can't be read whole.
bool readBytes(const namedFile& from, report& findings, fileContent& content)
{
    const position top{from.shown};
    fileStatus status;
    if (!from.where.stat(status)) {
        findings.error(top, u"there is no such file");
        return false;
    }
    if (status.mode & fileStatus::directoryBit) {
        findings.error(top, u"this is a folder, not a file");
        return false;
    }
    if (status.size > largestFile) {
        findings.error(top, u"the file is too large to be a language file: %lld bytes",
                       {static_cast<long long>(status.size)});
        return false;
    }
    switch (readContent(from.where, static_cast<std::size_t>(status.size), content)) {
    case readResult::whole: return true;
    case readResult::unopened: findings.error(top, u"the file can't be opened"); return false;
    case readResult::withoutMemory: findings.error(top, u"not enough memory"); return false;
    case readResult::cutShort: findings.error(top, u"the file can't be read to its end"); break;
    }
    return false;
}

std::string_view bytesOf(const fileContent& content)
{
    return {reinterpret_cast<const char*>(content.bytes.get()), content.size};
}

// --- Bytes in UTF-8 --------------------------------------------------------------------------

// A good text comes back as it went.
bool isUtf8(std::string_view bytes)
{
    if (bytes.empty()) return true;
    std::u16string units(bytes.size(), u'\0');
    const auto utf8Bytes = platform::encoding::utf8;
    units.resize(platform::decode(utf8Bytes, bytes.data(), bytes.size(), units.data()));
    return utf8(units) == bytes;
}

bool isAscii(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

// Calls `isGood` for each line, reports the first bad one, and tells how many there are.
template <class View, class Check>
void checkEachLine(const string& shown, View text, const char16_t* complaint, Check isGood,
                   report& findings)
{
    std::size_t first = 0;
    std::size_t bad = 0;
    for (std::size_t line = 1; !text.empty(); ++line) {
        const auto length = std::min(text.find('\n'), text.size());
        if (!isGood(text.substr(0, length)) && bad++ == 0) first = line;
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    if (bad == 0) return;
    string words(complaint);
    if (bad > 1) words.append(u"; so in %d lines");
    findings.error({shown, first}, words.c_str(), {static_cast<long>(bad)});
}

void checkUtf8(const string& shown, std::string_view bytes, report& findings)
{
    checkEachLine(shown, bytes, u"bytes that are no UTF-8", isUtf8, findings);
}

void checkMissingMark(const string& shown, std::string_view bytes, report& findings)
{
    if (isAscii(bytes))
        findings.warning({shown}, u"no byte-order mark: save the file as UTF-8 with its mark");
    else
        findings.error({shown}, u"no byte-order mark, and letters that are read differently from "
                                u"system to system: save the file as UTF-8 with its mark");
}

// --- Units of UTF-16 -------------------------------------------------------------------------

bool isHighHalf(char16_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowHalf(char16_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

bool hasWholePairs(std::u16string_view line)
{
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (isLowHalf(line[at])) return false;
        if (!isHighHalf(line[at])) continue;
        if (++at == line.size() || !isLowHalf(line[at])) return false;
    }
    return true;
}

void checkUtf16(const string& shown, std::string_view bytes, std::u16string_view text,
                report& findings)
{
    checkEachLine(shown, text, u"half of a surrogate pair", hasWholePairs, findings);
    if (bytes.size() % 2 == 0) return;
    const auto lines = 1 + std::count(text.begin(), text.end(), u'\n');
    findings.error({shown, static_cast<std::size_t>(lines)}, u"the file ends within a unit");
}

// --- Both ------------------------------------------------------------------------------------

bool isOtherUtf16(const string& shown, std::string_view bytes, report& findings)
{
    if (!bytes.starts_with(otherUtf16Mark)) return false;
    findings.error({shown}, u"UTF-16 with its most significant bytes in front is not read: "
                            u"save the file as UTF-8 with its mark");
    return true;
}

// What no text holds. In UTF-16 a zero byte alone is the half of a letter.
bool isBinary(const string& shown, std::string_view bytes, std::u16string_view text,
              report& findings)
{
    const bool utf16 = bytes.starts_with(utf16Mark);
    const bool zeros = utf16 ? text.find(u'\0') != text.npos : bytes.find('\0') != bytes.npos;
    if (zeros)
        findings.error({shown}, u"the file holds zeros: this is no text, or one without its "
                                u"byte-order mark");
    return zeros;
}

void checkBytes(const string& shown, std::string_view bytes, std::u16string_view text,
                report& findings)
{
    if (bytes.starts_with(utf16Mark)) {
        checkUtf16(shown, bytes, text, findings);
    } else {
        if (!bytes.starts_with(utf8Mark)) checkMissingMark(shown, bytes, findings);
        checkUtf8(shown, bytes, findings);
    }
}

} // namespace

std::optional<source> readSource(const namedFile& from, report& findings)
{
    fileContent content;
    if (!readBytes(from, findings, content)) return std::nullopt;
    const std::string_view bytes = bytesOf(content);
    if (isOtherUtf16(from.shown, bytes, findings)) return std::nullopt;
    const std::optional<std::u16string> text = readLanguageText(from.where);
    if (!text) {
        findings.error({from.shown}, u"not enough memory");
        return std::nullopt;
    }
    if (isBinary(from.shown, bytes, *text, findings)) return std::nullopt;
    checkBytes(from.shown, bytes, *text, findings);
    return source{from, *text};
}

} // namespace orlo::languagecheck
