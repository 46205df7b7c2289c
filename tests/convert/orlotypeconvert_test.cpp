#include "orlotypeconvert.h"

#include "orlocrc32.h"
// Every header whose class has converters, so that all of them are counted.
#include "orlodate.h"
#include "orlodirectory.h"
#include "orlofile.h"
#include "orlogeopoint.h"
#include "orlosearchpath.h"
#include "orlotime.h"
#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <thread>
#include <utility>
#include <vector>

namespace orlotypeconvertTest {

namespace {

using namespace orlo::typeconvert;
using orlo::string;
using orlo::tests::machine;

typeConverterRegistry& registry()
{
    return typeConverterRegistry::instance();
}

// Types that nobody else converts.
struct apple {
    int weight = 0;
};
struct pear {
    int weight = 0;
};
struct plum {
    int weight = 0;
};

bool appleToPear(pear& to, const apple& from, unsigned, const argumentList&)
{
    to.weight = from.weight + 1;
    return true;
}

bool appleToText(string& to, const apple& from, unsigned, const argumentList&)
{
    return from.weight >= 0 && convert(to, from.weight);
}

bool textToPlum(plum& to, const string& from, unsigned, const argumentList&)
{
    return convert(to.weight, from);
}

// The registry through which `convert` goes for pairs that are not built in.
template <class To, class From>
bool throughRegistry(To& to, const From& from, unsigned flags = 0,
                     const argumentList& arguments = {})
{
    return registry().convert(typeid(To), &to, typeid(From), &from, flags, arguments);
}

// --- Who is there --------------------------------------------------------------------------

TEST(registry, isOneAndLivesOn)
{
    EXPECT_EQ(&registry(), &registry());
}

TEST(registry, holdsEveryConverterOfTheLibrary)
{
    const std::size_t primitive = 112, file = 2, directory = 2, searchPath = 2, geometry = 6,
                      calendar = 6;
    EXPECT_EQ(registry().size(), primitive + file + directory + searchPath + geometry + calendar);
}

template <class To, class From>
void expectOne()
{
    if constexpr (isPrimitivePair<To, From>) {
        From one{};
        To target{};
        if constexpr (std::is_same_v<From, string>)
            one = u"1";
        else
            one = 1;
        EXPECT_TRUE(throughRegistry(target, one))
            << typeid(From).name() << " to " << typeid(To).name();
        if constexpr (std::is_same_v<To, string>)
            EXPECT_EQ(target, u"1") << typeid(From).name();
        else
            EXPECT_EQ(target, static_cast<To>(1))
                << typeid(From).name() << " to " << typeid(To).name();
    }
}

template <class... Types>
struct typeList {
    template <class From>
    static void expectOneFrom()
    {
        (expectOne<Types, From>(), ...);
    }
    static void expectOneFromEach() { (expectOneFrom<Types>(), ...); }
    template <class From>
    static constexpr int pairsFrom = (isPrimitivePair<Types, From> + ...);
    static constexpr int pairs = (pairsFrom<Types> + ...);
};
using primitives = typeList<bool, short, unsigned short, int, unsigned, long, unsigned long,
                            unsigned long long, float, double, string>;

TEST(registry, convertsEachBuiltInPair)
{
    EXPECT_EQ(primitives::pairs, 108);
    primitives::expectOneFromEach();
}

TEST(registry, hasNoDirectWayFromFloatingToBoolOrToTheSameType)
{
    EXPECT_FALSE((isPrimitivePair<bool, double>));
    EXPECT_FALSE((isPrimitivePair<bool, float>));
    EXPECT_FALSE((isPrimitivePair<int, int>));
    EXPECT_FALSE((isPrimitivePair<string, string>));
    EXPECT_FALSE((isPrimitivePair<int, char>));
}

TEST(registry, widensNarrowTextByteByByte)
{
    string text(u"old");
    EXPECT_TRUE(convert(text, std::string("a\xE4\0z", 4)));
    EXPECT_EQ(text, string(u"a\u00E4\0z", 4));
    EXPECT_TRUE(convert(text, static_cast<const char*>("b\xFF")));
    EXPECT_EQ(text, u"b\u00FF");
    EXPECT_TRUE(convert(text, 'c'));
    EXPECT_EQ(text, u"c");
    EXPECT_TRUE(convert(text, '\x80'));
    EXPECT_EQ(text, u"\u0080");
    EXPECT_TRUE(convert(text, std::string()));
    EXPECT_EQ(text, u"");
}

TEST(registry, leavesTheTextForANarrowPointerThatIsNull)
{
    string text(u"old");
    EXPECT_FALSE(convert(text, static_cast<const char*>(nullptr)));
    EXPECT_EQ(text, u"old");
}

TEST(registry, narrowsTextOfBytesOnly)
{
    std::string bytes("old");
    EXPECT_FALSE(convert(bytes, string(u"a\u0100")));
    EXPECT_EQ(bytes, "old");
    EXPECT_TRUE(convert(bytes, string(u"a\u00FF\0z", 4)));
    EXPECT_EQ(bytes, std::string("a\xFF\0z", 4));
    EXPECT_TRUE(convert(bytes, 1.5)) << "a number reaches narrow text by way of text";
    EXPECT_EQ(bytes, "1.5");
}

// --- The way through text ------------------------------------------------------------------

TEST(throughText, makesABoolOfADouble)
{
    static const struct {
        double value;
        bool result;
    } rows[] = {{1.5, true}, {0.5, false}, {0, false}, {-2, true}, {-0.5, false}};
    for (const auto& row : rows) {
        bool fromDouble = !row.result;
        EXPECT_TRUE(convert(fromDouble, row.value)) << row.value;
        EXPECT_EQ(fromDouble, row.result) << row.value;
        bool fromFloat = !row.result;
        EXPECT_TRUE(convert(fromFloat, static_cast<float>(row.value))) << row.value;
        EXPECT_EQ(fromFloat, row.result) << row.value;
    }
}

TEST(throughText, losesDigitsFromATypeToItself)
{
    double value = 0;
    EXPECT_TRUE(convert(value, 0.123456789123));
    EXPECT_EQ(value, 0.12345679);
    int whole = 0;
    EXPECT_TRUE(convert(whole, -70000));
    EXPECT_EQ(whole, -70000);
}

TEST(throughText, needsBothLegs)
{
    const typeConverter<apple, string> write{appleToText};
    const typeConverter<string, plum> read{textToPlum};
    plum target{7};
    EXPECT_FALSE(convert(target, apple{3})) << "no leg";
    {
        const typeConverterBase* only[] = {&write};
        const converterGroup group(only);
        EXPECT_FALSE(convert(target, apple{3})) << "written but not read";
    }
    {
        const typeConverterBase* only[] = {&read};
        const converterGroup group(only);
        EXPECT_FALSE(convert(target, apple{3})) << "read but not written";
    }
    EXPECT_EQ(target.weight, 7);
    const typeConverterBase* both[] = {&write, &read};
    const converterGroup group(both);
    EXPECT_TRUE(convert(target, apple{3}));
    EXPECT_EQ(target.weight, 3);
    string text(u"kept");
    EXPECT_FALSE(convert(text, text)) << "text has no leg to itself";
    EXPECT_EQ(text, u"kept");
}

TEST(throughText, leavesTheTargetIfTheFirstLegFails)
{
    const typeConverter<apple, string> write{appleToText};
    static bool asked = false;
    asked = false;
    const typeConverter<string, plum> read{
        [](plum& to, const string&, unsigned, const argumentList&) {
            asked = true;
            to.weight = 99;
            return false;
        }};
    const typeConverterBase* both[] = {&write, &read};
    const converterGroup group(both);
    plum target{7};
    EXPECT_FALSE(convert(target, apple{-1}));
    EXPECT_EQ(target.weight, 7);
    EXPECT_FALSE(asked);
    EXPECT_FALSE(convert(target, apple{1})) << "the second leg's result is the result";
    EXPECT_TRUE(asked);
}

TEST(throughText, handsFlagsAndArgumentsToBothLegs)
{
    static std::vector<int> seen;
    seen.clear();
    static constexpr auto note = [](unsigned flags, const argumentList& arguments) {
        seen.insert(seen.end(), {static_cast<int>(flags), arguments.at(0, -1), arguments.at(1, -1),
                                 arguments.at(2, -1)});
        return true;
    };
    const typeConverter<apple, string> write{
        [](string& to, const apple&, unsigned flags, const argumentList& arguments) {
            EXPECT_EQ(to, u"") << "the text between the legs begins empty";
            return note(flags, arguments);
        }};
    const typeConverter<string, plum> read{
        [](plum&, const string&, unsigned flags, const argumentList& arguments) {
            return note(flags, arguments);
        }};
    const typeConverterBase* both[] = {&write, &read};
    const converterGroup group(both);
    plum target;
    EXPECT_TRUE(convert(target, apple{1}, 0x85u, 11, 22));
    EXPECT_EQ(seen, (std::vector<int>{0x85, 11, 22, -1, 0x85, 11, 22, -1}));
}

// A leg of a way through text, under a key that its source type decides, that tells its name.
template <class From, class To>
class namedLeg final : public typeConverterBase {
public:
    explicit namedLeg(int name) : m_name(name) {}
    [[nodiscard]] const std::type_info& fromType() const override { return typeid(From); }
    [[nodiscard]] const std::type_info& toType() const override { return typeid(To); }
    bool convertValue(void*, const void*, unsigned, const argumentList&) const override
    {
        ran.push_back(m_name);
        return true;
    }
    static inline std::vector<int> ran;

private:
    int m_name;
};

template <class Source>
void expectFirstLegs()
{
    namedLeg<Source, string>::ran.clear();
    namedLeg<string, plum>::ran.clear();
    const namedLeg<Source, string> firstWrite(1), secondWrite(2);
    const namedLeg<string, plum> firstRead(3), secondRead(4);
    const typeConverterBase* all[] = {&firstWrite, &firstRead, &secondWrite, &secondRead};
    const converterGroup group(all);
    plum target;
    EXPECT_TRUE(convert(target, Source{}));
    EXPECT_EQ((namedLeg<Source, string>::ran), std::vector<int>{1});
    EXPECT_EQ((namedLeg<string, plum>::ran), std::vector<int>{3});
}

// Some of them have a key before that of the texts, some behind it.
template <int>
struct numbered {};

TEST(throughText, takesTheFirstOfSeveralLegsInTheOrderOfTheirKeys)
{
    expectFirstLegs<numbered<0>>();
    expectFirstLegs<numbered<1>>();
    expectFirstLegs<numbered<2>>();
    expectFirstLegs<numbered<3>>();
    expectFirstLegs<numbered<4>>();
    expectFirstLegs<numbered<5>>();
    expectFirstLegs<numbered<6>>();
    expectFirstLegs<numbered<7>>();
}

// As when the names of two types share a key: the legs lie under other keys than their own, so
// that the order of keys can be told from that of registration.
TEST(throughText, goesThroughTheKeysInTheirOrderAndNotInThatOfRegistration)
{
    struct moved final : typeConverterBase {
        [[nodiscard]] const std::type_info& fromType() const override { return *source; }
        [[nodiscard]] const std::type_info& toType() const override { return typeid(string); }
        bool convertValue(void*, const void*, unsigned, const argumentList&) const override
        {
            asked = true;
            return false;
        }
        const std::type_info* source = nullptr;
        mutable bool asked = false;
    };
    const auto keyOf = [](const std::type_info& type) {
        std::uint32_t key = 0xFFFFFFFF;
        processCrc32().addToCrc(key, type.name(), std::strlen(type.name()) + 1);
        return ~key;
    };
    const std::type_info* low = &typeid(pear);
    const std::type_info* high = &typeid(plum);
    if (keyOf(*low) > keyOf(*high)) std::swap(low, high);

    moved underLow, underHigh;
    underHigh.source = high;
    underLow.source = low;
    registry().registerConverter(&underHigh);
    registry().registerConverter(&underLow);
    underLow.source = underHigh.source = &typeid(apple);
    int target = 7;
    EXPECT_FALSE(convert(target, apple{1}));
    EXPECT_TRUE(underLow.asked);
    EXPECT_FALSE(underHigh.asked);

    underHigh.source = high;
    underLow.source = low;
    registry().unregisterConverter(&underHigh);
    registry().unregisterConverter(&underLow);
}

// --- Single converters ---------------------------------------------------------------------

TEST(typeConverter, tellsItsTypesAndHandsItsArgumentsOn)
{
    static constexpr typeConverter<apple, pear> converter{appleToPear};
    EXPECT_TRUE(converter.fromType() == typeid(apple));
    EXPECT_TRUE(converter.toType() == typeid(pear));
    const apple from{4};
    pear to;
    EXPECT_TRUE(converter.convertValue(&to, &from, 0, {}));
    EXPECT_EQ(to.weight, 5);
}

TEST(typeConverter, withoutFunctionConvertsNothing)
{
    const typeConverter<apple, pear> converter{nullptr};
    const apple from{4};
    pear to{7};
    EXPECT_FALSE(converter.convertValue(&to, &from, 0, {}));
    const typeConverterBase* all[] = {&converter};
    const converterGroup group(all);
    EXPECT_FALSE(convert(to, from));
    EXPECT_EQ(to.weight, 7);
}

TEST(typeConverter, withoutFunctionStillHidesTheWayThroughText)
{
    const typeConverter<apple, string> write{appleToText};
    const typeConverter<string, plum> read{textToPlum};
    const typeConverter<apple, plum> direct{nullptr};
    const typeConverterBase* all[] = {&write, &read, &direct};
    const converterGroup group(all);
    plum target;
    EXPECT_FALSE(convert(target, apple{3}));
}

TEST(argumentList, givesTheFallbackForWhatWasNotPassed)
{
    const int values[] = {5, 6};
    const argumentList arguments(values);
    EXPECT_EQ(arguments.at(0, 9), 5);
    EXPECT_EQ(arguments.at(1, 9), 6);
    EXPECT_EQ(arguments.at(2, 9), 9);
    EXPECT_EQ(argumentList().at(0, 9), 9);
}

TEST(convert, takesAnArgumentListInPlaceOfTheArguments)
{
    const int hexadecimal[] = {hexLower};
    string text;
    EXPECT_TRUE(convert(text, 255, formatGiven, argumentList(hexadecimal)));
    EXPECT_EQ(text, u"ff");
    const int decimals[] = {3};
    EXPECT_TRUE(convert(text, 1.5, widthGiven, argumentList(decimals)));
    EXPECT_EQ(text, u"1.500");
    EXPECT_TRUE(convert(text, 1.5, 0, argumentList()));
    EXPECT_EQ(text, u"1.5");
    EXPECT_TRUE(convert(text, 1.5, 0, {}));
    bool flag = false;
    EXPECT_TRUE(convert(flag, 1.5, 0, argumentList())) << "through the registry";
    EXPECT_TRUE(flag);
}

template <class... Arguments>
concept argumentsOfConvert = requires(string to, Arguments... arguments)
{
    convert(to, 1, 0u, arguments...);
};

TEST(convert, refusesArgumentsThatAreNoNumbers)
{
    static_assert(argumentsOfConvert<int, short> && argumentsOfConvert<numberFormat>);
    static_assert(!argumentsOfConvert<const char16_t*>);
    static_assert(!argumentsOfConvert<string>);
}

// Programs were compiled with them.
TEST(convert, keepsTheValuesOfItsFlags)
{
    EXPECT_EQ(static_cast<unsigned>(formatGiven), 1u);
    EXPECT_EQ(static_cast<unsigned>(widthGiven), 4u);
    EXPECT_EQ(static_cast<unsigned>(localeNumbers), 8u);
    EXPECT_EQ(static_cast<int>(hexUpper), 3);
    EXPECT_EQ(static_cast<int>(hexLower), 4);
    string text;
    EXPECT_TRUE(convert(text, 255, 1u, 3));
    EXPECT_EQ(text, u"FF");
    text.clear();
    EXPECT_TRUE(convert(text, 255, 1u, 4));
    EXPECT_EQ(text, u"ff");
    EXPECT_TRUE(convert(text, -5, 4u, 4));
    EXPECT_EQ(text, u"00-5");
    EXPECT_TRUE(convert(text, 1.5, 4u, 3));
    EXPECT_EQ(text, u"1.500");
    EXPECT_TRUE(convert(text, 255, 1u | 4u, 2, 5));
    EXPECT_EQ(text, u"00255");
}

// --- Registration --------------------------------------------------------------------------

TEST(registry, takesAndReleasesExactlyTheGivenConverter)
{
    const typeConverter<apple, pear> one{appleToPear};
    const typeConverter<apple, pear> other{
        [](pear& to, const apple&, unsigned, const argumentList&) {
            to.weight = 1000;
            return true;
        }};
    const std::size_t before = registry().size();
    pear to;

    registry().unregisterConverter(&one);
    EXPECT_EQ(registry().size(), before) << "one that is not there is no error";

    registry().registerConverter(&one);
    registry().registerConverter(&other);
    EXPECT_EQ(registry().size(), before + 2) << "the same pair twice";
    EXPECT_TRUE(convert(to, apple{1}));
    EXPECT_EQ(to.weight, 2) << "the first of equals";

    registry().unregisterConverter(&one);
    EXPECT_EQ(registry().size(), before + 1);
    EXPECT_TRUE(convert(to, apple{1}));
    EXPECT_EQ(to.weight, 1000);

    registry().unregisterConverter(&one);
    EXPECT_EQ(registry().size(), before + 1);
    registry().unregisterConverter(&other);
    EXPECT_EQ(registry().size(), before);
    EXPECT_FALSE(convert(to, apple{1}));
}

TEST(registry, holdsAConverterAsOftenAsItWasRegistered)
{
    const typeConverter<apple, pear> one{appleToPear};
    const std::size_t before = registry().size();
    registry().registerConverter(&one);
    registry().registerConverter(&one);
    EXPECT_EQ(registry().size(), before + 2);
    registry().unregisterConverter(&one);
    EXPECT_EQ(registry().size(), before + 1);
    registry().unregisterConverter(&one);
    EXPECT_EQ(registry().size(), before);
}

// A converter that can change its source type, and that says when it is asked.
class changingConverter final : public typeConverterBase {
public:
    [[nodiscard]] const std::type_info& fromType() const override
    {
        if (onAsked) onAsked();
        return *source;
    }
    [[nodiscard]] const std::type_info& toType() const override { return typeid(pear); }
    bool convertValue(void* to, const void*, unsigned, const argumentList&) const override
    {
        static_cast<pear*>(to)->weight = result;
        return true;
    }

    const std::type_info* source = &typeid(apple);
    int result = 0;
    std::function<void()> onAsked;
};

TEST(registry, takesAnyEntryUnderTheKeyWithTheTargetIfNoneHasTheSource)
{
    // As when the names of two types share a key: the entry lies under the key of one type and
    // belongs to another.
    changingConverter first, second;
    first.result = 10;
    second.result = 20;
    registry().registerConverter(&first);
    registry().registerConverter(&second);
    first.source = second.source = &typeid(plum);
    pear to;
    EXPECT_TRUE(convert(to, apple{1}));
    EXPECT_EQ(to.weight, 10) << "the first of them";
    second.source = &typeid(apple);
    EXPECT_TRUE(convert(to, apple{1}));
    EXPECT_EQ(to.weight, 20) << "the exact one comes before";
    first.source = &typeid(apple);
    registry().unregisterConverter(&second);
    registry().unregisterConverter(&first);
    EXPECT_FALSE(convert(to, apple{1}));
}

TEST(converterGroup, isInTheRegistryForAsLongAsItLives)
{
    static constexpr typeConverter<apple, pear> converter{appleToPear};
    const std::size_t before = registry().size();
    pear to;
    {
        static constexpr const typeConverterBase* all[] = {&converter};
        const converterGroup group(all);
        EXPECT_EQ(registry().size(), before + 1);
        EXPECT_TRUE(convert(to, apple{1}));
    }
    EXPECT_EQ(registry().size(), before);
    EXPECT_FALSE(convert(to, apple{1}));
}

TEST(converterGroup, leavesTheRegistryLastOneFirst)
{
    changingConverter converters[3];
    std::vector<int> asked;
    for (int i = 0; i < 3; ++i) converters[i].onAsked = [&asked, i] { asked.push_back(i); };
    const typeConverterBase* all[] = {&converters[0], &converters[1], &converters[2]};
    {
        const converterGroup group(all);
        EXPECT_EQ(asked, (std::vector<int>{0, 1, 2}));
        asked.clear();
    }
    EXPECT_EQ(asked, (std::vector<int>{2, 1, 0}));
}

// Converted while the static objects of this source are made: the groups are there by then.
const bool convertedAtStart = [] {
    string text;
    return convert(text, orloGeo::point3d(1, 2, 3)) && text == u"1 2 3";
}();

TEST(converterGroup, isThereBeforeTheStaticObjectsOfASourceThatKnowsIt)
{
    EXPECT_TRUE(convertedAtStart);
}

// --- The lock ------------------------------------------------------------------------------

// Locks minus unlocks since the machine was renewed.
std::ptrdiff_t locksHeld()
{
    return static_cast<std::ptrdiff_t>(machine::current().countCalls("lockMutex")) -
           static_cast<std::ptrdiff_t>(machine::current().countCalls("unlockMutex"));
}

TEST(registryLock, isHeldWhileAConverterRunsAndReleasedAfterwards)
{
    static std::ptrdiff_t heldInside;
    const typeConverter<apple, pear> converter{
        [](pear&, const apple&, unsigned, const argumentList&) {
            heldInside = locksHeld();
            return true;
        }};
    const typeConverterBase* all[] = {&converter};
    const converterGroup group(all);
    machine::renew();
    pear to;
    EXPECT_TRUE(convert(to, apple{1}));
    EXPECT_EQ(heldInside, 1);
    EXPECT_EQ(locksHeld(), 0);
}

TEST(registryLock, isReleasedWhenAConverterThrows)
{
    const typeConverter<apple, pear> converter{
        [](pear&, const apple&, unsigned, const argumentList&) -> bool { throw 42; }};
    const typeConverterBase* all[] = {&converter};
    const converterGroup group(all);
    machine::renew();
    pear to;
    EXPECT_THROW(convert(to, apple{1}), int);
    EXPECT_GT(machine::current().countCalls("lockMutex"), 0u);
    EXPECT_EQ(locksHeld(), 0);
}

TEST(registryLock, letsAConverterConvertInItsTurn)
{
    const typeConverter<apple, pear> inner{appleToPear};
    const typeConverter<plum, pear> outer{
        [](pear& to, const plum& from, unsigned, const argumentList&) {
            return convert(to, apple{from.weight}) && ++to.weight > 0;
        }};
    const typeConverterBase* all[] = {&inner, &outer};
    const converterGroup group(all);
    pear to;
    EXPECT_TRUE(convert(to, plum{1}));
    EXPECT_EQ(to.weight, 3);
}

TEST(registryLock, isNotTouchedByTheBuiltInPairs)
{
    machine::renew();
    string text;
    double value = 0;
    EXPECT_TRUE(convert(text, 1.5));
    EXPECT_TRUE(convert(value, text));
    EXPECT_TRUE(convert(text, 70000));
    EXPECT_TRUE(machine::current().calls.empty());
}

TEST(registryLock, keepsThreadsApart)
{
    static int inside;
    static bool together;
    inside = 0;
    together = false;
    const typeConverter<apple, pear> converter{
        [](pear&, const apple&, unsigned, const argumentList&) {
            // Unguarded on purpose: the lock of the registry is the guard.
            if (++inside != 1) together = true;
            --inside;
            return true;
        }};
    const typeConverterBase* all[] = {&converter};
    const converterGroup group(all);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            pear to;
            for (int round = 0; round < 200; ++round) convert(to, apple{round});
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_FALSE(together);
    EXPECT_EQ(inside, 0);
}

} // namespace

} // namespace orlotypeconvertTest
