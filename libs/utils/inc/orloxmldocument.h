// A document is its root element, with the way from and to files.
#pragma once

#include "orlobytebuffer.h"
#include "orlofile.h"
#include "orloxmlencoding.h"
#include "orloxmlnode.h"

#include <cstddef>
#include <cstdint>

namespace orlo {

// How a document is written. Any other value writes no encoding in the declaration and the
// bytes of utf16.
enum class xmlEncoding : std::uint32_t {
    utf8 = 1,  // the mark EF BB BF, then UTF-8
    utf16 = 2, // the units as they stand in memory, without mark, with their final zero
};

// The root element of a document: its name and attributes are those of the root tag.
class xmlDocument : public xmlNode {
public:
    // A new empty document.
    static refptr<xmlDocument> createDocument();

    // Reads a file into this fresh document. Throws fileNotFoundException, readFileException,
    // outOfMemoryException, invalidXmlException for malformed text, and the plain bool false
    // for bytes that give no text. An empty file leaves the document empty.
    void load(const file& source, bool keepWhitespace);
    // Reads bytes: UTF-8 or UTF-16 by their mark, else by the declared encoding, else UTF-8.
    void parseBuffer(const void* bytes, std::size_t length, bool keepWhitespace);

    // Writes the whole document. Throws writeFileException if the target can't be opened or
    // written whole; a partly written file stays.
    void save(const file& target, xmlEncoding encoding) const;
    // Appends the encoded document.
    void writeBuffer(byteBuffer& out, xmlEncoding encoding) const;
    // Replaces `out` by the declaration line.
    static void writeDeclaration(string& out, xmlEncoding encoding);
};

} // namespace orlo
