#include "orlolocstringid.h"

#include <new>

namespace orlo {

locStringId::locStringId(const char16_t* id, const char16_t* text, fileNames files)
    : m_id(id ? id : u""), m_default(text ? text : u"")
{
    for (const char16_t* name : files) {
        if (!name) return;
        m_files.emplace_back(name);
    }
}

iLocStringId* locStringId::clone(void* memory) const
{
    return new (memory) locStringId(*this);
}

void locStringId::getKey(string& out) const
{
    out.clear();
    if (m_id.empty()) return;
    out.append(m_id).append(u"|").append(m_default).append(u"|");
    for (const scstring& name : m_files) {
        // In front of the first name as well: the language table tells a list by its comma.
        if (!name.text().empty()) out.append(u",").append(name.text());
    }
}

} // namespace orlo
