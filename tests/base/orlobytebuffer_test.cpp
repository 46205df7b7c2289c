#include "orlobytebuffer.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace orlobytebufferTest {

using orlo::byteBuffer;

namespace {

std::string bytesOf(const byteBuffer& buffer)
{
    return {buffer.data(), buffer.data() + buffer.size()};
}

void append(byteBuffer& buffer, std::string_view bytes)
{
    buffer.append(bytes.data(), bytes.size());
}

} // namespace

TEST(byteBuffer, startsEmptyWithTheCapacityThatWasAskedFor)
{
    for (const std::size_t capacity : {std::size_t{0}, std::size_t{1}, std::size_t{100}}) {
        const byteBuffer buffer(capacity);
        EXPECT_EQ(buffer.size(), 0u);
        EXPECT_EQ(buffer.capacity(), capacity);
    }
    EXPECT_EQ(byteBuffer().capacity(), 0u);
    EXPECT_EQ(byteBuffer().data(), nullptr);
}

TEST(byteBuffer, reservesExactlyAndNeverShrinks)
{
    byteBuffer buffer;
    append(buffer, "abc");
    buffer.reserve(17);
    EXPECT_EQ(buffer.capacity(), 17u);
    buffer.reserve(16);
    EXPECT_EQ(buffer.capacity(), 17u);
    buffer.reserve(17);
    EXPECT_EQ(buffer.capacity(), 17u);
    buffer.reserve(18);
    EXPECT_EQ(buffer.capacity(), 18u);
    EXPECT_EQ(bytesOf(buffer), "abc");
}

TEST(byteBuffer, reservingWhatIsThereKeepsTheBlock)
{
    byteBuffer buffer(10);
    append(buffer, "abc");
    const unsigned char* const block = buffer.data();
    buffer.reserve(10);
    append(buffer, "defghij");
    EXPECT_EQ(buffer.data(), block);
    EXPECT_EQ(bytesOf(buffer), "abcdefghij");
}

TEST(byteBuffer, growsToTheExactNeedOfEachAppend)
{
    byteBuffer buffer;
    append(buffer, "abc");
    EXPECT_EQ(buffer.capacity(), 3u);
    append(buffer, "d");
    EXPECT_EQ(buffer.capacity(), 4u);
    EXPECT_EQ(buffer.size(), 4u);
    EXPECT_EQ(bytesOf(buffer), "abcd");
}

TEST(byteBuffer, appendingNothingChangesNothing)
{
    byteBuffer buffer;
    buffer.append(nullptr, 0);
    EXPECT_EQ(buffer.size(), 0u);
    EXPECT_EQ(buffer.capacity(), 0u);
    append(buffer, "x");
    buffer.append(nullptr, 0);
    EXPECT_EQ(bytesOf(buffer), "x");
}

TEST(byteBuffer, keepsZeroBytes)
{
    byteBuffer buffer;
    append(buffer, std::string_view("a\0b\0", 4));
    EXPECT_EQ(bytesOf(buffer), std::string("a\0b\0", 4));
}

TEST(byteBuffer, keepsASingleByteAsItGrows)
{
    byteBuffer buffer;
    append(buffer, "a");
    append(buffer, "bc");
    EXPECT_EQ(bytesOf(buffer), "abc");
}

TEST(byteBuffer, takesItsOwnBytes)
{
    byteBuffer buffer;
    append(buffer, "abc");
    buffer.append(buffer.data(), buffer.size());
    EXPECT_EQ(bytesOf(buffer), "abcabc");
}

} // namespace orlobytebufferTest
