// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarvomime {

/// `number` in decimal, with a "0" before it when it is below ten.
QString paddedNumber(int number);

} // namespace tarvomime
