// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <initializer_list>
#include <string_view>

namespace tarvomime {

/// What stands as the text of a component that refuses to be written, because its text would be too
/// long. It is empty, so that nothing is written of it, and known by where its bytes lie: whoever
/// writes the texts of components asks `isRefused` first and gives the whole up.
///
/// A field leaves it as its line, a header as its text when one of its fields did; a body holds it
/// where what it was given could not be encoded.
QCString refusedText();
bool isRefused(const QCString& text);

/// The pieces one behind the other, in one allocation; `refusedText()` when they are too long
/// together.
QCString joined(std::initializer_list<std::string_view> pieces);

} // namespace tarvomime
