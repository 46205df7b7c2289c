#include "platform/platform.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace memoryTest {

TEST(memorySystemTest, expectingThatABlockIsFilledKeepsWhatItHolds)
{
    for (const std::size_t size : {0u, 1u, 5000u, (4u << 20) - 1, 4u << 20, 20u << 20}) {
        for (const std::size_t offset : {0u, 1u, 4095u, 4096u}) {
            std::string bytes(offset + size + 10, 'x');
            orlo::platform::expectFilling(bytes.data() + offset, size);
            EXPECT_EQ(bytes.find_first_not_of('x'), std::string::npos) << size << " at " << offset;
            bytes.assign(bytes.size(), 'y');
            EXPECT_EQ(bytes.find_first_not_of('y'), std::string::npos) << size << " at " << offset;
        }
    }
}

TEST(memorySystemTest, expectingAllocationsTakesNothingAndKeepsWhatTheHeapHolds)
{
    std::vector<std::string> before(1000, std::string(1000, 'x'));
    for (const std::size_t size : {0u, 1u, (4u << 20) - 1, 4u << 20, 24u << 20})
        orlo::platform::expectAllocations(size);
    const std::vector<std::string> behind(10000, std::string(1000, 'y'));
    for (const std::string& each : before) EXPECT_EQ(each, std::string(1000, 'x'));
    for (const std::string& each : behind) EXPECT_EQ(each, std::string(1000, 'y'));
}

TEST(memorySystemTest, largeBlocksAreEmptyAndApartFromEachOther)
{
    constexpr std::size_t size = 2 * orlo::platform::largeBlockAlignment;
    char* blocks[4] = {};
    for (char*& block : blocks) {
        block = static_cast<char*>(orlo::platform::newLargeBlock(size));
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(std::string_view(block, size).find_first_not_of('\0'), std::string::npos);
        std::memset(block, static_cast<int>(&block - blocks) + 1, size);
    }
    for (char*& block : blocks) {
        const char own = static_cast<char>(&block - blocks + 1);
        EXPECT_EQ(std::string_view(block, size).find_first_not_of(own), std::string::npos);
        orlo::platform::deleteLargeBlock(block, size);
    }
}

TEST(memorySystemTest, aLargeBlockThatNoMachineHasIsNull)
{
    constexpr std::size_t tooMuch = std::size_t{1} << 60;
    EXPECT_EQ(orlo::platform::newLargeBlock(tooMuch), nullptr);
}

} // namespace memoryTest
