// SPDX-License-Identifier: MIT
#include "utility/vectors/Processor.h"

#include "utility/vectors/Targets.h"

#include <atomic>
#include <cstdint>

#if HWY_ARCH_ARM_V7
#include <asm/hwcap.h>
#include <sys/auxv.h>
#endif

namespace tarvomime {

namespace {

constexpr int kUnknown = -1;
std::atomic<int> used = kUnknown;

constexpr bool isCompiled(std::int64_t target)
{
    return (HWY_TARGETS & target) != 0;
}

#if HWY_ARCH_X86

// What the vector library lets the compiler use for each kind, as far as compilers use it unasked.
bool hasSsse3()
{
    __builtin_cpu_init();
    return __builtin_cpu_supports("ssse3") != 0;
}

bool hasSse4()
{
    return hasSsse3() && __builtin_cpu_supports("sse4.1") && __builtin_cpu_supports("sse4.2") &&
           __builtin_cpu_supports("popcnt");
}

bool hasAvx2()
{
    return hasSse4() && __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") &&
           __builtin_cpu_supports("bmi2") && __builtin_cpu_supports("fma");
}

bool hasAvx512()
{
    return hasAvx2() && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
           __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl");
}

bool hasAvx512Vbmi()
{
    return hasAvx512() && __builtin_cpu_supports("avx512vbmi") &&
           __builtin_cpu_supports("avx512vbmi2") && __builtin_cpu_supports("avx512bitalg") &&
           __builtin_cpu_supports("avx512vpopcntdq");
}

bool runsVectorsOf(Processor kind)
{
    switch (kind) {
    case Processor::Avx512Vbmi:
        return isCompiled(HWY_AVX3_DL) && hasAvx512Vbmi();
    case Processor::Avx512:
        return isCompiled(HWY_AVX3) && hasAvx512();
    case Processor::Avx2:
        return isCompiled(HWY_AVX2) && hasAvx2();
    case Processor::Sse4:
        return isCompiled(HWY_SSE4) && hasSse4();
    case Processor::Ssse3:
        return isCompiled(HWY_SSSE3) && hasSsse3();
    default:
        return false;
    }
}

#elif HWY_ARCH_ARM_V7

bool runsVectorsOf(Processor kind)
{
    constexpr unsigned long kNeeded = HWCAP_NEON | HWCAP_VFPv4;
    return kind == Processor::Neon && isCompiled(HWY_NEON) &&
           (getauxval(AT_HWCAP) & kNeeded) == kNeeded;
}

#else

// Every processor with 64 bits has NEON.
bool runsVectorsOf(Processor kind)
{
    return kind == Processor::Neon && TARVOMIME_HAS_VECTORS;
}

#endif

int bestKind()
{
    int kind = 0;
    while (!runsAs(static_cast<Processor>(kind)))
        ++kind;
    return kind;
}

} // namespace

const char* processorName(Processor kind)
{
    constexpr const char* kNames[kProcessors] = {
        "AVX-512 with VBMI2", "AVX-512", "AVX2", "SSE4", "SSSE3", "NEON", "no vectors"};
    return kNames[static_cast<int>(kind)];
}

bool runsAs(Processor kind)
{
    return kind == Processor::Plain || runsVectorsOf(kind);
}

Processor processor()
{
    int kind = used.load(std::memory_order_relaxed);
    // Two threads that come first find the same.
    if (kind == kUnknown)
        used.store(kind = bestKind(), std::memory_order_relaxed);
    return static_cast<Processor>(kind);
}

void useProcessor(Processor kind)
{
    used.store(static_cast<int>(kind), std::memory_order_relaxed);
}

} // namespace tarvomime
