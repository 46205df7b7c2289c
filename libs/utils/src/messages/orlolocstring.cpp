#include "orlolocstring.h"

#include "orlolanguagetable.h"

#include <algorithm>
#include <new>
#include <type_traits>
#include <utility>

namespace orlo {

namespace {

// Values as a template takes them; all but texts go in as they are.
template <class T>
T insertable(T value)
{
    return value;
}

const char16_t* insertable(const string& value)
{
    return value.c_str();
}

// Inserts the value of a holder of `T`, if it has one; false if it is a holder of something else.
template <class T, class Render>
bool insertAs(const genericValue::holderbase* held, const char16_t* name, stringTemplate& text,
              const Render& render)
{
    const auto* typed = dynamic_cast<const genericValue::holder<T>*>(held);
    if (!typed) return false;
    if (const T* value = typed->getConstValue()) text.insertValue(render(*value), name);
    return true;
}

// The first type that fits decides; values of other types leave the text as it is.
template <class... Types, class Render>
void insertFirstFit(const genericValue::holderbase* held, const char16_t* name,
                    stringTemplate& text, const Render& render)
{
    static_cast<void>((insertAs<Types>(held, name, text, render) || ...));
}

} // namespace

locString::locString(const locString& other)
    : iLocString(other), m_locStringId(other.m_locStringId), m_params(other.m_params)
{}

locString& locString::operator=(const locString& other)
{
    locStringId id(other.m_locStringId);
    std::vector<param> params(other.m_params);
    m_text = stringTemplate();
    m_locStringId = std::move(id);
    m_params = std::move(params);
    return *this;
}

void locString::setParam(const char16_t* value, const char16_t* name)
{
    setParam(value ? string(value) : string(), name);
}

void locString::setParam(const string& value, const char16_t* name)
{
    setParam(genericValue::of(value), name);
}

void locString::setParam(const genericValue& value, const char16_t* name)
{
    if (!name) name = u"";
    const auto known = std::find_if(m_params.begin(), m_params.end(),
                                    [name](const param& entry) { return entry.name == name; });
    if (known == m_params.end())
        m_params.push_back({name, value});
    else
        known->value = value;
}

const char16_t* locString::getText(const char16_t* language, std::vector<string>* scratch) const
{
    if (!hasText(language)) m_text = stringTemplate(m_locStringId.getDefaultText());
    for (const param& entry : m_params) insertParam(entry, language, scratch);
    return m_text.text().c_str();
}

iLocString* locString::clone(void* memory) const
{
    return new (memory) locString(*this);
}

bool locString::hasText(const char16_t* language) const
{
    return languageTable::instance().lookup(m_locStringId, m_text, language);
}

void locString::insertParam(const param& entry, const char16_t* language,
                            std::vector<string>* scratch) const
{
    const auto render = [language, scratch]<class T>(const T& value) {
        if constexpr (std::is_same_v<T, locString>)
            return value.getText(language, scratch);
        else
            return insertable(value);
    };
    insertFirstFit<string, char16_t, bool, short, int, long, double, locString>(
        entry.value.get(), entry.name.c_str(), m_text, render);
}

} // namespace orlo
