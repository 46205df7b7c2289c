// From the bytes of a document to its text.
#pragma once

#include <cstddef>
#include <memory>

namespace orlo {

struct documentText {
    std::unique_ptr<char16_t[]> units; // zero-terminated
    std::size_t length = 0;            // of the part that surely has no zero
};

// The zero-terminated text of a document, in the encoding that its mark or its declaration
// tells. Throws outOfMemoryException, and the plain bool false where no text comes out.
documentText decodeDocument(const unsigned char* bytes, std::size_t length);

} // namespace orlo
