// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>

class EMAIL_ContentType;
class EMAIL_Header;

namespace tarvomime {

/// Reads the Content-Type fields of one walk over a message. Messages with very many parts say the
/// same few types over and over: a field with the text of one that was read shortly before takes
/// what was read there, and shares it.
class TypeReader
{
public:
    /// The header's field, parsed; null when absent.
    const EMAIL_ContentType* read(const EMAIL_Header& header);
    /// Forgets the fields it knows: an application's own code may delete or change them.
    void forget() { mRecent = {}; }

private:
    // Fields as they were read from their text alone, the next one to be replaced at `mNext`.
    std::array<const EMAIL_ContentType*, 4> mRecent{};
    std::size_t mNext = 0;
};

} // namespace tarvomime
