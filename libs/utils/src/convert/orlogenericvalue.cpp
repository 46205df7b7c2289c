#include "orlogenericvalue.h"

#include "orlostring.h"

namespace orlo {

genericValue::holderbase::~holderbase() = default;

bool genericValue::holderbase::convertInto(holderbase& to, const holderbase& from)
{
    void* target = to.valuePointer();
    const void* source = from.constValuePointer();
    if (target == nullptr || source == nullptr) return false;
    auto& registry = typeconvert::typeConverterRegistry::instance();
    return registry.convert(to.typeInfo(), target, from.typeInfo(), source, 0, {});
}

genericValue genericValue::of(const char16_t* text)
{
    return of(text != nullptr ? string(text) : string());
}

genericValue genericValue::of(std::u16string_view text)
{
    return of(string(text));
}

genericValue genericValue::of(std::u16string text)
{
    return of(string(std::move(text)));
}

genericValue::genericValue(const genericValue& other)
    : m_holder(other.m_holder ? other.m_holder->clone() : nullptr)
{}

genericValue& genericValue::operator=(const genericValue& other)
{
    if (this != &other) *this = genericValue(other);
    return *this;
}

} // namespace orlo
