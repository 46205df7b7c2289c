#include "platform/platform.h"

#include <gtest/gtest.h>

#include <string>

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
