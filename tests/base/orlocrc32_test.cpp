#include "orlocrc32.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <type_traits>

namespace orlocrc32Test {

namespace {

std::uint32_t checksum(std::string_view bytes)
{
    CCrc32Dynamic crc;
    std::uint32_t sum = 0xFFFFFFFF;
    crc.addToCrc(sum, bytes.data(), bytes.size());
    return ~sum;
}

// The definition itself: one bit at a time, no table.
std::uint32_t slowChecksum(std::string_view bytes)
{
    std::uint32_t sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            const bool dropped = (sum & 1) != 0;
            sum >>= 1;
            if (dropped) sum ^= 0xEDB88320;
        }
    }
    return ~sum;
}

TEST(crc32, ofTheNineDigitsIsTheKnownCheckValue)
{
    EXPECT_EQ(checksum("123456789"), 0xCBF43926u);
}

TEST(crc32, ofEachSingleByteEqualsTheSlowOne)
{
    for (int value = 0; value < 256; ++value) {
        const char byte = static_cast<char>(value);
        EXPECT_EQ(checksum({&byte, 1}), slowChecksum({&byte, 1})) << value;
    }
}

TEST(crc32, ofRandomBytesEqualsTheSlowOneHoweverTheyArePieced)
{
    constexpr unsigned seed = 20240305;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    CCrc32Dynamic crc;
    for (int round = 0; round < 200; ++round) {
        std::string bytes(random() % 300, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random());
        const std::size_t cut = random() % (bytes.size() + 1);
        std::uint32_t sum = 0xFFFFFFFF;
        crc.addToCrc(sum, bytes.data(), cut);
        crc.addToCrc(sum, bytes.data() + cut, bytes.size() - cut);
        ASSERT_EQ(~sum, slowChecksum(bytes)) << "round " << round;
    }
}

TEST(crc32, ofEveryLengthAroundItsStepsEqualsTheSlowOne)
{
    std::string bytes;
    for (int length = 0; length <= 100; ++length) {
        ASSERT_EQ(checksum(bytes), slowChecksum(bytes)) << length;
        ASSERT_EQ(checksum(std::string_view(bytes).substr(bytes.size() / 3)),
                  slowChecksum(std::string_view(bytes).substr(bytes.size() / 3)))
            << length;
        bytes.push_back(static_cast<char>(length * 37 + 11));
    }
}

TEST(crc32, ofAMegabyteEqualsTheSlowOne)
{
    std::string bytes(1 << 20, '\0');
    std::mt19937 random(20240306);
    for (char& byte : bytes) byte = static_cast<char>(random());
    EXPECT_EQ(checksum(bytes), slowChecksum(bytes));
}

TEST(crc32, staysAsItIsOverNoBytes)
{
    CCrc32Dynamic crc;
    std::uint32_t sum = 0x12345678;
    crc.addToCrc(sum, nullptr, 0);
    EXPECT_EQ(sum, 0x12345678u);
}

TEST(crc32, goesOnFromTheGivenStart)
{
    CCrc32Dynamic crc;
    std::uint32_t sum = 0;
    const unsigned char one = 1;
    crc.addToCrc(sum, &one, 1);
    EXPECT_EQ(sum, 0x77073096u) << "entry 1 of the reflected table";
}

TEST(crc32, hasOneObjectForTheProcess)
{
    EXPECT_EQ(&processCrc32(), &processCrc32());
}

TEST(crc32, hasADestructorAsItsOnlyVirtualOperationAndOneField)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CCrc32Dynamic>);
    EXPECT_EQ(sizeof(CCrc32Dynamic), 2 * sizeof(void*));
}

} // namespace

} // namespace orlocrc32Test
