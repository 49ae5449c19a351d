// SPDX-License-Identifier: MIT
#pragma once

#include "fuzz/support/Fuzz.h"

namespace tarvomime::fuzz {

/// Any text decodes, and the file form of `decode` gives the same bytes as its memory form.
template <class Decode>
void decodeBothWays(const QCString& text, Decode decode)
{
    unsigned long length = 0;
    const QByteArray decoded = decode(text.data(), &length);
    require(static_cast<unsigned long>(decoded.size()) == length, "the length is the result's");
    ScratchFile file;
    require(decode(text.begin(), text.length(), file.file()) == 0, "the file is written");
    require(file.content() == decoded, "file and memory hold the same bytes");
}

} // namespace tarvomime::fuzz
