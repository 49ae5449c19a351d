// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <random>
#include <vector>

/// Texts glued together from the given pieces at random; the same seed gives the same texts.
class RandomText
{
public:
    RandomText(unsigned int seed, std::vector<QByteArray> pieces)
        : mEngine(seed), mPieces(std::move(pieces))
    {
    }

    /// A text of 0 to `maxPieces` pieces.
    QByteArray next(unsigned int maxPieces)
    {
        QByteArray text("");
        for (unsigned long count = mEngine() % (maxPieces + 1); count > 0; --count)
            text += mPieces[mEngine() % mPieces.size()];
        return text;
    }

private:
    std::mt19937 mEngine;
    std::vector<QByteArray> mPieces;
};
