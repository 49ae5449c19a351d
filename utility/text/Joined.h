// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <QByteArray>
#include <initializer_list>
#include <string_view>

namespace tarvomime {

/// Appends the bytes of `text` without terminating or copying it first.
inline void appendText(QByteArray& out, const QCString& text)
{
    out.append(text.begin(), text.length());
}

/// The pieces one behind the other, in one allocation; `refusedText()` when they are too long
/// together.
QCString joined(std::initializer_list<std::string_view> pieces);

} // namespace tarvomime
