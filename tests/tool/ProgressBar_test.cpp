// SPDX-License-Identifier: MIT
#include "tools/tarvomime/ProgressBar.h"

#include "tools/tarvomime/Descriptor.h"

#include <QThread>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <string>

namespace progress_bar_test {

using tarvomime::tool::Descriptor;
using tarvomime::tool::ProgressBar;

namespace {

// Puts `descriptor` in the place of standard error while it lives.
class StandardError
{
public:
    explicit StandardError(int descriptor) : mOld(dup(STDERR_FILENO))
    {
        dup2(descriptor, STDERR_FILENO);
    }
    ~StandardError()
    {
        std::fflush(stderr);
        dup2(mOld.number(), STDERR_FILENO);
    }

private:
    const Descriptor mOld;
};

// What waits to be read, without waiting for more.
std::string readAll(const Descriptor& descriptor)
{
    std::string text;
    char block[4096];
    pollfd waiting{descriptor.number(), POLLIN, 0};
    while (poll(&waiting, 1, 0) == 1 && (waiting.revents & POLLIN) != 0) {
        const ssize_t count = read(descriptor.number(), block, sizeof block);
        if (count <= 0)
            break;
        text.append(block, static_cast<std::size_t>(count));
    }
    return text;
}

// A quarter of the work at once, and as much again when more than a second has passed.
void workForMoreThanASecond()
{
    ProgressBar bar("Writing", 200);
    bar.advance(50);
    QThread::msleep(1100);
    bar.advance(50);
    EXPECT_EQ(bar.done(), 100);
}

} // namespace

TEST(ProgressBar, ShowsOnATerminalAfterASecondAndIsWipedAway)
{
    const Descriptor screen(posix_openpt(O_RDWR | O_NOCTTY));
    ASSERT_TRUE(screen.isOpen());
    ASSERT_EQ(grantpt(screen.number()), 0);
    ASSERT_EQ(unlockpt(screen.number()), 0);
    const Descriptor terminal(open(ptsname(screen.number()), O_RDWR | O_NOCTTY));
    ASSERT_TRUE(terminal.isOpen());
    {
        const StandardError redirected(terminal.number());
        workForMoreThanASecond();
    }
    EXPECT_EQ(readAll(screen), "\r\x1B[KWriting [####################                    ] 50 %"
                               "\r\x1B[K");
}

TEST(ProgressBar, IsSilentWhereStandardErrorIsNoTerminal)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const Descriptor reading(ends[0]);
    const Descriptor writing(ends[1]);
    {
        const StandardError redirected(writing.number());
        workForMoreThanASecond();
    }
    EXPECT_EQ(readAll(reading), "");
}

} // namespace progress_bar_test
