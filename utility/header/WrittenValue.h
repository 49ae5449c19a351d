// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

namespace tarvomime {

/// A typed field whose written value would be longer keeps the text that it was read from. Short
/// parameters may share one long value, so that what is written grows with the square of what was
/// read; no receiver knows what to do with a value of this length.
constexpr qint64 kLongestWrittenValue = 1048576;

/// What `mParsed` says of a typed field. The members of one that is `Rewritten` are authoritative;
/// one that is `Kept` was read from a value too long to be written, and its text stands.
enum Parsed { Unparsed = 0, Rewritten = 1, Kept = 2 };

/// The state of a field in state `before` that was read from its text and would now be written in
/// `size` bytes. What an application has set is never put aside.
inline int parsedState(int before, qint64 size)
{
    return before != Rewritten && size > kLongestWrittenValue ? Kept : Rewritten;
}

} // namespace tarvomime
