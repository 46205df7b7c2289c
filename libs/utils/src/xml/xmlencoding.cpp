#include "xml/xmlencoding.h"

#include "files/filecontent.h"
#include "orloxmlencoding.h"
#include "text/lowerbyte.h"

#include <algorithm>
#include <string>

namespace orlo {

// Text with a declared encoding is in single bytes, whatever the name says. A declared "utf-16" is
// taken from the third byte on as if a mark stood there, which leaves an empty document, and a name
// that is not known stands for the system's character set.
documentForm formOf(std::string_view bytes)
{
    if (bytes.starts_with(utf8Mark)) return {textForm::utf8, utf8Mark.size()};
    if (bytes.starts_with(utf16Mark)) return {textForm::units, utf16Mark.size()};

    std::string declared;
    findDeclaredEncoding(bytes.data(), bytes.size(), declared);
    std::transform(declared.begin(), declared.end(), declared.begin(), lowerByte);
    if (declared.empty() || declared == "utf-8") return {textForm::utf8, 0};
    if (declared == "utf-16") return {textForm::units, utf16Mark.size()};
    return {textForm::ansi, 0};
}

} // namespace orlo
