// SPDX-License-Identifier: MIT
// The k-th system call of a kind fails, for every k that an operation reaches.
#include "tests/faults/FailingCalls.h"
#include "tests/faults/JobTest.h"
#include "tests/support/RowNames.h"

#include <vector>

namespace system_calls_test {

namespace {

constexpr int kSize = 70000;
// More calls than any operation makes: a row that never ends would not end the test.
constexpr int kMostCalls = 200;

class SystemCalls : public testing::TestWithParam<FileJob>
{
protected:
    void SetUp() override
    {
        if (!FailingCalls::arePossible())
            GTEST_SKIP() << "the library that lets calls fail is not preloaded: run by ctest, and "
                            "without sanitizers, which want to be the first library themselves";
    }

    // How often the operation called what `call` stands for.
    static int callsOf(const PreparedJob& job, SystemCall call)
    {
        for (int nth = 1; nth <= kMostCalls; ++nth) {
            QFile out(job.outPath());
            EXPECT_TRUE(out.open(QIODevice::WriteOnly));
            const FailingCalls failing(call, Failure::Error, nth);
            job.runTo(out);
            if (!failing.reached())
                return nth - 1;
        }
        return kMostCalls;
    }

    // That it goes on as if nothing had been, whichever call comes back like this.
    static void expectNoHarm(const PreparedJob& job, SystemCall call, Failure failure)
    {
        const int calls = callsOf(job, call);
        for (int nth = 1; nth <= calls; ++nth) {
            QFile out(job.outPath());
            ASSERT_TRUE(out.open(QIODevice::WriteOnly));
            int result = -1;
            {
                const FailingCalls failing(call, failure, nth);
                result = job.runTo(out);
            }
            out.close();
            EXPECT_EQ(result, 0) << nth;
            EXPECT_TRUE(contentOf(job.outPath()) == job.expected()) << nth;
        }
    }
};

void expectFailures(const PreparedJob& job, SystemCall call, Failure failure, int calls)
{
    for (int nth = 1; nth <= calls; ++nth) {
        SCOPED_TRACE(nth);
        job.expectFailure([&] { return FailingCalls(call, failure, nth); });
    }
}

} // namespace

TEST_P(SystemCalls, OpeningFails)
{
    const PreparedJob job(GetParam(), kSize);
    const int calls = callsOf(job, SystemCall::Open);
    EXPECT_GE(calls, 1);
    expectFailures(job, SystemCall::Open, Failure::Error, calls);
}

TEST_P(SystemCalls, ReadingFails)
{
    const PreparedJob job(GetParam(), kSize);
    const int calls = callsOf(job, SystemCall::Read);
    expectFailures(job, SystemCall::Read, Failure::Error, calls);
}

TEST_P(SystemCalls, InterruptedAndShortReadsGoOn)
{
    const PreparedJob job(GetParam(), kSize);
    expectNoHarm(job, SystemCall::Read, Failure::Interrupted);
    expectNoHarm(job, SystemCall::Read, Failure::Short);
}

TEST_P(SystemCalls, InterruptedOpeningGoesOn)
{
    const PreparedJob job(GetParam(), kSize);
    expectNoHarm(job, SystemCall::Open, Failure::Interrupted);
}

INSTANTIATE_TEST_SUITE_P(Jobs, SystemCalls, testing::ValuesIn(allJobs()), rowName<FileJob>);

namespace {

// The library's own opening: what Qt asks of the file system it can do without.
class StoredBodyCalls : public SystemCalls
{
};

} // namespace

TEST_P(StoredBodyCalls, AskingForTheSizeFails)
{
    const PreparedJob job(GetParam(), kSize);
    const int calls = callsOf(job, SystemCall::Stat);
    EXPECT_GE(calls, 1);
    expectFailures(job, SystemCall::Stat, Failure::Error, calls);
}

TEST_P(StoredBodyCalls, TheFileEndsWhileItIsRead)
{
    const PreparedJob job(GetParam(), kSize);
    const int calls = callsOf(job, SystemCall::Read);
    EXPECT_GE(calls, 1);
    expectFailures(job, SystemCall::Read, Failure::Nothing, calls);
}

TEST_P(StoredBodyCalls, NothingIsMapped)
{
    EXPECT_EQ(callsOf(PreparedJob(GetParam(), kSize), SystemCall::Map), 0);
}

INSTANTIATE_TEST_SUITE_P(Jobs, StoredBodyCalls, testing::ValuesIn(streamingJobs()),
                         rowName<FileJob>);

namespace {

// A small file is read instead.
class MappingCalls : public SystemCalls
{
};

constexpr int kBigSize = 200000;

} // namespace

TEST_P(MappingCalls, Fail)
{
    const PreparedJob job(GetParam(), kBigSize);
    const int calls = callsOf(job, SystemCall::Map);
    EXPECT_EQ(calls, 1);
    expectFailures(job, SystemCall::Map, Failure::Error, calls);
}

INSTANTIATE_TEST_SUITE_P(Jobs, MappingCalls, testing::ValuesIn(mappingJobs()), rowName<FileJob>);

namespace {

class WritingCalls : public SystemCalls
{
};

std::vector<FileJob> writingJobs()
{
    std::vector<FileJob> jobs;
    for (const FileJob& job : streamingJobs()) {
        if (job.writes)
            jobs.push_back(job);
    }
    return jobs;
}

} // namespace

TEST_P(WritingCalls, FailAtEverySize)
{
    for (const int size : {1, 100, 16384, 16385, 32768, 70000}) {
        SCOPED_TRACE(size);
        const PreparedJob job(GetParam(), size);
        const int calls = callsOf(job, SystemCall::Write);
        EXPECT_GE(calls, 1);
        expectFailures(job, SystemCall::Write, Failure::Error, calls);
    }
}

TEST_P(WritingCalls, InterruptedAndShortOnesGoOn)
{
    for (const int size : {1, 16384, 70000}) {
        SCOPED_TRACE(size);
        const PreparedJob job(GetParam(), size);
        expectNoHarm(job, SystemCall::Write, Failure::Interrupted);
        expectNoHarm(job, SystemCall::Write, Failure::Short);
    }
}

INSTANTIATE_TEST_SUITE_P(Jobs, WritingCalls, testing::ValuesIn(writingJobs()), rowName<FileJob>);

} // namespace system_calls_test
