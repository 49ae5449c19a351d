// SPDX-License-Identifier: MIT
#include "utility/codec/WordChunks.h"

namespace word_chunks_test {

using namespace tarvomime;

namespace {

const QString pair = QString(QChar(0xD83D)) + QChar(0xDE00);

} // namespace

TEST(WordChunks, HalfACount)
{
    struct Row
    {
        const char* shows;
        QString text;
        int count;
        int half;
    };
    const Row rows[] = {
        {"even", "abcd", 4, 2},
        {"odd", "abcde", 5, 2},
        {"one stays one", "a", 1, 1},
        {"between two pairs", pair + pair, 4, 2},
        {"inside a pair: one less", "a" + pair + "b", 4, 1},
        {"inside a pair that leaves none: one more", pair + "b", 3, 2},
        {"a pair alone stays whole", pair, 2, 2},
        {"two halves that make no pair", QString(4, QChar(0xDE00)), 4, 2},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(halvedChunk(row.text, 0, row.count), row.half) << row.shows;
        EXPECT_EQ(halvedChunk("x" + row.text, 1, row.count), row.half) << row.shows;
    }
}

TEST(WordChunks, TheFirstThatFitsIsTaken)
{
    const QString text(100, 'a');
    const auto upTo = [](int limit) { return [limit](int count) { return count <= limit; }; };
    EXPECT_EQ(chunkLength(text, 0, upTo(100)), 100);
    EXPECT_EQ(chunkLength(text, 0, upTo(99)), 50);
    EXPECT_EQ(chunkLength(text, 40, upTo(59)), 30);
    EXPECT_EQ(chunkLength(text, 0, upTo(1)), 1);
}

TEST(WordChunks, ACharacterThatNeverFitsIsTakenAlone)
{
    const auto never = [](int) { return false; };
    EXPECT_EQ(chunkLength("abc", 0, never), 1);
    EXPECT_EQ(chunkLength(pair + pair, 0, never), 2);
    EXPECT_EQ(chunkLength(pair + "a", 0, never), 2);
    EXPECT_EQ(chunkLength("a" + pair, 1, never), 2);
}

} // namespace word_chunks_test
