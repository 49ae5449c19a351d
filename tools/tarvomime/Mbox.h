// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace tarvomime::tool {

/// The messages of an mbox file, one after the other.
///
/// A message begins behind a line "From " that stands at the start or behind an empty line and
/// holds a time of day ("From a@b Mon Jun  3 10:15:00 2024"), and ends before the empty line in
/// front of the next one. A file that does not begin so is one message.
class MboxReader
{
public:
    explicit MboxReader(std::string_view bytes);

    bool isMbox() const { return mIsMbox; }
    /// The next message; false when there is none left.
    bool next(std::string_view& message);

private:
    std::size_t findSeparator(std::size_t from) const;

    std::string_view mBytes;
    bool mIsMbox;
    /// Where the next message, its separator line included, begins.
    std::size_t mNext = 0;
};

} // namespace tarvomime::tool
