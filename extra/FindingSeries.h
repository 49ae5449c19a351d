// SPDX-License-Identifier: MIT
#pragma once

#include "extra/PartExamination.h"

namespace tarvomime {

/// Findings of which one part may give rise to as many as it has lines or fields: the first ones
/// are reported, and the last of them says how many more there are.
class FindingSeries
{
public:
    FindingSeries(const PartExamination& part, FindingKind kind, int most)
        : mPart(part), mKind(kind), mMost(most)
    {
    }

    void add(const QString& text, std::string_view where)
    {
        if (++mCount > mMost)
            return;
        mLast = static_cast<int>(mPart.findings.size());
        mPart.report(mKind, text, where);
    }

    /// To be called when all were added.
    void tellMore() const
    {
        if (mCount > mMost)
            mPart.findings[mLast].text += QStringLiteral(", like %1 more").arg(mCount - mMost);
    }

private:
    const PartExamination& mPart;
    FindingKind mKind;
    int mMost;
    int mCount = 0;
    // Index of the last one that was reported.
    int mLast = 0;
};

} // namespace tarvomime
