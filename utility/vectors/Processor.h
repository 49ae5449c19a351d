// SPDX-License-Identifier: MIT
#pragma once

namespace tarvomime {

/// The kinds of processors, best first: each can stand in for those behind it.
enum class Processor {
    Avx512Vbmi, ///< AVX-512 with VBMI and VBMI2
    Avx512,
    Avx2,
    Sse4,
    Ssse3,
    Neon,
    Plain, ///< no vectors
};

constexpr int kProcessors = static_cast<int>(Processor::Plain) + 1;

const char* processorName(Processor kind);

/// Whether this processor can stand in for `kind` and vectors were compiled for it. Plain always.
bool runsAs(Processor kind);

/// The kind whose vectors are used: the best one.
Processor processor();

/// For tests and measurements: `kind`, which this processor runs as, is used from now on.
void useProcessor(Processor kind);

} // namespace tarvomime
