// SPDX-License-Identifier: MIT
#include "tests/support/OpenResources.h"
#include "utility/file/WholeFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace whole_file_test {

namespace {

using tarvomime::WholeFile;

struct WholeFileRow
{
    const char* name;
    int size;
    bool isMapped;
};

void PrintTo(const WholeFileRow& row, std::ostream* out)
{
    *out << row.name << ": " << row.size << " bytes";
}

class WholeFiles : public testing::TestWithParam<WholeFileRow>
{
protected:
    QString fileWith(const QByteArray& bytes) const
    {
        QFile file(mFolder.filePath("file"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return file.fileName();
    }

    QTemporaryDir mFolder;
};

} // namespace

TEST_P(WholeFiles, HoldAllBytesAndLeaveNothing)
{
    const WholeFileRow& row = GetParam();
    QByteArray bytes(row.size, '\0');
    for (int i = 0; i < row.size; ++i)
        bytes[i] = char(i * 7 + i / 256);
    const QString path = fileWith(bytes);
    const OpenResources before = OpenResources::of(path);
    {
        const WholeFile file(path);
        const std::string_view view = file.view();
        ASSERT_EQ(view.size(), std::size_t(row.size));
        EXPECT_TRUE(QByteArray::fromRawData(view.data(), row.size) == bytes);
        const OpenResources during = OpenResources::of(path);
        EXPECT_EQ(during.descriptors, before.descriptors);
        EXPECT_EQ(during.mappings, before.mappings + (row.isMapped ? 1 : 0));
    }
    EXPECT_EQ(OpenResources::of(path), before);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, WholeFiles,
    testing::Values(WholeFileRow{"shortest", 1, false},
                    WholeFileRow{"longest that is read", WholeFile::kLongestRead, false},
                    WholeFileRow{"shortest that is mapped", WholeFile::kLongestRead + 1, true}));

TEST(WholeFile, RefusesWhatIsNoFile)
{
    const QTemporaryDir folder;
    QFile empty(folder.filePath("empty"));
    ASSERT_TRUE(empty.open(QIODevice::WriteOnly));
    empty.close();
    for (const QString& path :
         {QString(), folder.path(), folder.filePath("missing"), empty.fileName()}) {
        EXPECT_TRUE(WholeFile(path).view().empty()) << path.toStdString();
    }
}

} // namespace whole_file_test
