// Conversion between any two value types, by name of type: converters that announce
// themselves when the program starts, and the registry that finds them.
#pragma once

#include "orlomutex.h"
#include "orlostring.h"

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <type_traits>
#include <typeinfo>

namespace orlo::typeconvert {

// Bits of the `flags` of a conversion to text. The optional arguments that belong to them
// follow the flags, in this order.
enum conversionFlags : unsigned {
    formatGiven = 1,   // integers: one int, a numberFormat
    widthGiven = 4,    // integers: one int, minimum length; double and float: one int, precision
    localeNumbers = 8, // double and float: the user's decimal separator
};

enum numberFormat : int { hexUpper = 3, hexLower = 4 };

// The optional arguments behind the flags. Asking for one that was not passed gives the
// fallback.
class argumentList {
public:
    argumentList() = default;
    explicit argumentList(std::span<const int> values) : m_values(values) {}
    [[nodiscard]] int at(std::size_t index, int fallback) const
    {
        return index < m_values.size() ? m_values[index] : fallback;
    }

private:
    std::span<const int> m_values;
};

// A conversion between one pair of types. Converters are static objects that the registry
// does not own.
class typeConverterBase {
public:
    [[nodiscard]] virtual const std::type_info& fromType() const = 0;
    [[nodiscard]] virtual const std::type_info& toType() const = 0;
    virtual bool convertValue(void* to, const void* from, unsigned flags,
                              const argumentList& arguments) const = 0;

protected:
    constexpr typeConverterBase() = default;
    ~typeConverterBase() = default;
};

// The converter from `From` to `To`. A null function converts nothing and gives false.
template <class From, class To>
class typeConverter final : public typeConverterBase {
public:
    using function = bool (*)(To& to, const From& from, unsigned flags,
                              const argumentList& arguments);

    constexpr explicit typeConverter(function convert) : convertFunction(convert) {}

    [[nodiscard]] const std::type_info& fromType() const override { return typeid(From); }
    [[nodiscard]] const std::type_info& toType() const override { return typeid(To); }
    bool convertValue(void* to, const void* from, unsigned flags,
                      const argumentList& arguments) const override
    {
        return convertFunction != nullptr &&
               convertFunction(*static_cast<To*>(to), *static_cast<const From*>(from), flags,
                               arguments);
    }

    function convertFunction;
};

using converterList = std::span<const typeConverterBase* const>;

// The converters of one class, in the registry for as long as the group lives. The group is
// an inline variable in the public header of the class, so it is there in every program that
// knows the class, however the library was linked, and before any static object of a source
// that includes the header:
//
//     namespace detail {
//     typeconvert::converterList fileConverters();
//     inline typeconvert::converterGroup fileConverterGroup{fileConverters()};
//     }
//
// and in the source of the class:
//
//     typeconvert::converterList detail::fileConverters()
//     {
//         static constexpr typeconvert::typeConverter<file, string> toText{writeFile};
//         static constexpr typeconvert::typeConverter<string, file> fromText{readFile};
//         static constexpr const typeconvert::typeConverterBase* all[] = {&toText, &fromText};
//         return all;
//     }
//
// Converters and list are constants. Making a group links it into a list and touches neither
// heap nor locks; the registry takes all waiting groups in when it is first asked for, and a
// later group at once. The destructor takes the converters out again, last one first.
class converterGroup {
public:
    explicit converterGroup(converterList converters);
    ~converterGroup();
    converterGroup(const converterGroup&) = delete;
    converterGroup& operator=(const converterGroup&) = delete;

private:
    friend class typeConverterRegistry;
    converterList m_converters;
    converterGroup* m_next = nullptr;
};

// The process-wide register of converters, made on first use and alive until the process
// ends. One recursive lock guards registration and each whole conversion, so a converter
// may convert in its turn; a converter that throws leaves it unlocked.
class typeConverterRegistry {
public:
    static typeConverterRegistry& instance();

    // Adds a converter under the key of its source type; the same pair may be added twice.
    void registerConverter(const typeConverterBase* converter);
    // Takes exactly this converter out; one that is not there is no error.
    void unregisterConverter(const typeConverterBase* converter);

    // Converts by the converter of the pair, else by the way through text where both legs
    // exist; false if there is no way or a leg fails. A failing first leg leaves the target
    // untouched.
    bool convert(const std::type_info& toType, void* to, const std::type_info& fromType,
                 const void* from, unsigned flags, const argumentList& arguments);

    // Number of registered converters.
    [[nodiscard]] std::size_t size();

private:
    friend class converterGroup;
    using converterKey = std::uint32_t;
    using converterMap = std::multimap<converterKey, const typeConverterBase*>;

    typeConverterRegistry();
    static converterKey keyOf(const std::type_info& type);
    void registerAll(converterList converters);
    const typeConverterBase* findDirect(const std::type_info& from, const std::type_info& to) const;
    bool convertThroughText(const std::type_info& toType, void* to, const std::type_info& fromType,
                            const void* from, unsigned flags, const argumentList& arguments) const;

    static typeConverterRegistry* s_instance;
    static converterGroup* s_pending;
    converterMap m_converters;
    mutex m_mutex;
};

template <class T, class... Types>
inline constexpr bool isOneOf = (std::is_same_v<T, Types> || ...);

// The eleven types between which conversions are built in.
template <class T>
inline constexpr bool isPrimitive =
    isOneOf<T, bool, short, unsigned short, int, unsigned, long, unsigned long, unsigned long long,
            float, double, string>;

// True for the 108 pairs with a direct conversion: all of different types but float and
// double to bool, which go through text.
template <class To, class From>
inline constexpr bool
    isPrimitivePair = (isPrimitive<To>)&&(isPrimitive<From>)&&!std::is_same_v<To, From> &&
                      !(std::is_same_v<To, bool> && std::is_floating_point_v<From>);

// The built-in conversions. True if the value fitted. A number that does not fit becomes the
// nearest limit of its target, with false; a text that can't be read leaves the target
// untouched, with false. A `long` holds 32 bits, whatever its width. A conversion to text
// replaces what the target held, but for the hexadecimal forms, whose digits are put in front of
// it. Zeros that fill up a width stand before the sign. Instantiated for the 108 pairs.
//
//   int 70000 to short              32767, false
//   double -0.9 to unsigned         0, false          to int: 0, true
//   text "12abc" to int             12, true
//   text "1,5" or "1.5" to double   1.5, true
//   double 2.0 to text              "2"               at most 8 decimals, never an exponent
//   int -5 to text, width 4         "00-5"
//   int 255 to text "old", hexLower "ffold"           the width is not applied
template <class To, class From>
bool convertPrimitive(To& to, const From& from, unsigned flags, const argumentList& arguments);

namespace detail {
// The 108 pairs, and narrow texts to text and back: `const char` and `const char*` under the
// character locale in force, std::string always byte by byte, so that both ways fit together.
converterList primitiveConverters();
inline converterGroup primitiveConverterGroup{primitiveConverters()};
} // namespace detail

// Converts `from` into `to`; true if that worked. Built-in pairs run directly, all others
// go through the registry.
template <class To, class From>
bool convert(To& to, const From& from, unsigned flags, const argumentList& arguments)
{
    if constexpr (isPrimitivePair<To, From>)
        return convertPrimitive<To, From>(to, from, flags, arguments);
    else
        return typeConverterRegistry::instance().convert(typeid(To), &to, typeid(From), &from,
                                                         flags, arguments);
}

// The same with the optional arguments written out: convert(text, 255, formatGiven, hexLower).
template <class To, class From, std::convertible_to<int>... Arguments>
bool convert(To& to, const From& from, unsigned flags = 0, Arguments... arguments)
{
    const std::array<int, sizeof...(arguments)> values{static_cast<int>(arguments)...};
    return convert(to, from, flags, argumentList(values));
}

} // namespace orlo::typeconvert
