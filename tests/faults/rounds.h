// Runs one operation again and again, with another request of memory failing each time.
#pragma once

#include "orloexception.h"
#include "support/allocations.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <utility>

namespace orlo::tests {

enum class outcome { done, badAlloc, outOfMemory, plainFalse, libraryFailure };

inline std::ostream& operator<<(std::ostream& out, outcome value)
{
    static constexpr const char* names[] = {"done", "bad_alloc", "outOfMemoryException", "false",
                                            "another exception"};
    return out << names[static_cast<std::size_t>(value)];
}

template <class Action>
outcome outcomeOf(const Action& action)
{
    try {
        action();
        return outcome::done;
    } catch (const std::bad_alloc&) {
        return outcome::badAlloc;
    } catch (const outOfMemoryException&) {
        return outcome::outOfMemory;
    } catch (const orlo::exception&) {
        return outcome::libraryFailure;
    } catch (bool) {
        return outcome::plainFalse;
    }
}

// An operation on something that is made anew for each run: `change` is what may fail, `view`
// tells all that counts of the thing afterwards.
template <class Make, class Change, class View>
class faultRounds {
public:
    faultRounds(std::string name, Make make, Change change, View view)
        : m_name(std::move(name)), m_make(std::move(make)), m_change(std::move(change)),
          m_view(std::move(view))
    {}

    // How the failure leaves the operation.
    faultRounds& leavesBy(outcome expected)
    {
        m_expected = expected;
        return *this;
    }
    // The operation may end half way, where its rules tell its steps one by one.
    faultRounds& mayStopHalfWay()
    {
        m_keepsOld = false;
        return *this;
    }
    // Nothing leaves it: it goes on without what it could not have, with another result.
    faultRounds& mayDoWithout()
    {
        m_sameResult = false;
        return *this;
    }

    void run()
    {
        learn();
        std::size_t nth = 1;
        while (runWithFault(nth, allocationFault::lasting::once)) ++nth;
        // Where nothing is to be had any more, no promise holds but safety.
        for (std::size_t from = 1; from < nth; ++from)
            runWithFault(from, allocationFault::lasting::forGood);
        EXPECT_GT(nth, 1u) << m_name << " asks for no memory, so that nothing was tried";
    }

private:
    // Twice, so that what is made but once for the process is there.
    void learn()
    {
        for (int time = 0; time < 2; ++time) {
            auto target = m_make();
            m_before = m_view(target);
            m_change(target);
            m_after = m_view(target);
        }
    }

    // False if the operation has no such request.
    bool runWithFault(std::size_t nth, allocationFault::lasting how)
    {
        auto target = m_make();
        outcome got = outcome::done;
        bool happened = false;
        {
            const allocationFault fault(nth, how);
            got = outcomeOf([&] { m_change(target); });
            happened = fault.hasHappened();
        }
        if (how == allocationFault::lasting::once) compare(target, got, nth);
        if (got != outcome::done) finish(target, nth);
        return happened;
    }

    template <class Target>
    void compare(const Target& target, outcome got, std::size_t nth) const
    {
        if (got == outcome::done) {
            if (m_sameResult) expectView(target, m_after, nth);
            return;
        }
        EXPECT_EQ(got, m_expected) << m_name << ", request " << nth;
        if (m_keepsOld) expectView(target, m_before, nth);
    }

    // What failed can be tried again.
    template <class Target>
    void finish(Target& target, std::size_t nth) const
    {
        if (!m_keepsOld) return;
        EXPECT_EQ(outcomeOf([&] { m_change(target); }), outcome::done)
            << m_name << ", request " << nth;
        if (m_sameResult) expectView(target, m_after, nth);
    }

    template <class Target>
    void expectView(const Target& target, const string& expected, std::size_t nth) const
    {
        EXPECT_EQ(m_view(target), expected) << m_name << ", request " << nth;
    }

    std::string m_name;
    Make m_make;
    Change m_change;
    View m_view;
    outcome m_expected = outcome::badAlloc;
    bool m_keepsOld = true;
    bool m_sameResult = true;
    string m_before;
    string m_after;
};

} // namespace orlo::tests
