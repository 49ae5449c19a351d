// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#ifdef TARVOMIME_SIMD

// First of all: it says which targets there are.
#include "utility/codec/VectorTargets.h"

#include <hwy/targets.h>

/// Calls `check` once for each kind of processor that this one can stand in for.
template <class Check>
void onEveryProcessor(Check check)
{
    for (const std::int64_t target : hwy::SupportedAndGeneratedTargets()) {
        SCOPED_TRACE(hwy::TargetName(target));
        hwy::SetSupportedTargetsForTest(target);
        hwy::GetChosenTarget().Update(hwy::SupportedTargets());
        check();
    }
    hwy::SetSupportedTargetsForTest(0);
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
}

#else

template <class Check>
void onEveryProcessor(Check check)
{
    check();
}

#endif
