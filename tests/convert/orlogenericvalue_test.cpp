#include "orlogenericvalue.h"

#include "support/text.h"

#include <gtest/gtest.h>

#include <iterator>
#include <memory>
#include <new>
#include <string>
#include <string_view>

namespace orlogenericvalueTest {

namespace {

using orlo::genericValue;
using orlo::string;
template <class T>
using holder = genericValue::holder<T>;
template <class T>
using valueholder = genericValue::valueholder<T>;

// Counts its living objects, and can refuse to be copied.
struct counted {
    explicit counted(int& objects) : living(&objects) { ++*living; }
    counted(const counted& other) : refusesCopies(other.refusesCopies), living(other.living)
    {
        if (refusesCopies) throw std::bad_alloc();
        ++*living;
    }
    counted& operator=(const counted&) = default;
    ~counted() { --*living; }

    bool refusesCopies = false;
    int* living;
};

// A holder of a text that has none at the moment.
class emptyHolder final : public holder<string> {
public:
    [[nodiscard]] holderbase* clone() const override { return new emptyHolder; }
    bool copyTo(holderbase&) const override { return false; }
    bool copyFrom(const holderbase&) override { return false; }
    [[nodiscard]] const std::type_info& typeInfo() const override { return typeid(string); }
    [[nodiscard]] void* valuePointer() override { return nullptr; }
    [[nodiscard]] const void* constValuePointer() const override { return nullptr; }
    [[nodiscard]] bool isNull() const override { return true; }
    [[nodiscard]] string* getValue() override { return nullptr; }
    [[nodiscard]] const string* getConstValue() const override { return nullptr; }
    void setValue(const string&) override { ++timesSet; }

    int timesSet = 0;
    using holderbase = genericValue::holderbase;
};

// --- Holders -------------------------------------------------------------------------------

TEST(valueholder, givesTheAddressOfItsValueThreeTimes)
{
    valueholder<string> text(u"abc");
    const valueholder<string>& constant = text;
    EXPECT_EQ(*text.getValue(), u"abc");
    EXPECT_EQ(text.valuePointer(), text.getValue());
    EXPECT_EQ(constant.constValuePointer(), text.getValue());
    EXPECT_EQ(constant.getConstValue(), text.getValue());
    EXPECT_TRUE(text.typeInfo() == typeid(string));
    EXPECT_FALSE(text.isNull());
    text.setValue(u"xyz");
    EXPECT_EQ(*text.getConstValue(), u"xyz");
}

template <class T>
void expectHolderOf(T value)
{
    valueholder<T> held(value);
    EXPECT_TRUE(held.typeInfo() == typeid(T));
    EXPECT_EQ(*held.getConstValue(), value);
}

TEST(valueholder, isMadeForEachTypeThatMessagesKnow)
{
    expectHolderOf<string>(u"a");
    expectHolderOf<char16_t>(u'a');
    expectHolderOf<bool>(true);
    expectHolderOf<short>(2);
    expectHolderOf<int>(3);
    expectHolderOf<long>(4);
    expectHolderOf<double>(5.5);
}

TEST(valueholder, clonesItsValue)
{
    const valueholder<string> text(u"abc");
    const std::unique_ptr<genericValue::holderbase> clone(text.clone());
    const auto* typed = dynamic_cast<valueholder<string>*>(clone.get());
    ASSERT_NE(typed, nullptr);
    EXPECT_EQ(*typed->getConstValue(), u"abc");
    EXPECT_NE(typed->getConstValue(), text.getConstValue());
}

TEST(valueholder, clonesToNullWithoutMemory)
{
    int living = 0;
    {
        valueholder<counted> held{counted(living)};
        held.getValue()->refusesCopies = true;
        EXPECT_EQ(held.clone(), nullptr);
        EXPECT_EQ(living, 1);
    }
    EXPECT_EQ(living, 0);
}

TEST(copyTo, copiesBetweenEqualTypesWithoutLoss)
{
    const valueholder<double> from(0.123456789123456);
    valueholder<double> to(0);
    EXPECT_TRUE(from.copyTo(to));
    EXPECT_EQ(*to.getConstValue(), 0.123456789123456) << "not by way of text";
}

TEST(copyTo, convertsBetweenDifferentTypes)
{
    valueholder<string> text(u"");
    EXPECT_TRUE(valueholder<double>(1.5).copyTo(text));
    EXPECT_EQ(*text.getConstValue(), u"1.5");
    valueholder<short> small(7);
    EXPECT_FALSE(valueholder<int>(70000).copyTo(small)) << "the result of the conversion";
    EXPECT_EQ(*small.getConstValue(), 32767);
    valueholder<bool> flag(false);
    EXPECT_TRUE(valueholder<double>(1.5).copyTo(flag)) << "by way of text";
    EXPECT_TRUE(*flag.getConstValue());
}

TEST(copyTo, failsWithoutAWay)
{
    int living = 0;
    valueholder<counted> target{counted(living)};
    EXPECT_FALSE(valueholder<int>(1).copyTo(target));
    valueholder<int> number(1);
    EXPECT_FALSE(target.copyTo(number));
    EXPECT_EQ(*number.getConstValue(), 1);
}

TEST(copyTo, setsAForeignHolderOfTheSameType)
{
    emptyHolder to;
    EXPECT_TRUE(valueholder<string>(u"abc").copyTo(to));
    EXPECT_EQ(to.timesSet, 1);
    EXPECT_FALSE(valueholder<int>(1).copyTo(to)) << "no place for a converted value";
}

TEST(copyFrom, isTheMirrorImage)
{
    valueholder<double> exact(0);
    EXPECT_TRUE(exact.copyFrom(valueholder<double>(0.123456789123456)));
    EXPECT_EQ(*exact.getConstValue(), 0.123456789123456);
    EXPECT_TRUE(exact.copyFrom(valueholder<string>(u"2,5")));
    EXPECT_EQ(*exact.getConstValue(), 2.5);
    EXPECT_FALSE(exact.copyFrom(valueholder<string>(u"abc")));
    EXPECT_EQ(*exact.getConstValue(), 2.5);
    valueholder<unsigned> natural(7);
    EXPECT_FALSE(natural.copyFrom(valueholder<int>(-1)));
    EXPECT_EQ(*natural.getConstValue(), 0u);
}

TEST(copyFrom, takesNothingFromAHolderWithoutValue)
{
    valueholder<string> text(u"kept");
    EXPECT_FALSE(text.copyFrom(emptyHolder()));
    EXPECT_EQ(*text.getConstValue(), u"kept");
    valueholder<int> number(7);
    EXPECT_FALSE(number.copyFrom(emptyHolder()));
    EXPECT_EQ(*number.getConstValue(), 7);
}

// --- The value -----------------------------------------------------------------------------

TEST(genericValue, beginsAsNoValue)
{
    const genericValue none;
    EXPECT_EQ(none.get(), nullptr);
    EXPECT_EQ(none.value<int>(), nullptr);
    const genericValue copy(none);
    EXPECT_EQ(copy.get(), nullptr);
}

TEST(genericValue, givesItsValueOnlyAsItsOwnType)
{
    const genericValue value = genericValue::of(5);
    ASSERT_NE(value.value<int>(), nullptr);
    EXPECT_EQ(*value.value<int>(), 5);
    EXPECT_EQ(value.value<long>(), nullptr);
    EXPECT_EQ(value.value<string>(), nullptr);
}

TEST(genericValue, ownsItsHolder)
{
    int living = 0;
    {
        genericValue value(new valueholder<counted>(counted(living)));
        EXPECT_EQ(living, 1);
        value = genericValue::of(1);
        EXPECT_EQ(living, 0);
    }
    EXPECT_EQ(living, 0);
}

TEST(genericValue, clonesOnCopyAndDestroysOnDestruction)
{
    int living = 0;
    {
        genericValue one(new valueholder<counted>(counted(living)));
        genericValue two(one);
        EXPECT_EQ(living, 2);
        EXPECT_NE(one.get(), two.get());
        genericValue three;
        three = two;
        EXPECT_EQ(living, 3);
        const genericValue& same = three;
        three = same;
        EXPECT_EQ(living, 3);
        ASSERT_NE(three.get(), nullptr);
        genericValue four(std::move(three));
        EXPECT_EQ(living, 3);
        two = std::move(four);
        EXPECT_NE(two.get(), nullptr);
    }
    EXPECT_EQ(living, 0);
}

TEST(genericValue, isNoValueWhereTheCloneFailed)
{
    int living = 0;
    {
        auto* held = new valueholder<counted>(counted(living));
        held->getValue()->refusesCopies = true;
        const genericValue one(held);
        const genericValue copy(one);
        EXPECT_EQ(copy.get(), nullptr);
        genericValue assigned = genericValue::of(5);
        assigned = one;
        EXPECT_EQ(assigned.get(), nullptr);
    }
    EXPECT_EQ(living, 0);
}

TEST(genericValue, makesATextOfEachFormOfText)
{
    const std::u16string_view view = u"view";
    std::u16string plain(u"plain");
    const genericValue values[] = {
        genericValue::of(u"literal"),
        genericValue::of(view),
        genericValue::of(plain),
        genericValue::of(static_cast<const char16_t*>(plain.c_str())),
        genericValue::of(plain.data()),
        genericValue::of(static_cast<const char16_t*>(nullptr)),
    };
    plain.assign(plain.size(), u'#'); // nothing points there
    const char16_t* const expected[] = {u"literal", u"view", u"plain", u"plain", u"plain", u""};
    for (std::size_t at = 0; at < std::size(values); ++at) {
        ASSERT_NE(values[at].value<string>(), nullptr) << at;
        EXPECT_EQ(*values[at].value<string>(), expected[at]) << at;
    }
}

template <class T>
concept valueOf = requires(T value)
{
    genericValue::of(value);
};

TEST(genericValue, refusesOtherPointers)
{
    static_assert(valueOf<const char16_t*> && valueOf<int> && valueOf<string>);
    static_assert(!valueOf<const char*>);
    static_assert(!valueOf<int*>);
    static_assert(!valueOf<const void*>);
}

} // namespace

} // namespace orlogenericvalueTest
