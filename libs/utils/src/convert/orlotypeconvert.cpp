#include "orlotypeconvert.h"

#include "orlocrc32.h"
#include "text/immortal.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace orlo::typeconvert {

constinit typeConverterRegistry* typeConverterRegistry::s_instance = nullptr;
constinit converterGroup* typeConverterRegistry::s_pending = nullptr;

converterGroup::converterGroup(converterList converters) : m_converters(converters)
{
    // Keys are computed again when the group goes, so the checksum must outlive it.
    processCrc32();
    if (typeConverterRegistry::s_instance != nullptr)
        typeConverterRegistry::s_instance->registerAll(converters);
    else
        m_next = std::exchange(typeConverterRegistry::s_pending, this);
}

converterGroup::~converterGroup()
{
    if (auto* registry = typeConverterRegistry::s_instance) {
        for (auto last = m_converters.rbegin(); last != m_converters.rend(); ++last)
            registry->unregisterConverter(*last);
        return;
    }
    converterGroup** link = &typeConverterRegistry::s_pending;
    while (*link != this) link = &(*link)->m_next;
    *link = m_next;
}

typeConverterRegistry& typeConverterRegistry::instance()
{
    static immortal<typeConverterRegistry> only([] { return typeConverterRegistry(); });
    return only.get();
}

// The groups go on waiting if the memory does not suffice for all of them.
typeConverterRegistry::typeConverterRegistry()
{
    for (const converterGroup* group = s_pending; group != nullptr; group = group->m_next)
        registerAll(group->m_converters);
    s_pending = nullptr;
    s_instance = this;
}

typeConverterRegistry::converterKey typeConverterRegistry::keyOf(const std::type_info& type)
{
    converterKey key = 0xFFFFFFFF;
    processCrc32().addToCrc(key, type.name(), std::strlen(type.name()) + 1);
    return ~key;
}

void typeConverterRegistry::registerConverter(const typeConverterBase* converter)
{
    registerAll({&converter, 1});
}

// All or none: the entries are made aside, where memory may still run out.
void typeConverterRegistry::registerAll(converterList converters)
{
    mutexLock lock(&m_mutex);
    converterMap added;
    for (const auto* converter : converters) added.emplace(keyOf(converter->fromType()), converter);
    m_converters.merge(added);
}

void typeConverterRegistry::unregisterConverter(const typeConverterBase* converter)
{
    mutexLock lock(&m_mutex);
    const auto [first, last] = m_converters.equal_range(keyOf(converter->fromType()));
    const auto entry =
        std::find_if(first, last, [&](const auto& each) { return each.second == converter; });
    if (entry != last) m_converters.erase(entry);
}

bool typeConverterRegistry::convert(const std::type_info& toType, void* to,
                                    const std::type_info& fromType, const void* from,
                                    unsigned flags, const argumentList& arguments)
{
    mutexLock lock(&m_mutex);
    if (const auto* direct = findDirect(fromType, toType))
        return direct->convertValue(to, from, flags, arguments);
    return convertThroughText(toType, to, fromType, from, flags, arguments);
}

std::size_t typeConverterRegistry::size()
{
    mutexLock lock(&m_mutex);
    return m_converters.size();
}

// The exact pair, else the first entry under the key that leads to the target: that entry has
// another source type only where two names share a key.
const typeConverterBase* typeConverterRegistry::findDirect(const std::type_info& from,
                                                           const std::type_info& to) const
{
    const typeConverterBase* sameTarget = nullptr;
    const auto [first, last] = m_converters.equal_range(keyOf(from));
    for (auto entry = first; entry != last; ++entry) {
        const auto* converter = entry->second;
        if (converter->toType() != to) continue;
        if (converter->fromType() == from) return converter;
        if (sameTarget == nullptr) sameTarget = converter;
    }
    return sameTarget;
}

bool typeConverterRegistry::convertThroughText(const std::type_info& toType, void* to,
                                               const std::type_info& fromType, const void* from,
                                               unsigned flags, const argumentList& arguments) const
{
    const typeConverterBase* write = nullptr;
    const typeConverterBase* read = nullptr;
    for (const auto& [key, converter] : m_converters) {
        const std::type_info& source = converter->fromType();
        const std::type_info& target = converter->toType();
        if (write == nullptr && source == fromType && target == typeid(string)) write = converter;
        if (read == nullptr && source == typeid(string) && target == toType) read = converter;
        if (write != nullptr && read != nullptr) break;
    }
    if (write == nullptr || read == nullptr) return false;

    string text;
    return write->convertValue(&text, from, flags, arguments) &&
           read->convertValue(to, &text, flags, arguments);
}

} // namespace orlo::typeconvert
