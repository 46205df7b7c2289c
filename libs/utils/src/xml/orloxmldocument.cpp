#include "orloxmldocument.h"

#include "files/filecontent.h"
#include "orloexception.h"
#include "platform/platform.h"
#include "text/unitsearch.h"
#include "xml/xmlencoding.h"
#include "xml/xmlreader.h"
#include "xml/xmlsource.h"
#include "xml/xmlwriter.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <new>
#include <numeric>
#include <span>
#include <string_view>

namespace orlo {

namespace {

// No memory holds a negative size.
fileContent readWhole(const file& source, std::int32_t size)
{
    fileContent content;
    switch (readContent(source, static_cast<std::size_t>(size), content)) {
    case readResult::whole: return content;
    case readResult::withoutMemory: throw outOfMemoryException();
    default: throw readFileException(source, nullptr);
    }
}

// --- Writing -------------------------------------------------------------------------------

// The text is encoded in pieces, each by itself: a surrogate pair across the border of two becomes
// two lone halves, and a zero unit drops the rest of its piece.
constexpr std::size_t pieceUnits = 256;

void appendUtf8(byteBuffer& out, std::u16string_view text)
{
    std::array<char, 3 * pieceUnits> bytes;
    for (; !text.empty(); text.remove_prefix(std::min(text.size(), pieceUnits))) {
        const std::u16string_view piece = text.substr(0, pieceUnits);
        const std::u16string_view kept = piece.substr(0, indexOfUnit(piece, u'\0'));
        if (kept.empty()) continue;
        const std::size_t length = platform::encodeUtf8(kept.data(), kept.size(), bytes.data());
        if (length == 0) throw false;
        out.append(bytes.data(), length);
    }
}

// Encodes a text while it grows at its end, so that it never stands there whole and what has been
// written of it is still at hand in the processor.
class textEncoder {
public:
    // Entities take a little more than expected, and so do characters beyond ASCII.
    textEncoder(xmlEncoding encoding, std::size_t expectedUnits) : m_encoding(encoding)
    {
        m_encoded.reserve(encoding == xmlEncoding::utf8 ? expectedUnits + expectedUnits / 8
                                                        : 2 * expectedUnits);
    }

    // Takes the pieces that are complete, when they are many.
    void takePieces(string& text)
    {
        constexpr std::size_t many = 64 * pieceUnits;
        if (text.size() >= many) take(text, text.size() / pieceUnits * pieceUnits);
    }
    void takeAll(string& text) { take(text, text.size()); }
    void appendTo(byteBuffer& out) const;

private:
    void take(string& text, std::size_t units);
    void makeRoom(std::size_t units);

    xmlEncoding m_encoding;
    byteBuffer m_encoded;
    std::size_t m_units = 0;
};

void textEncoder::take(string& text, std::size_t units)
{
    makeRoom(units);
    if (m_encoding == xmlEncoding::utf8)
        appendUtf8(m_encoded, std::u16string_view(text).substr(0, units));
    else
        m_encoded.append(text.data(), units * sizeof(char16_t));
    m_units += units;
    text.erase(0, units);
}

// By half of what is there as well: the buffer itself grows to the exact need of each append.
void textEncoder::makeRoom(std::size_t units)
{
    const std::size_t mostUnitBytes = m_encoding == xmlEncoding::utf8 ? 3 : sizeof(char16_t);
    const std::size_t needed = m_encoded.size() + units * mostUnitBytes;
    if (needed > m_encoded.capacity()) m_encoded.reserve(needed + m_encoded.size() / 2);
}

void textEncoder::appendTo(byteBuffer& out) const
{
    constexpr char16_t terminator = 0;
    const bool isUtf8 = m_encoding == xmlEncoding::utf8;
    out.reserve(out.size() +
                (isUtf8 ? m_units + m_units / 2 : m_encoded.size() + sizeof terminator));
    if (isUtf8) out.append(utf8Mark.data(), utf8Mark.size());
    out.append(m_encoded.data(), m_encoded.size());
    if (!isUtf8) out.append(&terminator, sizeof terminator);
}

// --- Reading -------------------------------------------------------------------------------

using byteSpan = std::span<const unsigned char>;

void readBytes(xmlDocument& document, byteSpan bytes, const byteUnits* table, bool keepWhitespace)
{
    const byteText text(bytes.data(), bytes.size(), table);
    detail::readTree<xmlNode>(document, text, bytes.data(), keepWhitespace);
}

void readUtf8(xmlDocument& document, byteSpan bytes, bool keepWhitespace)
{
    if (bytes.empty()) throw false;
    readBytes(document, bytes, nullptr, keepWhitespace);
}

std::unique_ptr<char16_t[]> newUnits(std::size_t count)
{
    std::unique_ptr<char16_t[]> units(new (std::nothrow) char16_t[count]);
    if (!units) throw outOfMemoryException();
    return units;
}

// Bytes that are units already. Half a unit at the end is filled up by a zero byte.
void readUnits(xmlDocument& document, byteSpan bytes, bool keepWhitespace)
{
    const std::size_t whole = bytes.size() / sizeof(char16_t);
    const auto units = newUnits(whole + 2);
    units[whole] = 0;
    units[whole + 1] = 0;
    if (!bytes.empty()) std::memcpy(units.get(), bytes.data(), bytes.size());
    document.parseText(units.get(), keepWhitespace, nullptr);
}

std::size_t decodeAnsi(byteSpan bytes, char16_t* units)
{
    const std::size_t count =
        platform::decode(platform::encoding::ansi, bytes.data(), bytes.size(), units);
    if (count == 0) throw false;
    return count;
}

// Asks the system what each byte stands for. False if some of them need others beside them, or
// if the lower half is not ASCII.
bool querySingleBytes(byteUnits& units)
{
    constexpr char16_t replacement = 0xFFFD;
    std::array<unsigned char, 255> bytes;
    std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(1));
    units[0] = 0;
    if (decodeAnsi(bytes, &units[1]) != bytes.size()) return false;
    for (char16_t unit = 0; unit < 0x80; ++unit)
        if (units[unit] != unit) return false;
    return std::find(units.begin(), units.end(), replacement) == units.end();
}

void readAnsi(xmlDocument& document, byteSpan bytes, bool keepWhitespace)
{
    byteUnits table;
    if (querySingleBytes(table)) {
        readBytes(document, bytes, &table, keepWhitespace);
        return;
    }
    const auto units = newUnits(bytes.size() + 1);
    units[decodeAnsi(bytes, units.get())] = 0;
    document.parseText(units.get(), keepWhitespace, nullptr);
}

} // namespace

refptr<xmlDocument> xmlDocument::createDocument()
{
    return new xmlDocument;
}

void xmlDocument::load(const file& source, bool keepWhitespace)
{
    if (!source.exists()) throw fileNotFoundException(source);
    const std::int32_t size = source.size();
    if (size == 0) return;
    const fileContent content = readWhole(source, size);
    try {
        parseBuffer(content.bytes.get(), content.size, keepWhitespace);
    } catch (const unexpectedErrorException&) {
        throw invalidXmlException(source);
    }
}

void xmlDocument::parseBuffer(const void* bytes, std::size_t length, bool keepWhitespace)
{
    if (bytes == nullptr) return;
    const documentForm found = formOf({static_cast<const char*>(bytes), length});
    const auto* const first = static_cast<const unsigned char*>(bytes) + found.start;
    const byteSpan content(first, length - found.start);
    switch (found.form) {
    case textForm::utf8: return readUtf8(*this, content, keepWhitespace);
    case textForm::ansi: return readAnsi(*this, content, keepWhitespace);
    case textForm::units: return readUnits(*this, content, keepWhitespace);
    }
}

void xmlDocument::save(const file& target, xmlEncoding encoding) const
{
    if (!target.isWritable()) throw writeFileException(target, nullptr);
    // Made before the target is opened: a failure up to here leaves the old file as it is.
    byteBuffer bytes;
    writeBuffer(bytes, encoding);
    if (!writeContent(target, bytes.data(), bytes.size()))
        throw writeFileException(target, nullptr);
}

void xmlDocument::writeBuffer(byteBuffer& out, xmlEncoding encoding) const
{
    textEncoder written(encoding, estimateSize(0));
    string pending;
    writeDeclaration(pending, encoding);
    detail::writeTree<xmlNode>(*this, pending, string::emptyString(),
                               [&] { written.takePieces(pending); });
    written.takeAll(pending);
    written.appendTo(out);
}

void xmlDocument::writeDeclaration(string& out, xmlEncoding encoding)
{
    out.assign(u"<?xml version=\"1.0\" ");
    if (encoding == xmlEncoding::utf8) out.append(u"encoding=\"UTF-8\"");
    if (encoding == xmlEncoding::utf16) out.append(u"encoding=\"UTF-16\"");
    out.append(u"?>\n");
}

} // namespace orlo
