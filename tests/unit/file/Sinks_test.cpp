// SPDX-License-Identifier: MIT
#include "utility/codec/Base64.h"
#include "utility/codec/QuotedPrintable.h"
#include "utility/file/Pump.h"

#include <algorithm>
#include <limits>

namespace sinks_test {

// Results for which there is no room. The texts are never read: there are no such texts.
namespace {

using tarvomime::MemorySink;

constexpr std::size_t kLongest = std::numeric_limits<std::size_t>::max();
// Too long decoded and encoded; in 32 bits three quarters of it must pass 2 GiB.
constexpr std::size_t kTooLong = sizeof(std::size_t) > 4 ? kLongest / 4 : kLongest / 16 * 11;
constexpr unsigned long kUnset = 77;

std::string_view endlessText()
{
    return {"QUJD", kTooLong};
}

TEST(MemorySink, HasRoomForOneByteMoreThanItsCapacity)
{
    for (const std::size_t capacity : {0, 1, 100, 5000000}) {
        const auto sink = MemorySink::withCapacity(capacity);
        ASSERT_TRUE(sink.has_value()) << capacity;
        EXPECT_EQ(static_cast<std::size_t>(sink->limit - sink->next), capacity + 1);
    }
}

TEST(MemorySink, TheResultEndsWhereTheWritingDid)
{
    auto sink = MemorySink::withCapacity(100);
    ASSERT_TRUE(sink.has_value());
    sink->next = std::copy_n("abc", 3, sink->next);
    EXPECT_EQ(sink->takeResult(), "abc");
}

TEST(MemorySink, NoRoom)
{
    for (const std::size_t capacity : {kTooLong, kLongest / 2, kLongest})
        EXPECT_FALSE(MemorySink::withCapacity(capacity).has_value()) << capacity;
}

TEST(DecodersWithoutRoom, LeaveTheLength)
{
    for (const auto nulByte : {tarvomime::NulByte::IsData, tarvomime::NulByte::EndsText}) {
        unsigned long length = kUnset;
        EXPECT_EQ(tarvomime::decodeBase64(endlessText(), &length, nulByte), "");
        EXPECT_EQ(tarvomime::decodeQp(endlessText(), &length, nulByte), "");
        EXPECT_EQ(length, kUnset);
    }
}

TEST(EncodersWithoutRoom, GiveNothing)
{
    for (const bool breakLines : {false, true}) {
        EXPECT_EQ(tarvomime::encodeBase64("abc", kTooLong, breakLines), "");
        EXPECT_EQ(tarvomime::encodeQp("abc", kTooLong, breakLines), "");
    }
}

} // namespace

} // namespace sinks_test
