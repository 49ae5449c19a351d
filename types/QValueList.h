// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

/// The implicitly shared value list of Qt's 2.x generation, under its old name.
template <class T>
using QValueList = QList<T>;
