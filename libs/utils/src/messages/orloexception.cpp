#include "orloexception.h"

#include "messages/outofmemory.h"

namespace orlo {

namespace {

constexpr std::size_t detailRoom = 511;

} // namespace

exception::exception(const locString& message, const exception* inner) : m_message(message)
{
    if (inner) {
        m_stack.reserve(inner->m_stack.size() + 1);
        m_stack.push_back(inner->m_message);
        m_stack.insert(m_stack.end(), inner->m_stack.begin(), inner->m_stack.end());
    }
    // The text itself is dropped: what counts is that the language file is found and known
    // from now on.
    std::vector<string> scratch;
    message.getText(nullptr, &scratch);
}

outOfMemoryException::outOfMemoryException()
    : exception(locString(u"Msg_EOutOfMem", u"Out of memory"))
{}

void throwOutOfMemory()
{
    throw outOfMemoryException();
}

unexpectedErrorException::unexpectedErrorException(detailTag, const char16_t* format,
                                                   std::span<const formatArgument> arguments)
    : exception(locString(u"EUnexpected", u"Unexpected error occurred ([Details])"))
{
    char16_t details[detailRoom + 1] = {};
    formatText(details, detailRoom, format ? format : u"", arguments);
    m_message.setParam(details, u"Details");
}

fileException::fileException(const locString& message, const file& concerned,
                             const exception* inner)
    : exception(message, inner)
{
    m_message.setParam(concerned.path(), u"File");
}

fileNotFoundException::fileNotFoundException(const file& concerned)
    : fileException(locString(u"Msg_EFileNotFound", u"File [File] not found!"), concerned, nullptr)
{}

readFileException::readFileException(const file& concerned, const exception* inner)
    : fileException(locString(u"Msg_EReadFile", u"Error reading file [File]"), concerned, inner)
{}

writeFileException::writeFileException(const file& concerned, const exception* inner)
    : fileException(locString(u"Msg_EWriteFile", u"Error writing file [File]"), concerned, inner)
{}

invalidXmlException::invalidXmlException(const file& concerned)
    : fileException(locString(u"Msg_EInvalidXml", u"File [File] is not a valid XML-file!"),
                    concerned, nullptr)
{}

} // namespace orlo
