// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>
#include <chrono>
#include <string>

namespace tarvomime::tool {

/// A bar on standard error for work that takes longer than a second; nothing at all where standard
/// error is no terminal. It is wiped away when it goes out of scope.
class ProgressBar
{
public:
    /// `total` is the amount of work, as exactly as it is known; `label` names the work.
    ProgressBar(std::string label, qint64 total);
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    ~ProgressBar();

    void advance(qint64 amount);
    qint64 done() const { return mDone; }

private:
    using Clock = std::chrono::steady_clock;

    void draw();

    std::string mLabel;
    qint64 mTotal;
    qint64 mDone = 0;
    bool mOnTerminal;
    bool mDrawn = false;
    Clock::time_point mNextDraw;
};

} // namespace tarvomime::tool
