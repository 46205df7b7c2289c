#include "orloxmldocument.h"

#include "files/filecontent.h"
#include "orloexception.h"
#include "platform/platform.h"
#include "xml/xmlencoding.h"
#include "xml/xmlparser.h"
#include "xml/xmlwriter.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orlo {

namespace {

// The size of an existing file. Only its low 32 bits count, with their sign.
std::int32_t existingSize(const file& source)
{
    fileStatus status;
    if (!source.stat(status) || (status.mode & fileStatus::directoryBit) != 0)
        throw fileNotFoundException(source);
    return static_cast<std::int32_t>(status.size);
}

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

// Bytes that are written in place and never move, as they are many.
class byteChunks {
public:
    // Room for `count` bytes at the end; `keep` tells how many of them are written.
    char* room(std::size_t count)
    {
        if (m_chunks.empty() || chunkBytes - m_chunks.back()->used < count)
            m_chunks.push_back(std::make_unique_for_overwrite<chunk>());
        return m_chunks.back()->bytes.data() + m_chunks.back()->used;
    }
    void keep(std::size_t count)
    {
        m_chunks.back()->used += count;
        m_size += count;
    }
    [[nodiscard]] std::size_t size() const { return m_size; }
    void appendTo(byteBuffer& out) const
    {
        for (const auto& each : m_chunks) out.append(each->bytes.data(), each->used);
    }

private:
    static constexpr std::size_t chunkBytes = 16384;
    struct chunk {
        std::size_t used = 0;
        std::array<char, chunkBytes> bytes;
    };

    std::vector<std::unique_ptr<chunk>> m_chunks;
    std::size_t m_size = 0;
};

// Each piece is encoded by itself, so a surrogate pair across the border of two pieces
// becomes two lone halves, and a zero unit drops the rest of its piece.
constexpr std::size_t pieceUnits = 256;
constexpr std::size_t pieceBytes = 3 * pieceUnits;
static_assert(textBlocks::blockUnits % pieceUnits == 0);

void encodePiece(byteChunks& out, std::u16string_view units)
{
    char* const bytes = out.room(pieceBytes);
    const std::size_t length = platform::encodeUtf8(units.data(), units.size(), bytes);
    if (length == 0) throw false;
    out.keep(std::min(std::string_view(bytes, length).find('\0'), length));
}

// Encodes the document block by block while it is written: its whole text would go through
// memory twice.
void writeUtf8(byteBuffer& out, const xmlDocument& document)
{
    std::size_t units = 0;
    byteChunks bytes;
    textBlocks blocks([&](std::u16string_view block) {
        units += block.size();
        for (std::size_t at = 0; at < block.size(); at += pieceUnits)
            encodePiece(bytes, block.substr(at, pieceUnits));
    });
    string declaration;
    xmlDocument::writeDeclaration(declaration, xmlEncoding::utf8);
    blocks.put(declaration);
    writeTree(document, blocks, string::emptyString());
    blocks.finish();

    out.reserve(out.size() + std::max(units + units / 2, utf8Mark.size() + bytes.size()));
    out.append(utf8Mark.data(), utf8Mark.size());
    bytes.appendTo(out);
}

void writeUnits(byteBuffer& out, const xmlDocument& document, xmlEncoding encoding)
{
    constexpr std::size_t declarationRoom = 40;
    string text;
    text.reserve(document.estimateSize(0) + declarationRoom);
    xmlDocument::writeDeclaration(text, encoding);
    document.writeNode(text, string::emptyString());
    out.append(text.c_str(), (text.size() + 1) * sizeof(char16_t));
}

} // namespace

refptr<xmlDocument> xmlDocument::createDocument()
{
    return new xmlDocument;
}

void xmlDocument::load(const file& source, bool keepWhitespace)
{
    const std::int32_t size = existingSize(source);
    if (size == 0) return;
    fileContent content = readWhole(source, size);
    try {
        const documentText document = decodeDocument(content.bytes.get(), content.size);
        content.bytes.reset(); // the tree needs the room
        readTree(*this, document.units.get(), document.length, keepWhitespace);
    } catch (const unexpectedErrorException&) {
        throw invalidXmlException(source);
    }
}

void xmlDocument::parseBuffer(const void* bytes, std::size_t length, bool keepWhitespace)
{
    if (bytes == nullptr) return;
    const documentText document = decodeDocument(static_cast<const unsigned char*>(bytes), length);
    readTree(*this, document.units.get(), document.length, keepWhitespace);
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
    if (encoding == xmlEncoding::utf8)
        writeUtf8(out, *this);
    else
        writeUnits(out, *this, encoding);
}

void xmlDocument::writeDeclaration(string& out, xmlEncoding encoding)
{
    out.assign(u"<?xml version=\"1.0\" ");
    if (encoding == xmlEncoding::utf8) out.append(u"encoding=\"UTF-8\"");
    if (encoding == xmlEncoding::utf16) out.append(u"encoding=\"UTF-16\"");
    out.append(u"?>\n");
}

} // namespace orlo
