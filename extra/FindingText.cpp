// SPDX-License-Identifier: MIT
#include "extra/FindingText.h"

namespace tarvomime {

namespace {

QString shortened(const QString& text, int most)
{
    if (text.size() <= most)
        return text;
    const bool isInsideCharacter = text.at(most).isLowSurrogate();
    return text.left(isInsideCharacter ? most - 1 : most) + QStringLiteral("...");
}

} // namespace

QString shownName(const QString& name)
{
    return shortened(name, 200);
}

QString shownLabel(const QString& label)
{
    return shortened(label, 64);
}

} // namespace tarvomime
