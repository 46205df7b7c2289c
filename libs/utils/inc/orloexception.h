// The failures of the library: objects that carry a key and parameters instead of a text.
#pragma once

#include "orlofile.h"
#include "orlolocstring.h"

#include <array>
#include <span>
#include <vector>

namespace orlo {

// Root of all failures; not derived from the standard library's. `m_stack` holds the messages
// of the inner exception, nearest cause first. Texts are rendered when somebody asks. The keys
// of the library's own messages are looked up in the language table's default file.
class exception {
public:
    // Takes a copy of `message` and renders the caller's, so that the language file is located
    // at the moment of the throw. `inner` may be null. Not to be called under the lock of the
    // language table.
    explicit exception(const locString& message, const exception* inner = nullptr);
    exception(const exception&) = default;
    exception& operator=(const exception&) = default;
    virtual ~exception() = default;

    locString m_message;
    std::vector<locString> m_stack;
};

// A memory request failed.
class outOfMemoryException : public exception {
public:
    outOfMemoryException();
};

// Something that has no class of its own, told by a printf-style text of at most 511 units.
class unexpectedErrorException : public exception {
public:
    template <class... Arguments>
    explicit unexpectedErrorException(const char16_t* format, const Arguments&... arguments)
        : unexpectedErrorException(
              detailTag{}, format,
              std::array<formatArgument, sizeof...(arguments)>{formatArgument(arguments)...})
    {}

private:
    struct detailTag {};
    unexpectedErrorException(detailTag, const char16_t* format,
                             std::span<const formatArgument> arguments);
};

// A failure with a file; its path is the parameter `File`.
class fileException : public exception {
protected:
    fileException(const locString& message, const file& concerned, const exception* inner);
};

// There is no file of this path.
class fileNotFoundException : public fileException {
public:
    explicit fileNotFoundException(const file& concerned);
};

// The file can't be opened for reading, or not be read whole.
class readFileException : public fileException {
public:
    readFileException(const file& concerned, const exception* inner);
};

// The file can't be opened for writing, or not be written whole.
class writeFileException : public fileException {
public:
    writeFileException(const file& concerned, const exception* inner);
};

// The file's content is no XML that the parser takes.
class invalidXmlException : public fileException {
public:
    explicit invalidXmlException(const file& concerned);
};

} // namespace orlo
