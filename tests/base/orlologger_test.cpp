#include "orlologger.h"

#include "support/text.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace orlologgerTest {

using orlolog::logger;

namespace {

// Tells when it goes.
class watchedLogger final : public logger {
public:
    explicit watchedLogger(bool& gone) : logger(u"watched", true, 3), m_gone(gone) {}
    ~watchedLogger() override { m_gone = true; }

private:
    bool& m_gone;
};

TEST(logger, standsReadyTwiceInEveryProcess)
{
    ASSERT_TRUE(orlolog::unnamedLogger);
    ASSERT_TRUE(orlolog::rootLogger);
    EXPECT_EQ(orlolog::unnamedLogger->name(), u"");
    EXPECT_EQ(orlolog::rootLogger->name(), u"root");
    for (const orlo::refptr<logger>& one : {orlolog::unnamedLogger, orlolog::rootLogger}) {
        EXPECT_FALSE(one->flag());
        EXPECT_EQ(one->level(), 0u);
    }
    EXPECT_EQ(orlolog::unnamedLogger->getRefCount(), 1u);
    EXPECT_EQ(orlolog::rootLogger->getRefCount(), 1u);
}

TEST(logger, hasItsLineFormat)
{
    EXPECT_EQ(orlolog::defaultLineFormat, u"<%s> [PID %p] [TID %t] (%l) {%f, L %r, %c} - %m %o");
}

TEST(logger, isMadeWithOneReference)
{
    const orlo::refptr<logger> made = logger::create(u"press", true, 7);
    EXPECT_EQ(made->getRefCount(), 1u);
    EXPECT_EQ(made->name(), u"press");
    EXPECT_TRUE(made->flag());
    EXPECT_EQ(made->level(), 7u);
}

TEST(logger, countsFromBothSidesAlike)
{
    const orlo::refptr<logger> made = logger::create(u"", false, 0);
    orlo::iRefObj& counted = *made;
    orlo::refObj& object = *made;
    EXPECT_EQ(counted.addRef(), 2u);
    EXPECT_EQ(object.addRef(), 3u);
    EXPECT_EQ(counted.getRefCount(), 3u);
    EXPECT_EQ(counted.release(), 2u);
    EXPECT_EQ(object.release(), 1u);
    EXPECT_EQ(made->getRefCount(), 1u);
}

// No way leads from a virtual base down without a look at the object.
template <class Base>
constexpr bool isPlainBase = requires(Base* base)
{
    static_cast<logger*>(base);
};

TEST(logger, hasTheCountedObjectAsAVirtualBase)
{
    EXPECT_TRUE((std::is_base_of_v<orlo::refObj, logger>));
    EXPECT_FALSE(isPlainBase<orlo::refObj>);
    EXPECT_TRUE(isPlainBase<orlo::iRefObj>);
}

TEST(logger, goesWithItsLastReferenceOfEitherSide)
{
    bool gone = false;
    orlo::iRefObj* counted = new watchedLogger(gone);
    counted->addRef();
    EXPECT_EQ(counted->release(), 0u);
    EXPECT_TRUE(gone);

    gone = false;
    {
        const orlo::refptr<logger> first = new watchedLogger(gone);
        const orlo::refptr<orlo::refObj> second(first);
        EXPECT_EQ(first->getRefCount(), 2u);
    }
    EXPECT_TRUE(gone);
}

TEST(logger, sharesOneObjectBaseVirtually)
{
    EXPECT_TRUE((std::is_base_of_v<orlo::iRefCount, orlo::iRefObj>));
    EXPECT_TRUE((std::is_base_of_v<orlo::iRefObj, logger>));
    EXPECT_TRUE((std::is_convertible_v<logger*, orlo::refObj*>));
}

} // namespace

} // namespace orlologgerTest
