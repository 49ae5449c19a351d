// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <vector>

/// Calls `check` with every string of `maxLength` bytes or fewer over `alphabet`, shortest first.
template <class Check>
void forEveryString(const QByteArray& alphabet, int maxLength, Check check)
{
    for (int length = 0; length <= maxLength; ++length) {
        QByteArray text(length, alphabet[0]);
        std::vector<int> digits(static_cast<std::size_t>(length), 0);
        for (;;) {
            check(text);
            int position = length - 1;
            while (position >= 0 && digits[position] == alphabet.size() - 1) {
                digits[position] = 0;
                text[position--] = alphabet[0];
            }
            if (position < 0)
                break;
            text[position] = alphabet[++digits[position]];
        }
    }
}
