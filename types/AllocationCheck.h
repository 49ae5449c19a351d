// SPDX-License-Identifier: MIT
#pragma once

// The C library declares its handler only while NDEBUG is not set; including its header a second
// time gives assert() back the meaning that this build asked for.
#pragma push_macro("NDEBUG")
#undef NDEBUG
#include <cassert>
#pragma pop_macro("NDEBUG")
#include <cassert>

/// Stops the program through the C library's assertion handler when what was `allocated` is null or
/// false, in every build type: a component without its children cannot go on. The message shows
/// `name`, the source file of the class, wherever the check itself stands, and `signature`, which
/// is spelled out since compilers differ in how they print one.
#define TARVOMIME_CHECK_ALLOCATION(allocated, name, source, signature)                             \
    do {                                                                                           \
        if (!(allocated))                                                                          \
            __assert_fail(name, source, __LINE__, signature);                                      \
    } while (false)
