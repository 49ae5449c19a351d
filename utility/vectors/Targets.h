// SPDX-License-Identifier: MIT
#pragma once

// The kinds of processors that vectors are compiled for. Included in front of the vector library by
// everyone who asks it for its targets, so that all get the same answer.
//
// Of the vector library only headers are used. Its shared object calibrates a timer when it is
// loaded, which took longer than all else that a short program does.

/// Checks of the vector library's own would call that shared object.
#define HWY_IS_DEBUG_BUILD 0

/// The newest x86 instructions are left out by the vector library unless they are asked for.
#define HWY_WANT_AVX3_DL 1

/// Nothing here is encrypted or computed with half floats: a processor without is as good.
#define HWY_DISABLE_PCLMUL_AES
#define HWY_DISABLE_F16C

/// Only what Processor.h lists. Left out are:
/// - what later versions of the vector library know beyond AVX-512 with VBMI2 (lower numbers) and
///   before SSSE3 (the next two), which brought the first look-up of bytes in a table;
/// - vectors whose size only the running processor knows: they can neither be members nor elements,
///   and the steps here are laid out for 16, 32 and 64 bytes. Processors that have them have NEON
///   too, which takes the same 16 bytes at a time.
#define HWY_DISABLED_TARGETS                                                                       \
    ((HWY_AVX3_DL - 1) | (HWY_SSSE3 << 1) | (HWY_SSSE3 << 2) | HWY_SVE | HWY_SVE2 | HWY_SVE_256 |  \
     HWY_SVE2_128 | HWY_RVV)

/// Where a processor's vectors are all of one kind, nothing is chosen while running.
#ifdef __aarch64__
#define HWY_COMPILE_ONLY_STATIC
#endif

#include <hwy/detect_targets.h>

/// Without vectors of its own a processor leaves all to the plain walk: emulated ones are slower.
#define TARVOMIME_HAS_VECTORS                                                                      \
    ((HWY_ARCH_X86 || HWY_ARCH_ARM) && HWY_TARGET != HWY_SCALAR && HWY_TARGET != HWY_EMU128)

/// AVX-512 with VBMI and VBMI2.
#define TARVOMIME_HAS_VBMI (HWY_ARCH_X86 && HWY_TARGET == HWY_AVX3_DL)
