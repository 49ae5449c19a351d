// SPDX-License-Identifier: MIT
#include "utility/file/RegularFile.h"

#include "tests/support/OpenResources.h"
#include "tests/support/StoredFile.h"

#include <array>
#include <limits>
#include <unistd.h>

namespace regular_file_test {

namespace {

using namespace tarvomime;

struct RangeRow
{
    int offset;
    int length;
    bool held;
};

void PrintTo(const RangeRow& row, std::ostream* out)
{
    *out << row.length << " bytes at " << row.offset;
}

class RangesOfAFile : public testing::TestWithParam<RangeRow>
{
};

} // namespace

TEST_P(RangesOfAFile, AreHeldInsideItOnly)
{
    const StoredFile stored("0123456789");
    EXPECT_EQ(RegularFile(stored.path()).holds(GetParam().offset, GetParam().length),
              GetParam().held);
}

constexpr int most = std::numeric_limits<int>::max();

INSTANTIATE_TEST_SUITE_P(Rows, RangesOfAFile,
                         testing::Values(RangeRow{0, 10, true}, RangeRow{10, 0, true},
                                         RangeRow{9, 1, true}, RangeRow{9, 2, false},
                                         RangeRow{11, 0, false}, RangeRow{-1, 1, false},
                                         RangeRow{0, -1, false}, RangeRow{most, most, false}));

TEST(RegularFile, ReadsAtAPlace)
{
    const StoredFile stored("0123456789");
    const RegularFile file(stored.path());
    ASSERT_TRUE(file.isOpen());
    EXPECT_EQ(file.size(), 10);
    std::array<char, 4> bytes{};
    EXPECT_TRUE(file.read(3, bytes.data(), 4));
    EXPECT_EQ(QByteArray(bytes.data(), 4), "3456");
}

TEST(RegularFile, TellsThatTheFileWasCutShort)
{
    const StoredFile stored("0123456789");
    const RegularFile file(stored.path());
    stored.cutTo(5);
    std::array<char, 4> bytes{};
    EXPECT_TRUE(file.holds(3, 4)) << "it did when it was opened";
    EXPECT_FALSE(file.read(3, bytes.data(), 4));
}

TEST(RegularFile, RefusesWhatIsNoFile)
{
    const StoredFile stored("");
    EXPECT_FALSE(RegularFile().isOpen());
    EXPECT_FALSE(RegularFile(QString()).isOpen());
    EXPECT_FALSE(RegularFile(stored.missingPath()).isOpen());
    EXPECT_FALSE(RegularFile(stored.path()).isOpen()) << "an empty one";
    EXPECT_FALSE(RegularFile(QStringLiteral("/dev/null")).isOpen());
    EXPECT_FALSE(RegularFile(stored.path() + QChar(0) + "x").isOpen());
}

// A program that runs is written by nobody.
TEST(RegularFile, ThatIsOnlyReadMayBeEmptyOrProtected)
{
    const StoredFile stored("");
    const RegularFile empty(stored.path(), FileAccess::Read);
    EXPECT_TRUE(empty.isOpen());
    EXPECT_EQ(empty.size(), 0);
    const QString program(QStringLiteral("/proc/self/exe"));
    EXPECT_FALSE(RegularFile(program).isOpen());
    EXPECT_TRUE(RegularFile(program, FileAccess::Read).holds(0, 10));
    const RegularFile refused(QStringLiteral("/dev/null"), FileAccess::Read);
    EXPECT_FALSE(refused.isOpen());
    EXPECT_EQ(refused.size(), 0);
}

TEST(RegularFile, ClosesWhatItDoesNotHandOver)
{
    const StoredFile stored("0123456789");
    const OpenResources before = OpenResources::of(stored.path());
    int descriptor = -1;
    {
        const RegularFile closed(stored.path());
        RegularFile handedOver(stored.path());
        descriptor = handedOver.release();
        EXPECT_FALSE(handedOver.isOpen());
    }
    EXPECT_EQ(close(descriptor), 0);
    EXPECT_EQ(OpenResources::of(stored.path()), before);
}

} // namespace regular_file_test
