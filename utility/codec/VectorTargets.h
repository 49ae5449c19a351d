// SPDX-License-Identifier: MIT
#pragma once

// The kinds of processors that the codecs' vectors are compiled for. Included in front of the
// vector library by everyone who asks it for its targets, so that all get the same answer.

/// The newest x86 instructions are left out by the vector library unless they are asked for.
#define HWY_WANT_AVX3_DL 1

/// Vectors whose size only the running processor knows can neither be members nor elements, and the
/// steps here are laid out for 16, 32 and 64 bytes. Processors that have them have NEON too, which
/// takes the same 16 bytes at a time.
#define HWY_DISABLED_TARGETS (HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_SVE2_128 | HWY_RVV)

/// Without vectors of its own a processor leaves all to the plain walk: emulated ones are slower.
#define TARVOMIME_HAS_VECTORS (HWY_TARGET != HWY_SCALAR && HWY_TARGET != HWY_EMU128)

/// AVX-512 with VBMI and VBMI2. The vector library gives better targets lower numbers: whatever it
/// learns to name beyond this one has these instructions as well.
#define TARVOMIME_HAS_VBMI (HWY_ARCH_X86 && HWY_TARGET <= HWY_AVX3_DL)
