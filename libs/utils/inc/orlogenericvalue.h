// A value of a type that is decided at run time: the form in which parameters travel into
// messages.
#pragma once

#include "orlotypeconvert.h"

#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace orlo {

// Owns one value of any type, or none. Copies clone the value; a clone for which no memory is
// left is no value. Into a message reach the types string, char16_t, bool, short, int, long,
// double and locString, each as itself; a value of another type leaves its place open.
class genericValue {
public:
    // A value together with its type record.
    class holderbase {
    public:
        virtual ~holderbase();
        // A copy on the heap, null if memory runs out.
        [[nodiscard]] virtual holderbase* clone() const = 0;
        // Gives this value to (takes the value of) another holder: a plain copy between equal
        // types, else through the registry of converters. False if there is no way, or
        // nothing to take.
        virtual bool copyTo(holderbase& other) const = 0;
        virtual bool copyFrom(const holderbase& other) = 0;
        [[nodiscard]] virtual const std::type_info& typeInfo() const = 0;
        [[nodiscard]] virtual void* valuePointer() = 0;
        [[nodiscard]] virtual const void* constValuePointer() const = 0;
        // False for a holder that owns a value.
        [[nodiscard]] virtual bool isNull() const = 0;

    protected:
        // Between values of different types, by the registry.
        static bool convertInto(holderbase& to, const holderbase& from);
    };

    // A holder of a `T`.
    template <class T>
    class holder : public holderbase {
    public:
        [[nodiscard]] virtual T* getValue() = 0;
        // Null means that there is no value.
        [[nodiscard]] virtual const T* getConstValue() const = 0;
        virtual void setValue(const T& value) = 0;
    };

    // A holder that owns its value.
    template <class T>
    class valueholder final : public holder<T> {
    public:
        explicit valueholder(T value) : m_value(std::move(value)) {}

        [[nodiscard]] holderbase* clone() const override
        {
            try {
                return new valueholder(m_value);
            } catch (const std::bad_alloc&) {
                return nullptr;
            }
        }
        bool copyTo(holderbase& other) const override
        {
            if (auto* same = dynamic_cast<holder<T>*>(&other)) {
                same->setValue(m_value);
                return true;
            }
            return holderbase::convertInto(other, *this);
        }
        bool copyFrom(const holderbase& other) override
        {
            if (const auto* same = dynamic_cast<const holder<T>*>(&other)) {
                const T* value = same->getConstValue();
                if (value != nullptr) setValue(*value);
                return value != nullptr;
            }
            return holderbase::convertInto(*this, other);
        }
        [[nodiscard]] const std::type_info& typeInfo() const override { return typeid(T); }
        [[nodiscard]] void* valuePointer() override { return &m_value; }
        [[nodiscard]] const void* constValuePointer() const override { return &m_value; }
        [[nodiscard]] bool isNull() const override { return false; }
        [[nodiscard]] T* getValue() override { return &m_value; }
        [[nodiscard]] const T* getConstValue() const override { return &m_value; }
        void setValue(const T& value) override { m_value = value; }

    private:
        T m_value;
    };

    genericValue() = default;
    // Takes ownership; null is no value.
    explicit genericValue(holderbase* owned) : m_holder(owned) {}
    // A pointer is refused: it would outlive what it points to.
    template <class T>
    requires(!std::is_pointer_v<T> && !std::is_null_pointer_v<T>) static genericValue of(T value)
    {
        return genericValue(new valueholder<T>(std::move(value)));
    }
    // Any form of text becomes a string; a null text counts as the empty one.
    static genericValue of(const char16_t* text);
    static genericValue of(std::u16string_view text);
    static genericValue of(std::u16string text);
    genericValue(const genericValue& other);
    genericValue(genericValue&& other) noexcept : m_holder(std::exchange(other.m_holder, nullptr))
    {}
    genericValue& operator=(const genericValue& other);
    genericValue& operator=(genericValue&& other) noexcept
    {
        std::swap(m_holder, other.m_holder);
        return *this;
    }
    ~genericValue() { delete m_holder; }

    // The holder, null for no value.
    [[nodiscard]] holderbase* get() { return m_holder; }
    [[nodiscard]] const holderbase* get() const { return m_holder; }
    // The value if it is a `T`, else null.
    template <class T>
    [[nodiscard]] const T* value() const
    {
        const auto* typed = dynamic_cast<const holder<T>*>(m_holder);
        return typed ? typed->getConstValue() : nullptr;
    }

private:
    holderbase* m_holder = nullptr;
};

} // namespace orlo
