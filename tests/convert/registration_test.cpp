// A group of converters that comes and goes before the registry is made, which takes a process of
// its own: no other test of this program may have run before it.
#include "orlotypeconvert.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace registrationTest {

namespace {

using namespace orlo::typeconvert;

struct apple {};
struct pear {
    int weight = 0;
};

// Tells whether the registry has looked at it, which it does when it takes it in.
class watchedConverter final : public typeConverterBase {
public:
    [[nodiscard]] const std::type_info& fromType() const override
    {
        ++timesAsked;
        return typeid(apple);
    }
    [[nodiscard]] const std::type_info& toType() const override { return typeid(pear); }
    bool convertValue(void* to, const void*, unsigned, const argumentList&) const override
    {
        static_cast<pear*>(to)->weight = 7;
        return true;
    }
    mutable int timesAsked = 0;
};

int failedAt(int line)
{
    return line % 200 + 20;
}

// 0, or where it went wrong.
int goBeforeTheRegistryIsMade()
{
    watchedConverter gone, middle, kept;
    const typeConverterBase* const all[3][1] = {{&gone}, {&middle}, {&kept}};
    pear to;
    {
        converterGroup early(all[0]);
        const converterGroup staying(all[2]);
        {
            const converterGroup between(all[1]);
            if (gone.timesAsked + middle.timesAsked + kept.timesAsked != 0)
                return failedAt(__LINE__); // the registry is there already
        }
        early.~converterGroup(); // before a group that came later
        new (&early) converterGroup({});
        if (!convert(to, apple{}) || to.weight != 7) return failedAt(__LINE__);
        if (gone.timesAsked + middle.timesAsked != 0) return failedAt(__LINE__);
        if (kept.timesAsked == 0) return failedAt(__LINE__);
    }
    to.weight = 0;
    return convert(to, apple{}) || to.weight != 0 ? failedAt(__LINE__) : 0;
}

TEST(converterGroupSystem, leavesNothingWhereItGoesBeforeTheRegistryIsMade)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::_Exit(goBeforeTheRegistryIsMade()), testing::ExitedWithCode(0), "");
}

} // namespace

} // namespace registrationTest
