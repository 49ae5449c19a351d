// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <string_view>

class EMAIL_Field;
class EMAIL_Header;

namespace tarvomime {

/// `EMAIL_Header::createField` for a name that lies in `text`: a known one is compared where it
/// lies and never cut out.
EMAIL_Field* createFieldOf(EMAIL_Header& header, const QCString& text, std::string_view name);

} // namespace tarvomime
