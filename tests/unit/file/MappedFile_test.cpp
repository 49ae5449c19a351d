// SPDX-License-Identifier: MIT
#include "tests/support/OpenResources.h"
#include "utility/EMAIL_Util.h"

#include <QTemporaryDir>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mapped_file_test {

namespace {

class MappedFile : public testing::Test
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

    // Refused at once, with nothing left open or mapped and the arguments as they were. The file is
    // looked at as the user `viewer`.
    void expectRefused(const QString& name, uid_t viewer = geteuid()) const
    {
        const uid_t owner = geteuid();
        const QString watched = name.isEmpty() ? mFolder.path() : name;
        FILE* stream = nullptr;
        char* data = nullptr;
        int size = 77;
        const OpenResources before = OpenResources::of(watched);
        ASSERT_EQ(seteuid(viewer), 0);
        const int result = EMAIL_Util::openBuffer(name, stream, data, size);
        ASSERT_EQ(seteuid(owner), 0);
        EXPECT_EQ(result, -1) << name.toStdString();
        EXPECT_EQ(OpenResources::of(watched), before) << name.toStdString();
        EXPECT_EQ(stream, nullptr);
        EXPECT_EQ(data, nullptr);
        EXPECT_EQ(size, 77);
    }

    QTemporaryDir mFolder;
};

TEST_F(MappedFile, ShowsTheWholeFile)
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

TEST_F(MappedFile, IsReadOnlyAndPrivateAndNotInherited)
{
    const QString name = fileWith("abc");
    FILE* stream = nullptr;
    char* data = nullptr;
    int size = 0;
    ASSERT_EQ(EMAIL_Util::openBuffer(name, stream, data, size), 0);
    QFile maps("/proc/self/maps");
    ASSERT_TRUE(maps.open(QIODevice::ReadOnly));
    QByteArray rights;
    for (const QByteArray& line : maps.readAll().split('\n')) {
        if (line.endsWith(QFile::encodeName(name)))
            rights = line.split(' ').at(1);
    }
    EXPECT_EQ(rights, "r--p");
    EXPECT_EQ(fcntl(fileno(stream), F_GETFD), FD_CLOEXEC);
    munmap(data, 3);
    fclose(stream);
}

TEST_F(MappedFile, LeavesNothingOnceReleased)
{
    const QString name = fileWith("abc");
    const OpenResources before = OpenResources::of(name);
    FILE* stream = nullptr;
    char* data = nullptr;
    int size = 0;
    ASSERT_EQ(EMAIL_Util::openBuffer(name, stream, data, size), 0);
    const OpenResources opened = OpenResources::of(name);
    EXPECT_EQ(opened.descriptors, before.descriptors + 1);
    EXPECT_EQ(opened.mappings, before.mappings + 1);
    EXPECT_EQ(munmap(data, static_cast<std::size_t>(size)), 0);
    EXPECT_EQ(fclose(stream), 0);
    EXPECT_EQ(OpenResources::of(name), before);
}

TEST_F(MappedFile, TheStreamReadsAndWrites)
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

TEST_F(MappedFile, ANameOutsideAscii)
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

TEST_F(MappedFile, RefusesAMissingFile)
{
    expectRefused(path("missing"));
    expectRefused(path("missing/file"));
    expectRefused("");
    expectRefused(QString());
}

TEST_F(MappedFile, RefusesAnEmptyFile)
{
    expectRefused(fileWith(""));
}

TEST_F(MappedFile, RefusesAFolder)
{
    expectRefused(mFolder.path());
}

TEST_F(MappedFile, RefusesAFifoWithoutWaiting)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(path("fifo")).constData(), 0600), 0);
    expectRefused(path("fifo"));
}

TEST_F(MappedFile, RefusesADevice)
{
    expectRefused("/dev/zero");
    expectRefused("/dev/null");
}

// Nobody, not even root, may write to a program that runs.
TEST_F(MappedFile, RefusesARunningProgram)
{
#ifdef TARVOMIME_EMULATED
    GTEST_SKIP() << "the program that runs is the emulator";
#endif
    expectRefused("/proc/self/exe");
}

TEST_F(MappedFile, RefusesAFileThatMayNotBeReadOrWritten)
{
    const QByteArray name = QFile::encodeName(fileWith("abc"));
    ASSERT_EQ(chmod(QFile::encodeName(mFolder.path()).constData(), 0755), 0);
    for (const mode_t rights : {0444, 0222, 0}) {
        ASSERT_EQ(chmod(name.constData(), rights), 0);
        // Permissions do not bind root.
        expectRefused(QFile::decodeName(name), geteuid() == 0 ? 65534 : geteuid());
    }
}

TEST_F(MappedFile, RefusesTwoGibibytes)
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

TEST_F(MappedFile, TakesTheLargestFileAnIntCanMeasure)
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

} // namespace mapped_file_test
