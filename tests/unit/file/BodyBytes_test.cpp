// SPDX-License-Identifier: MIT
#include "utility/file/BodyBytes.h"

#include "tests/support/OpenResources.h"
#include "tests/support/StoredFile.h"

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace body_bytes_test {

namespace {

using tarvomime::BodyBlocks;
using tarvomime::BodyBytes;

constexpr int kMost = std::numeric_limits<int>::max();
const QByteArray content = QByteArray("0123456789").repeated(7000);

} // namespace

TEST(BodyBytes, InMemoryAreSeenWhereTheyAre)
{
    const std::string text("some\0text", 9);
    const BodyBytes bytes{std::string_view(text)};
    EXPECT_TRUE(bytes.ok());
    EXPECT_TRUE(bytes.isInMemory());
    EXPECT_EQ(bytes.view().data(), text.data());
    EXPECT_EQ(bytes.size(), 9U);
    EXPECT_EQ(bytes.first(4), "some");
    EXPECT_EQ(bytes.first(1000), QByteArray("some\0text", 9));
    BodyBlocks blocks(bytes);
    EXPECT_FALSE(blocks.atEnd());
    EXPECT_EQ(blocks.next()->data(), text.data());
    EXPECT_TRUE(blocks.atEnd());
}

TEST(BodyBytes, NoneAtAll)
{
    for (const auto& [start, length] :
         {std::pair<const char*, int>(nullptr, 0), {nullptr, 5}, {"abc", 0}, {"abc", -1}}) {
        const BodyBytes bytes(start, length);
        EXPECT_TRUE(bytes.ok());
        EXPECT_EQ(bytes.all(), "");
        EXPECT_TRUE(BodyBlocks(bytes).atEnd());
    }
}

TEST(BodyBytes, OfAFileAreARangeOfIt)
{
    const StoredFile stored(content);
    const OpenResources before = OpenResources::of(stored.path());
    {
        const BodyBytes bytes(stored.path(), 9, 5);
        EXPECT_TRUE(bytes.ok());
        EXPECT_FALSE(bytes.isInMemory());
        EXPECT_EQ(bytes.size(), 5U);
        EXPECT_EQ(bytes.all(), "90123");
        EXPECT_EQ(bytes.first(2), "90");
        EXPECT_EQ(bytes.first(2), "90") << "reading moves nothing";
        const auto nothing = BodyBytes(stored.path(), 70000, 0).all();
        ASSERT_TRUE(nothing.has_value());
        EXPECT_FALSE(nothing->isNull());
        EXPECT_EQ(OpenResources::of(stored.path()).mappings, before.mappings);
    }
    EXPECT_EQ(OpenResources::of(stored.path()), before);
}

TEST(BodyBytes, OfAFileComeInBlocksOf32768OrAsAskedFor)
{
    const StoredFile stored(content);
    const BodyBytes bytes(stored.path(), 1, 69000);
    for (const auto& [blockSize, expected] :
         {std::pair<std::size_t, std::vector<std::size_t>>{32768, {32768, 32768, 3464}},
          {30000, {30000, 30000, 9000}},
          {69000, {69000}}}) {
        QByteArray read;
        std::vector<std::size_t> sizes;
        for (BodyBlocks blocks(bytes, blockSize); !blocks.atEnd();) {
            const auto block = blocks.next();
            ASSERT_TRUE(block.has_value());
            sizes.push_back(block->size());
            read.append(block->data(), static_cast<int>(block->size()));
        }
        EXPECT_EQ(sizes, expected);
        EXPECT_TRUE(read == content.mid(1, 69000));
    }
    EXPECT_EQ(BodyBlocks(bytes).next()->size(), 32768U);
}

TEST(BodyBytes, TheRestOfABlockStandsInFrontOfTheNext)
{
    const StoredFile stored(content);
    const BodyBytes bytes(stored.path(), 0, 65536);
    for (const std::size_t left : {0, 1, 2, 8}) {
        BodyBlocks blocks(bytes);
        const auto block = blocks.next();
        ASSERT_TRUE(block.has_value());
        const auto next = blocks.next(block->substr(block->size() - left));
        ASSERT_TRUE(next.has_value());
        EXPECT_EQ(next->size(), left + 32768) << left;
        EXPECT_EQ(
            next->substr(0, left + 3),
            content.mid(32768 - static_cast<int>(left), static_cast<int>(left) + 3).toStdString());
    }
}

TEST(BodyBytes, OutsideTheFileAreNone)
{
    const StoredFile stored(content);
    const struct
    {
        QString path;
        int offset;
        int length;
    } rows[] = {
        {stored.missingPath(), 0, 0}, {QString(), 0, 0},         {stored.path(), 0, 70001},
        {stored.path(), 70001, 0},    {stored.path(), -1, 1},    {stored.path(), 1, -1},
        {stored.path(), kMost, 1},    {stored.path(), 1, kMost}, {stored.path(), kMost, kMost}};
    const OpenResources before = OpenResources::of(stored.path());
    for (const auto& [path, offset, length] : rows) {
        const BodyBytes bytes(path, offset, length);
        EXPECT_FALSE(bytes.ok()) << offset << ' ' << length;
        EXPECT_EQ(bytes.all(), std::nullopt) << offset << ' ' << length;
        EXPECT_EQ(bytes.first(0), std::nullopt) << offset << ' ' << length;
        BodyBlocks blocks(bytes);
        EXPECT_FALSE(blocks.atEnd()) << offset << ' ' << length;
        EXPECT_EQ(blocks.next(), std::nullopt) << offset << ' ' << length;
    }
    EXPECT_EQ(OpenResources::of(stored.path()), before);
}

// The system would open the file that is named in front of it.
TEST(BodyBytes, NoFileHasANulInItsName)
{
    const StoredFile stored(content);
    EXPECT_FALSE(BodyBytes(stored.path() + QChar(0), 0, 1).ok());
    EXPECT_FALSE(BodyBytes(stored.path() + QChar(0) + QLatin1Char('x'), 0, 1).ok());
    EXPECT_FALSE(BodyBytes(QString(QChar(0)), 0, 1).ok());
}

TEST(BodyBytes, OfAFileThatIsCutShortMeanwhile)
{
    const StoredFile stored(content);
    const BodyBytes bytes(stored.path(), 0, 70000);
    BodyBlocks blocks(bytes);
    EXPECT_TRUE(blocks.next().has_value());
    stored.cutTo(65535);
    EXPECT_TRUE(bytes.ok()) << "as it was opened";
    EXPECT_EQ(bytes.all(), std::nullopt);
    EXPECT_EQ(blocks.next(), std::nullopt) << "one byte of the block is missing";
}

TEST(BodyBytes, OfAFileThatIsReplacedMeanwhileAreThoseThatWereOpened)
{
    const StoredFile stored(content);
    const BodyBytes bytes(stored.path(), 0, 70000);
    ASSERT_TRUE(QFile::remove(stored.path()));
    EXPECT_TRUE(bytes.all() == content);
}

} // namespace body_bytes_test
