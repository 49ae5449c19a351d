// SPDX-License-Identifier: MIT
#include "utility/time/DisplayNumber.h"

namespace tarvomime {

// 1. A negative number gets the "0" too: -3 reads "0-3".
QString paddedNumber(int number)
{
    const QString digits = QString::number(number);
    return number < 10 ? QLatin1Char('0') + digits : digits;
}

} // namespace tarvomime
