// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <string_view>

/// Charsets and their names: in messages, as read and as the codecs know them.
namespace tarvomime {

int charsetFromName(std::string_view name);
int writeCharsetName(int charset, QCString& name);
/// The name to look the charset's codec up by.
const char* codecName(int charset);

} // namespace tarvomime
