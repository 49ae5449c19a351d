// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TarvomimeExtraExport.h"

#include <QString>

namespace tarvomime {

// Lines end in LF here, as texts in Qt do; CR before it is taken as part of the line's end.

/// What a stranger wrote as it can stand in a line of one's own text: blanks, line ends and control
/// characters between its words are one blank.
TARVOMIME_EXTRA_EXPORT QString oneLine(QString text);

/// The text with each line behind "> ", or ">" where it is a quote already. The signature behind
/// the last line "-- " and the empty lines at the end are left out.
TARVOMIME_EXTRA_EXPORT QString quotedText(const QString& text);

/// The paragraphs of text that came as format=flowed (RFC 3676): lines that flow are one again.
/// `delSp` is the parameter "delsp=yes": the blank at the end of a flowing line is not part of it.
TARVOMIME_EXTRA_EXPORT QString textFromFlowed(const QString& text, bool delSp = false);

/// The text as format=flowed: lines of at most 72 characters where there are blanks to end them at
/// (one of up to 78 stays whole), quotes and the signature's line kept. `textFromFlowed` makes the
/// paragraphs of it again. Quotes of more than a hundred marks stay in one line, so that the text
/// does not outgrow its bytes.
TARVOMIME_EXTRA_EXPORT QString flowedText(const QString& text);

} // namespace tarvomime
