// SPDX-License-Identifier: MIT
// Files that are cut short, replaced or taken away, disks without room, and processes without
// descriptors or with little stack. The file is looked at again whenever a body is read: what it
// was when it was parsed counts for nothing.
#include "tests/faults/JobTest.h"
#include "tests/support/RecordingFile.h"
#include "tests/support/RowNames.h"

#include <QDir>
#include <algorithm>
#include <climits>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

namespace file_faults_test {

namespace {

constexpr int kSize = 70000;
const int kSizes[] = {1, 100, 16384, 16385, 32768, 70000};

class FileFaults : public testing::TestWithParam<FileJob>
{
};

class StreamFaults : public testing::TestWithParam<FileJob>
{
};

// A limit of this process for as long as it lives.
class Limit
{
public:
    Limit(int resource, rlim_t value) : mResource(resource)
    {
        getrlimit(limited(), &mBefore);
        rlimit now = mBefore;
        now.rlim_cur = value;
        setrlimit(limited(), &now);
    }
    Limit(const Limit&) = delete;
    Limit& operator=(const Limit&) = delete;
    ~Limit() { setrlimit(limited(), &mBefore); }

private:
    __rlimit_resource limited() const { return static_cast<__rlimit_resource>(mResource); }

    int mResource;
    rlimit mBefore{};
};

// How many descriptors are open at most when no more than `left` can be added.
rlim_t descriptorsWith(int left)
{
    const int next = open("/dev/null", O_RDONLY);
    close(next);
    return static_cast<rlim_t>(next + left);
}

// Output that changes the stored file in front of the n-th write.
class MeddlingFile : public QFile
{
public:
    MeddlingFile(const QString& path, int nth, std::function<void()> meddle)
        : QFile(path), mLeft(nth), mMeddle(std::move(meddle))
    {
        open(QIODevice::WriteOnly);
    }
    bool hasMeddled() const { return mLeft <= 0; }

protected:
    qint64 writeData(const char* data, qint64 length) override
    {
        if (--mLeft == 0)
            mMeddle();
        return QFile::writeData(data, length);
    }

private:
    int mLeft;
    std::function<void()> mMeddle;
};

} // namespace

TEST_P(StreamFaults, AFileThatIsShorterThanItWas)
{
    const PreparedJob job(GetParam(), kSize);
    const auto size = static_cast<int>(QFile(job.stored().path()).size());
    for (const int length : {size - 200, 40000, 1, 0}) {
        SCOPED_TRACE(length);
        job.stored().cutTo(length);
        job.expectFailure([] { return 0; });
    }
    ASSERT_TRUE(QFile::remove(job.stored().path()));
    job.expectFailure([] { return 0; });
    ASSERT_TRUE(QDir().mkdir(job.stored().path()));
    job.expectFailure([] { return 0; });
}

TEST_P(StreamFaults, AFileThatIsReplacedByAsLongAOneIsRead)
{
    const PreparedJob job(GetParam(), kSize);
    const QString path = job.stored().path();
    const auto size = static_cast<int>(QFile(path).size());
    ASSERT_TRUE(QFile::remove(path));
    QFile other(path);
    ASSERT_TRUE(other.open(QIODevice::WriteOnly) && other.write(QByteArray(size, 'A')) == size);
    other.close();
    RecordingFile out;
    EXPECT_EQ(job.runTo(out), 0);
}

// Behind the last write there is nothing left to read: what is cut off then was used already.
TEST_P(StreamFaults, AFileThatIsCutShortDuringTheWork)
{
    const PreparedJob job(GetParam(), kSize);
    const QByteArray whole = contentOf(job.stored().path());
    int failures = 0;
    for (int nth = 1; GetParam().writes; ++nth) {
        const StoredFile& stored = job.stored();
        QFile file(stored.path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(whole) == whole.size());
        file.close();
        MeddlingFile out(job.outPath(), nth, [&stored] { stored.cutTo(10); });
        const OpenResources before = OpenResources::of(stored.path());
        const int result = job.runTo(out);
        EXPECT_EQ(OpenResources::of(stored.path()), before) << nth;
        if (!out.hasMeddled())
            break;
        failures += result == -1 ? 1 : 0;
        out.close();
        EXPECT_TRUE(job.expected().startsWith(contentOf(job.outPath()))) << nth;
        EXPECT_TRUE(result == -1 || contentOf(job.outPath()) == job.expected()) << nth;
    }
    EXPECT_EQ(failures > 0, GetParam().writes);
}

TEST_P(StreamFaults, TheCallbackStopsAtEveryBlock)
{
    const PreparedJob job(GetParam(), kSize);
    for (int nth = 1; GetParam().asks; ++nth) {
        int calls = 0;
        QFile out(job.outPath());
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        const OpenResources before = OpenResources::of(job.stored().path());
        const int result = job.runTo(out, [&] { return ++calls == nth ? -1 : 0; });
        EXPECT_EQ(OpenResources::of(job.stored().path()), before);
        out.close();
        EXPECT_EQ(result, calls < nth ? 0 : -1);
        if (calls < nth) {
            EXPECT_GE(nth, 3);
            break;
        }
        EXPECT_EQ(calls, nth);
        EXPECT_TRUE(job.expected().startsWith(contentOf(job.outPath())));
    }
}

TEST_P(StreamFaults, TheCallbackCutsTheFileShortAtEveryBlock)
{
    for (int nth = 1; GetParam().asks && nth <= 3; ++nth) {
        const PreparedJob job(GetParam(), 200000);
        int calls = 0;
        const auto cut = [&] { return ++calls == nth ? job.stored().cutTo(10) : void(), 0; };
        job.expectFailure([] { return 0; }, cut);
    }
}

TEST_P(StreamFaults, ADiskWithoutRoom)
{
    for (const int size : kSizes) {
        if (!GetParam().writes)
            continue;
        const PreparedJob job(GetParam(), size);
        QFile full(QStringLiteral("/dev/full"));
        ASSERT_TRUE(full.open(QIODevice::WriteOnly));
        const OpenResources before = OpenResources::of(job.stored().path());
        EXPECT_EQ(job.runTo(full), -1) << size;
        EXPECT_EQ(OpenResources::of(job.stored().path()), before) << size;
    }
}

TEST_P(StreamFaults, AFileThatMayNotGrowFurther)
{
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    for (const int limit : kSizes) {
        const PreparedJob job(GetParam(), kSize);
        if (job.expected().size() > limit) {
            SCOPED_TRACE(limit);
            job.expectFailure([limit] { return Limit(RLIMIT_FSIZE, static_cast<rlim_t>(limit)); });
        }
    }
    std::signal(SIGXFSZ, handler);
}

INSTANTIATE_TEST_SUITE_P(Jobs, StreamFaults, testing::ValuesIn(streamingJobs()), rowName<FileJob>);

TEST_P(FileFaults, NoDescriptorLeft)
{
    const PreparedJob job(GetParam(), kSize);
    QFile out(job.outPath());
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    const OpenResources before = OpenResources::of(job.stored().path());
    int result = 0;
    {
        const Limit limit(RLIMIT_NOFILE, descriptorsWith(0));
        result = job.runTo(out);
    }
    EXPECT_EQ(OpenResources::of(job.stored().path()), before);
    EXPECT_EQ(result, -1);
}

TEST_P(FileFaults, ThreeDescriptorsAreEnough)
{
    const PreparedJob job(GetParam(), kSize);
    QFile out(job.outPath());
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    {
        const Limit limit(RLIMIT_NOFILE, descriptorsWith(3));
        EXPECT_EQ(job.runTo(out), 0);
    }
    out.close();
    EXPECT_TRUE(contentOf(job.outPath()) == job.expected());
}

namespace {

struct ThreadWork
{
    const PreparedJob* job;
    int result;
};

void* runOnThread(void* argument)
{
    auto* work = static_cast<ThreadWork*>(argument);
    QFile out(work->job->outPath());
    work->result = out.open(QIODevice::WriteOnly) ? work->job->runTo(out) : -2;
    return nullptr;
}

} // namespace

TEST_P(FileFaults, AStackOf64KibibytesIsEnough)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "frames that are watched are several times as large";
#endif
    const PreparedJob job(GetParam(), kSize);
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    // Some processors have no smaller one: arm64 and ppc64el begin at 128 KiB.
    const auto size = std::max(std::size_t{65536}, static_cast<std::size_t>(PTHREAD_STACK_MIN));
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, size), 0);
    ThreadWork work{&job, -1};
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, runOnThread, &work), 0);
    ASSERT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
    EXPECT_EQ(work.result, 0);
    EXPECT_TRUE(contentOf(job.outPath()) == job.expected());
}

INSTANTIATE_TEST_SUITE_P(Jobs, FileFaults, testing::ValuesIn(allJobs()), rowName<FileJob>);

} // namespace file_faults_test
