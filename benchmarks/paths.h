// Paths of this system as the library writes them.
#pragma once

#include "orlostring.h"

#include <filesystem>

namespace benchmarks {

inline orlo::string pathText(const std::filesystem::path& path)
{
    orlo::string text(path.u16string().c_str());
    if (text[0] == u'/') text.insert(0, u"C:");
    return text.replaceChar(u'/', u'\\');
}

} // namespace benchmarks
