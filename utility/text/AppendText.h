// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <QByteArray>

namespace tarvomime {

/// Appends the bytes of `text` without terminating or copying it first.
inline void appendText(QByteArray& out, const QCString& text)
{
    out.append(text.begin(), text.length());
}

} // namespace tarvomime
