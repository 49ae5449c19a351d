// SPDX-License-Identifier: MIT
#include "tools/tarvomime/ProgressBar.h"

#include "tools/tarvomime/Printable.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>
#include <utility>

namespace tarvomime::tool {

namespace {

constexpr auto kPatience = std::chrono::seconds(1);
constexpr auto kInterval = std::chrono::milliseconds(100);
constexpr int kWidth = 40;

} // namespace

ProgressBar::ProgressBar(std::string label, qint64 total)
    : mLabel(std::move(label)), mTotal(std::max<qint64>(total, 1)),
      mOnTerminal(isatty(STDERR_FILENO) == 1), mNextDraw(Clock::now() + kPatience)
{
}

ProgressBar::~ProgressBar()
{
    if (mDrawn)
        std::fputs("\r\x1B[K", stderr);
}

void ProgressBar::advance(qint64 amount)
{
    mDone += amount;
    if (!mOnTerminal)
        return;
    const Clock::time_point now = Clock::now();
    if (now < mNextDraw)
        return;
    mNextDraw = now + kInterval;
    draw();
}

void ProgressBar::draw()
{
    // The total may be an estimate: the bar stays short of its end until the work is done.
    const int percent = static_cast<int>(std::min<qint64>(mDone * 100 / mTotal, 99));
    const std::string bar(static_cast<std::size_t>(percent * kWidth / 100), '#');
    std::fprintf(stderr, "\r\x1B[K%s [%-*s] %d %%", printableLine(mLabel).constData(), kWidth,
                 bar.c_str(), percent);
    std::fflush(stderr);
    mDrawn = true;
}

} // namespace tarvomime::tool
