// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <random>

/// Noise that is the same for the same seed on every machine.
inline QByteArray randomBytes(int length, unsigned seed)
{
    std::mt19937 random(seed);
    QByteArray bytes(length, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}
