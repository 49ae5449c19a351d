// SPDX-License-Identifier: MIT
#include "tests/faults/AllocationTrial.h"

#include "tests/faults/NthAllocation.h"

#include <QString>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>
#include <sys/wait.h>
#include <unistd.h>

namespace {

enum Outcome { Whole = 50, Stopped, NotReached, TextLost, Unusable, FreeingAllocates, Leaks };

int assertionPipe = -1;

[[noreturn]] void endTrial(int outcome)
{
#ifdef TARVOMIME_COVERAGE
    // Only a process that ends as usual writes down which lines it came through.
    failAllocation(0);
    exit(outcome);
#else
    _exit(outcome);
#endif
}

} // namespace

// What the assertion says goes to the parent process.
extern "C" void __assert_fail(const char* assertion, const char* file, unsigned int,
                              const char* function)
{
    const std::string said = std::string(file) + ": " + function + ": " + assertion;
    const bool isWritten = write(assertionPipe, said.data(), said.size()) == ssize_t(said.size());
    endTrial(isWritten ? Stopped : EXIT_FAILURE);
}

namespace {

// What has failed must not have taken anything with it.
Outcome stateOf(std::unique_ptr<AllocationTrial>& trial)
{
    if (!trial->isUsable())
        return Unusable;
    failAllocation(1);
    trial.reset();
    const bool freeingAllocates = allocationHasFailed();
    failAllocation(0);
    return freeingAllocates ? FreeingAllocates : Whole;
}

// What is made once for the whole program is made here, also where the operation hides the need:
// a failing one leaves a text that its success would not have decoded.
void rehearse(const TrialMaker& make)
{
    make()->isUsable();
    auto trial = make();
    trial->act();
    stateOf(trial);
}

// The n-th allocation of the operation fails; tells whether there was one.
bool actWithFailure(AllocationTrial& trial, long n)
{
    failAllocation(n);
    try {
        trial.act();
    } catch (const std::bad_alloc&) {
        // Of a container of Qt's.
    }
    const bool hasFailed = allocationHasFailed();
    failAllocation(0);
    return hasFailed;
}

// When the libraries below Qt cannot open a converter, they keep what they had opened of it; Qt
// tells so.
bool keepsConverter = false;

void noteMessage(QtMsgType, const QMessageLogContext&, const QString& text)
{
    keepsConverter = keepsConverter || text.contains(QLatin1String("ucnv_open failed"));
}

// In a process of its own. What is made once for the whole program, also for a first failure, is
// made by the rounds before the last.
Outcome outcomeOf(const TrialMaker& make, long n)
{
    qInstallMessageHandler(noteMessage);
    long before = 0;
    for (int round = 0; round < 2; ++round) {
        rehearse(make);
        before = livingAllocations();
        auto trial = make();
        const bool hasFailed = actWithFailure(*trial, n);
        const Outcome state = stateOf(trial);
        if (state != Whole)
            return state;
        if (!hasFailed)
            return NotReached;
    }
    // The C library keeps what it knows of the time zone, and reads it again where it had to fail.
    rehearse(make);
    return livingAllocations() == before || keepsConverter ? Whole : Leaks;
}

struct Result
{
    int outcome;
    std::string assertion;
};

Result resultOf(const TrialMaker& make, long n)
{
    int ends[2];
    if (pipe(ends) != 0)
        return {-1, ""};
    const pid_t child = fork();
    if (child == 0) {
        assertionPipe = ends[1];
        endTrial(outcomeOf(make, n));
    }
    close(ends[1]);
    char said[400];
    const ssize_t length = ::read(ends[0], said, sizeof said);
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status),
            std::string(said, length > 0 ? std::size_t(length) : 0)};
}

} // namespace

void endTrialWithTextLost()
{
    endTrial(TextLost);
}

void expectEveryAllocationMayFail(const TrialMaker& make, const std::set<std::string>& assertions)
{
    constexpr long tooMany = 2000;
    long n = 1;
    for (;; ++n) {
        ASSERT_LT(n, tooMany);
        const Result result = resultOf(make, n);
        if (result.outcome == NotReached)
            break;
        if (result.outcome == Stopped)
            EXPECT_TRUE(assertions.contains(result.assertion)) << n << ": " << result.assertion;
        else
            EXPECT_EQ(result.outcome, Whole) << "with allocation " << n << " failing";
    }
    testing::Test::RecordProperty("allocations", int(n - 1));
}
