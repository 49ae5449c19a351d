// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#ifdef TARVOMIME_SIMD

#include "utility/vectors/Processor.h"

/// Calls `check` once for each kind of processor that this one can stand in for.
template <class Check>
void onEveryProcessor(Check check)
{
    const tarvomime::Processor best = tarvomime::processor();
    for (int kind = 0; kind < tarvomime::kProcessors; ++kind) {
        const auto processor = static_cast<tarvomime::Processor>(kind);
        if (!tarvomime::runsAs(processor))
            continue;
        SCOPED_TRACE(tarvomime::processorName(processor));
        tarvomime::useProcessor(processor);
        check();
    }
    tarvomime::useProcessor(best);
}

#else

template <class Check>
void onEveryProcessor(Check check)
{
    check();
}

#endif
