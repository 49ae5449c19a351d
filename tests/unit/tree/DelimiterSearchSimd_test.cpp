// SPDX-License-Identifier: MIT
// How far the vectors pass over text, beside looking at each place.
#include "tests/support/EveryProcessor.h"
#include "tests/support/ExactBuffer.h"
#include "tests/support/RandomText.h"
#include "utility/tree/DelimiterSearch.h"

#include <algorithm>

namespace delimiter_search_simd_test {

namespace {

// No vector is longer.
constexpr std::size_t kLongestVector = 256;

std::size_t firstPlace(std::string_view text, std::size_t count, std::size_t distance, char last)
{
    std::size_t place = 0;
    while (place < count &&
           (text[place] != '\n' || text[place + 1] != '-' || text[place + distance] != last))
        ++place;
    return place;
}

void expectAsPlain(const ExactBuffer& text, std::size_t distance, char last)
{
    if (text.size() <= distance)
        return;
    const std::size_t count = text.size() - distance;
    const std::size_t passed = tarvomime::placesWithout(text.data(), count, distance, last);
    const std::size_t first = firstPlace(text.view(), count, distance, last);
    ASSERT_LE(passed, first) << testing::PrintToString(std::string(text.view())) << " distance "
                             << distance << " last " << last;
    // Vectors leave the last few places over at most.
    if (passed < first && tarvomime::processor() != tarvomime::Processor::Plain) {
        ASSERT_LT(count - passed, kLongestVector) << "distance " << distance << " last " << last;
    }
}

TEST(DelimiterSearchTwins, PassOverTheSamePlaces)
{
    onEveryProcessor([] {
        RandomText texts(11,
                         {"\n-", "\n--a", "\n", "-", "a", "\n-a--", QByteArray("\0\xFF", 2),
                          "a line that is longer than one vector is, of whatever kind it may be"});
        for (std::size_t round = 0; round < 3000; ++round) {
            const ExactBuffer text(texts.next(40), round % 64);
            for (const char last : {'a', '-', '\xFF', '\n'}) {
                for (const std::size_t distance : {1, 2, 3, 70})
                    expectAsPlain(text, distance, last);
            }
        }
    });
}

// Nothing behind the text is read, wherever it ends.
TEST(DelimiterSearchTwins, PassOverCleanTextOfEveryLength)
{
    onEveryProcessor([] {
        for (int length = 0; length < 600; ++length) {
            const QByteArray clean(length, 'x');
            expectAsPlain(ExactBuffer(clean), 2, 'x');
            for (const int place : {0, length / 2, length - 3}) {
                if (place >= 0 && place + 3 <= length)
                    expectAsPlain(ExactBuffer(QByteArray(clean).replace(place, 3, "\n-x")), 2, 'x');
            }
        }
    });
}

} // namespace

} // namespace delimiter_search_simd_test
