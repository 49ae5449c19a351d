// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TarvomimeExtraExport.h"

#include <QString>

namespace tarvomime {

/// The readable plain text of text/enriched (RFC 1896): lines that only wrap are one again,
/// excerpts have "> " in front of each line, and commands and their parameters are gone. What only
/// begins like a command is text. Takes time linear in the text.
TARVOMIME_EXTRA_EXPORT QString textFromEnriched(const QString& enriched);

/// The same for text/richtext, its predecessor (RFC 1341, section 7.1.3), where line ends mean
/// nothing and `<nl>` and paragraphs break lines.
TARVOMIME_EXTRA_EXPORT QString textFromRichText(const QString& richText);

} // namespace tarvomime
