// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// Calls `visit` with every text of 0 to `maxLength` characters over `alphabet`.
template <typename Visit>
void forAllStrings(const QByteArray& alphabet, int maxLength, Visit visit)
{
    QByteArray text("");
    const auto extend = [&](const auto& self) -> void {
        visit(static_cast<const QByteArray&>(text));
        if (text.size() == maxLength)
            return;
        for (const char c : alphabet) {
            text.append(c);
            self(self);
            text.chop(1);
        }
    };
    extend(extend);
}
