// SPDX-License-Identifier: MIT
#pragma once

#include "utility/vectors/Processor.h"
#include "utility/vectors/Stretch.h"
#include "utility/vectors/Targets.h"

#include <array>
#include <cstddef>
#include <cstdint>

// A function over vectors is compiled once for each kind of processor; here its form for the
// running one is found.

namespace tarvomime {

/// Text as the vector library wants it.
inline const std::uint8_t* rawBytes(const char* text)
{
    return reinterpret_cast<const std::uint8_t*>(text);
}

inline std::uint8_t* rawBytes(char* text)
{
    return reinterpret_cast<std::uint8_t*>(text);
}

/// A function's forms, in the order of `Processor`; null where none was compiled.
template <class Function>
using Forms = std::array<Function*, kProcessors>;

template <class Function>
Function* formHere(const Forms<Function>& forms)
{
    return forms[static_cast<std::size_t>(processor())];
}

/// Takes what it can from the start of its input.
using StretchFunction = Stretch(const std::uint8_t* in, std::size_t length, std::uint8_t* out,
                                std::size_t room);

/// The plain form of each: all is left to the plain walk.
inline Stretch takeNothing(const std::uint8_t*, std::size_t, std::uint8_t*, std::size_t)
{
    return {};
}

} // namespace tarvomime

// A 64-bit ARM has one kind of vectors, by whatever name the vector library calls it.
#if HWY_ARCH_ARM_A64
#define TARVOMIME_NEON_FORM(form) &HWY_STATIC_DISPATCH(form)
#else
#define TARVOMIME_NEON_FORM(form) HWY_CHOOSE_NEON(form)
#endif

/// The forms of `form`, which stands in the namespaces that the vector library keeps for each kind,
/// and `plain`.
#define TARVOMIME_FORMS(form, plain)                                                               \
    {                                                                                              \
        HWY_CHOOSE_AVX3_DL(form), HWY_CHOOSE_AVX3(form), HWY_CHOOSE_AVX2(form),                    \
            HWY_CHOOSE_SSE4(form), HWY_CHOOSE_SSSE3(form), TARVOMIME_NEON_FORM(form), &(plain)     \
    }

/// Defines `name`, which a *Stretch.h declares, by its forms.
#define TARVOMIME_DEFINE_STRETCH(name, form)                                                       \
    Stretch name(const char* in, std::size_t length, char* out, std::size_t room)                  \
    {                                                                                              \
        static constexpr Forms<StretchFunction> kForms = TARVOMIME_FORMS(form, takeNothing);       \
        return formHere(kForms)(rawBytes(in), length, rawBytes(out), room);                        \
    }
