// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TarvomimeExtraExport.h"

#include <QString>

namespace tarvomime {

/// The readable plain text of an HTML document or of a piece of one.
///
/// Paragraphs are separated by an empty line, list items begin with "- " or their number, the cells
/// of a table row stand in one line with " | " between them, quoted text has "> " in front of each
/// line, a link is followed by its address in angle brackets unless it is the same, and an image is
/// its alternative text in brackets.
///
/// Nothing that a reader would not see is in the text: scripts, styles, the head, comments, and
/// elements that say `hidden` or hide themselves by an inline style (display:none,
/// visibility:hidden, opacity:0, mso-hide:all). Style sheets are not computed. Nothing is fetched.
///
/// Takes time and memory linear in the text; lists and quotes nested more than ten levels deep are
/// no longer told apart, and whatever is nested deep inside something hidden hides the rest too.
///
/// The first call loads libxml2; where that is missing, the HTML is given back as it is.
TARVOMIME_EXTRA_EXPORT QString textFromHtml(const QString& html);

} // namespace tarvomime
