#include "orloscstring.h"

#include "orlomutex.h"
#include "orloreport.h"
#include "text/immortal.h"

#include <functional>
#include <map>
#include <memory>
#include <new>

namespace orlo {

namespace {

constexpr const char16_t* sourceFile = u"libs/utils/src/orloscstring";

// The lines that the reports name are fixed: who reads them looks them up in old lists.
enum assertionLine { nullArgument = 102, notStored = 114, nullEntry = 127 };

// All interned texts, never released.
struct textPool {
    using entries = std::map<string, std::unique_ptr<const string>, std::less<>>;

    static textPool& instance();
    const string* intern(std::u16string_view text);

    entries::iterator findOrStore(std::u16string_view text);

    mutex m_mutex;
    entries m_texts;
};

textPool& textPool::instance()
{
    static immortal<textPool> shared([] { return textPool(); });
    return shared.get();
}

const string* textPool::intern(std::u16string_view text)
{
    const mutexLock held(&m_mutex);
    const auto entry = findOrStore(text);
    // Left behind by an earlier call that ran out of memory between entry and text.
    if (!entry->second) failAssertion(u"pString", sourceFile, nullEntry);
    return entry->second.get();
}

textPool::entries::iterator textPool::findOrStore(std::u16string_view text)
{
    if (const auto known = m_texts.find(text); known != m_texts.end()) return known;
    try {
        const auto added = m_texts.try_emplace(string(text)).first;
        added->second = std::make_unique<const string>(text);
        return added;
    } catch (const std::bad_alloc&) {
        failAssertion(u"pString", sourceFile, notStored);
    }
}

} // namespace

scstring::scstring(const char16_t* text)
{
    if (!text) failAssertion(u"s", sourceFile, nullArgument);
    if (*text) m_text = textPool::instance().intern(text);
}

} // namespace orlo
