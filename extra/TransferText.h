// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TarvomimeExtraExport.h"
#include "utility/EMAIL_Numbers.h"

#include <QByteArray>
#include <QString>

namespace tarvomime {

/// A text as it stands in a message.
struct TransferText
{
    QByteArray bytes;
    /// `CHARSET_US_ASCII` where the text needs no more.
    int charset = CHARSET_US_ASCII;
    /// `CTE_7BIT`, `CTE_QUOTED_PRINTABLE` or `CTE_BASE64`.
    int cte = CTE_7BIT;
};

/// Writes `text`, whose lines end in "\n", for a body that people may look into as well:
///
/// 1. Plain ASCII stays as it is, unless a line is longer than 998 characters (RFC 5322, section
///    2.1.1) or holds a NUL or a CR of its own.
/// 2. Everything else is quoted-printable, line for line, or base64 where more than a third of the
///    bytes would be escapes.
/// 3. The charset is `charset` where that can hold the text, else UTF-8.
TARVOMIME_EXTRA_EXPORT TransferText transferText(const QString& text, int charset = CHARSET_UTF_8);

} // namespace tarvomime
