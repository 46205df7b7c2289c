#include "support/text.h"

#include "platform/utf8codec.h"

namespace orlo {

std::string narrow(const std::u16string& text)
{
    std::string bytes(3 * text.size(), '\0');
    bytes.resize(platform::encodeUtf8Units(text.data(), text.size(), bytes.data()));
    return bytes;
}

} // namespace orlo
