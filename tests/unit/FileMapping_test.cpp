// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Util.h"

#include <QDir>
#include <QTemporaryDir>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class FileMapping : public testing::Test
{
protected:
    QString path(const char* name) const { return mFolder.filePath(name); }

    QString fileWith(const QByteArray& bytes) const
    {
        QFile file(path("file"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    static auto openDescriptors()
    {
        return QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System).size();
    }

    // Refused at once, with nothing left open and the arguments as they were.
    static void expectRefused(const QString& name)
    {
        FILE* stream = nullptr;
        char* data = nullptr;
        int size = 77;
        const auto before = openDescriptors();
        EXPECT_EQ(EMAIL_Util::openBuffer(name, stream, data, size), -1);
        EXPECT_EQ(openDescriptors(), before);
        EXPECT_EQ(stream, nullptr);
        EXPECT_EQ(data, nullptr);
        EXPECT_EQ(size, 77);
    }

    QTemporaryDir mFolder;
};

TEST_F(FileMapping, ShowsTheWholeFile)
{
    const QByteArray bytes = QByteArray("From: a\r\n\0\xFF", 11).repeated(1000);
    FILE* stream = nullptr;
    char* data = nullptr;
    int size = 0;
    ASSERT_EQ(EMAIL_Util::openBuffer(fileWith(bytes), stream, data, size), 0);
    EXPECT_EQ(QByteArray(data, size), bytes);
    EXPECT_EQ(munmap(data, static_cast<std::size_t>(size)), 0);
    EXPECT_EQ(fclose(stream), 0);
}

TEST_F(FileMapping, TheStreamReadsAndWrites)
{
    FILE* stream = nullptr;
    char* data = nullptr;
    int size = 0;
    const QString name = fileWith("abc");
    ASSERT_EQ(EMAIL_Util::openBuffer(name, stream, data, size), 0);
    EXPECT_EQ(munmap(data, static_cast<std::size_t>(size)), 0);
    EXPECT_EQ(fgetc(stream), 'a');
    fseek(stream, 0, SEEK_END);
    EXPECT_EQ(fputc('d', stream), 'd');
    EXPECT_EQ(fclose(stream), 0);
    EXPECT_EQ(QFile(name).size(), 4);
}

TEST_F(FileMapping, ANameOutsideAscii)
{
    QFile file(path("\xD0\x9F\xD0\xB8\xD1\x81\xD1\x8C\xD0\xBC\xD0\xBE"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("abc");
    file.close();
    FILE* stream = nullptr;
    char* data = nullptr;
    int size = 0;
    ASSERT_EQ(EMAIL_Util::openBuffer(file.fileName(), stream, data, size), 0);
    EXPECT_EQ(size, 3);
    munmap(data, 3);
    fclose(stream);
}

TEST_F(FileMapping, RefusesAMissingFile)
{
    expectRefused(path("missing"));
    expectRefused(path("missing/file"));
    expectRefused("");
    expectRefused(QString());
}

TEST_F(FileMapping, RefusesAnEmptyFile)
{
    expectRefused(fileWith(""));
}

TEST_F(FileMapping, RefusesAFolder)
{
    expectRefused(mFolder.path());
}

TEST_F(FileMapping, RefusesAFifoWithoutWaiting)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(path("fifo")).constData(), 0600), 0);
    expectRefused(path("fifo"));
}

TEST_F(FileMapping, RefusesADevice)
{
    expectRefused("/dev/zero");
    expectRefused("/dev/null");
}

// Nobody, not even root, may write to a program that runs.
TEST_F(FileMapping, RefusesARunningProgram)
{
    expectRefused("/proc/self/exe");
}

TEST_F(FileMapping, RefusesAReadOnlyFile)
{
    const QByteArray name = QFile::encodeName(fileWith("abc"));
    ASSERT_EQ(chmod(name.constData(), 0444), 0);
    ASSERT_EQ(chmod(QFile::encodeName(mFolder.path()).constData(), 0755), 0);
    // Permissions do not bind root: look at the file as somebody else.
    const bool isRoot = geteuid() == 0;
    ASSERT_EQ(isRoot ? seteuid(65534) : 0, 0);
    expectRefused(QFile::decodeName(name));
    ASSERT_EQ(isRoot ? seteuid(0) : 0, 0);
}

TEST_F(FileMapping, RefusesTwoGibibytes)
{
    const QString name = fileWith("abc");
    const QByteArray local = QFile::encodeName(name);
    const off_t tooLarge = off_t(1) << 31;
    for (const off_t size : {tooLarge, tooLarge + 1, off_t(1) << 32, (off_t(1) << 32) + 5}) {
        // Sparse: takes no room on the disk.
        ASSERT_EQ(truncate(local.constData(), size), 0);
        expectRefused(name);
    }
}

TEST_F(FileMapping, TakesTheLargestFileAnIntCanMeasure)
{
    const QString name = fileWith("abc");
    const int largest = std::numeric_limits<int>::max();
    ASSERT_EQ(truncate(QFile::encodeName(name).constData(), largest), 0);
    FILE* stream = nullptr;
    char* data = nullptr;
    int size = 0;
    ASSERT_EQ(EMAIL_Util::openBuffer(name, stream, data, size), 0);
    EXPECT_EQ(size, largest);
    EXPECT_EQ(QByteArray(data, 3), "abc");
    munmap(data, static_cast<std::size_t>(size));
    fclose(stream);
}

} // namespace
