#include "orlomutex.h"

#include "support/machine.h"

#include <gtest/gtest.h>

#include <thread>

namespace orlomutexTest {

using namespace orlo;
using orlo::tests::machine;

namespace {

class mutexTest : public testing::Test {
protected:
    mutexTest() : here(machine::renew()) {}
    machine& here;
};
using mutexLockTest = mutexTest;

} // namespace

TEST_F(mutexTest, isOneMutexOfTheSystem)
{
    {
        mutex one;
        EXPECT_EQ(here.countCalls("createMutex"), 1u);
        EXPECT_EQ(here.countCalls("destroyMutex"), 0u);
    }
    EXPECT_EQ(here.countCalls("destroyMutex"), 1u);
}

TEST_F(mutexTest, mayBeTakenAgainByItsOwner)
{
    mutex one;
    EXPECT_TRUE(one.lock());
    EXPECT_TRUE(one.lock());
    one.unlock();
    one.unlock();
    EXPECT_EQ(here.countCalls("lockMutex"), 2u);
    EXPECT_EQ(here.countCalls("unlockMutex"), 2u);
}

TEST_F(mutexTest, keepsOtherThreadsOut)
{
    mutex one;
    int counter = 0;
    const auto countUp = [&] {
        for (int i = 0; i < 2000; ++i) {
            const mutexLock held(&one);
            ++counter;
        }
    };
    std::thread other(countUp);
    countUp();
    other.join();
    EXPECT_EQ(counter, 4000);
}

TEST_F(mutexTest, answersFalseIfTheWaitFails)
{
    mutex one;
    here.failCall("lockMutex", 1);
    EXPECT_FALSE(one.lock());
    EXPECT_TRUE(one.lock());
    one.unlock();
}

TEST_F(mutexTest, answersFalseIfTheSystemGaveNoMutex)
{
    here.failCall("createMutex", 1);
    mutex one;
    EXPECT_FALSE(one.lock());
}

TEST_F(mutexLockTest, holdsForItsScope)
{
    mutex one;
    {
        const mutexLock held(&one);
        EXPECT_EQ(here.countCalls("lockMutex"), 1u);
        EXPECT_EQ(here.countCalls("unlockMutex"), 0u);
    }
    EXPECT_EQ(here.countCalls("unlockMutex"), 1u);
}

TEST_F(mutexLockTest, throwsAPlainFalseForANullMutex)
{
    try {
        const mutexLock held(nullptr);
        FAIL() << "nothing thrown";
    } catch (bool value) {
        EXPECT_FALSE(value);
    }
    EXPECT_EQ(here.countCalls("lockMutex"), 0u);
}

TEST_F(mutexLockTest, releasesOnlyWhatItHolds)
{
    mutex one;
    {
        mutexLock held(&one);
        held.release();
        EXPECT_EQ(here.countCalls("unlockMutex"), 1u);
        held.release();
    }
    EXPECT_EQ(here.countCalls("unlockMutex"), 1u);
}

TEST_F(mutexLockTest, doesNotReleaseAfterAFailedWait)
{
    mutex one;
    here.failCall("lockMutex", 1);
    {
        const mutexLock held(&one);
    }
    EXPECT_EQ(here.countCalls("unlockMutex"), 0u);
}

TEST_F(mutexLockTest, releasesWhenAnExceptionPasses)
{
    mutex one;
    EXPECT_THROW(
        {
            const mutexLock held(&one);
            throw 1;
        },
        int);
    EXPECT_EQ(here.countCalls("unlockMutex"), 1u);
}

} // namespace orlomutexTest
