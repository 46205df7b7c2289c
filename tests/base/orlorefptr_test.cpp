#include "orlorefptr.h"

#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <thread>
#include <utility>

namespace orlorefptrTest {

using namespace orlo;
using orlo::tests::machine;

namespace {

// Tells how often it was deleted, and what its count is, which must be 0 then.
class counted : public refObj {
public:
    explicit counted(int& deleted) : m_deleted(deleted) {}
    void deleteThis() override
    {
        EXPECT_EQ(m_count, 0u);
        ++m_deleted;
        delete this;
    }
    [[nodiscard]] std::uint32_t count() const { return m_count; }
    int value = 7;

private:
    int& m_deleted;
};

class derived : public counted {
public:
    using counted::counted;
};

template <class Access>
bool throwsFalse(Access access)
{
    try {
        access();
    } catch (bool value) {
        return !value;
    }
    return false;
}

} // namespace

TEST(refObj, startsWithTheCountZero)
{
    int deleted = 0;
    const counted object(deleted);
    EXPECT_EQ(object.count(), 0u);
}

TEST(refObj, addRefAndReleaseAnswerTheNewCount)
{
    int deleted = 0;
    auto* const object = new counted(deleted);
    EXPECT_EQ(object->addRef(), 1u);
    EXPECT_EQ(object->addRef(), 2u);
    EXPECT_EQ(object->release(), 1u);
    EXPECT_EQ(deleted, 0);
    EXPECT_EQ(object->release(), 0u);
    EXPECT_EQ(deleted, 1);
}

TEST(refObj, countsChangeAsWholeWordsAndWrap)
{
    std::uint32_t word = 0xFFFFFFFE;
    EXPECT_EQ(atomicIncrement(word), 0xFFFFFFFFu);
    EXPECT_EQ(atomicIncrement(word), 0u);
    EXPECT_EQ(atomicDecrement(word), 0xFFFFFFFFu);
    EXPECT_EQ(atomicDecrement(word), 0xFFFFFFFEu);
    EXPECT_EQ(word, 0xFFFFFFFEu);
}

TEST(refObj, countsExactlyFromTwoThreads)
{
    constexpr int times = 100000;
    int deleted = 0;
    const refptr<counted> object(new counted(deleted));
    const auto copyOften = [&object] {
        for (int i = 0; i < times; ++i) refptr<counted> copy(object);
    };
    std::thread other(copyOften);
    copyOften();
    other.join();
    EXPECT_EQ(object->count(), 1u);
    EXPECT_EQ(deleted, 0);
}

TEST(refptr, isEmptyAtFirst)
{
    const refptr<counted> none;
    EXPECT_FALSE(none);
    EXPECT_EQ(none.get(), nullptr);
    EXPECT_TRUE(none == refptr<counted>(nullptr));
}

TEST(refptr, countsEachCopyAndDeletesWithTheLast)
{
    int deleted = 0;
    {
        refptr<counted> first(new counted(deleted));
        EXPECT_EQ(first->count(), 1u);
        refptr<counted> second(first);
        EXPECT_EQ(first->count(), 2u);
        refptr<counted> third;
        third = second;
        EXPECT_EQ(first->count(), 3u);
        second = nullptr;
        EXPECT_EQ(first->count(), 2u);
        EXPECT_TRUE(first == third);
        EXPECT_EQ(deleted, 0);
    }
    EXPECT_EQ(deleted, 1);
}

TEST(refptr, assignmentDropsWhatItHeld)
{
    int deletedFirst = 0;
    int deletedSecond = 0;
    refptr<counted> held(new counted(deletedFirst));
    held = refptr<counted>(new counted(deletedSecond));
    EXPECT_EQ(deletedFirst, 1);
    held = *&held;
    EXPECT_EQ(held->count(), 1u);
    EXPECT_EQ(deletedSecond, 0);
}

TEST(refptr, movesAndDetachesWithoutCounting)
{
    int deleted = 0;
    refptr<counted> first(new counted(deleted));
    refptr<counted> second(std::move(first));
    EXPECT_EQ(second->count(), 1u);
    counted* const raw = second.detach();
    EXPECT_FALSE(second);
    EXPECT_EQ(raw->count(), 1u);
    EXPECT_EQ(raw->release(), 0u);
    EXPECT_EQ(deleted, 1);
}

TEST(refptr, takesAPointerToADerivedClass)
{
    int deleted = 0;
    {
        const refptr<derived> exact(new derived(deleted));
        const refptr<counted> general(exact);
        EXPECT_EQ(general->count(), 2u);
    }
    EXPECT_EQ(deleted, 1);
}

TEST(refptr, accessReachesTheObject)
{
    int deleted = 0;
    const refptr<counted> object(new counted(deleted));
    EXPECT_EQ(object->value, 7);
    (*object).value = 8;
    EXPECT_EQ(object->value, 8);
}

TEST(refptr, accessThroughAnEmptyOneFailsAnAssertion)
{
    const refptr<counted> none;
    const machine& here = machine::renew();
    EXPECT_TRUE(throwsFalse([&none] { none->value = 1; }));
    EXPECT_TRUE(throwsFalse([&none] { (*none).value = 1; }));
    ASSERT_EQ(here.boxes.size(), 2u);
    for (const machine::box& box : here.boxes) {
        EXPECT_EQ(box.title, u"Velmora");
        EXPECT_EQ(box.text,
                  u"Assertion failed:\nm_p != NULL\n\nFile: libs/utils/inc/orlorefptr\nLine: 315");
    }
}

} // namespace orlorefptrTest
