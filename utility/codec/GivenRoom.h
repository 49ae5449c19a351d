// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>
#include <string_view>

namespace tarvomime {

/// Bytes that a caller has to be written to.
struct GivenRoom
{
    char* out;
    unsigned long size;
};

/// The room for a longer input is not told: no machine holds it, and sums could not.
constexpr unsigned long kLongestForRoom = sizeof(unsigned long) > 4
                                              ? static_cast<unsigned long>((quint64{1} << 60) - 1)
                                              : ~0UL;

/// Runs a codec from memory into `given`, of which it needs `needed` bytes. Returns the length of
/// the result; -1, and nothing written, where the room is too small, cannot be told (`needed` below
/// 0) or a pointer is null.
template <class Codec>
qint64 runIntoRoom(Codec codec, std::string_view input, qint64 needed, GivenRoom given)
{
    const bool isRoom = input.data() != nullptr && given.out != nullptr && needed >= 0 &&
                        quint64(needed) <= given.size;
    if (!isRoom)
        return -1;
    codec.take(input);
    return codec.finish(codec.run(given.out, given.out + needed)) - given.out;
}

} // namespace tarvomime
