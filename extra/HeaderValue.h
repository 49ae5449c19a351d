// SPDX-License-Identifier: MIT
#pragma once

#include "extra/Result.h"
#include "extra/TarvomimeExtraExport.h"
#include "types/QCString.h"
#include "utility/EMAIL_Numbers.h"

#include <QByteArray>
#include <QString>

namespace tarvomime {

/// Whether a text may be given to a setter of a header field. A line break would end the field and
/// begin one of its writer's choice, a NUL end the header, and other controls deceive readers.
/// Fails with the reason.
TARVOMIME_EXTRA_EXPORT Result<void> checkHeaderValue(const QString& value);

/// Whether bytes may be stored as the body of a field as they are: besides the above only 7-bit
/// bytes, folded so that each continuation begins with a blank and holds more than blanks, and no
/// line above 998 bytes (RFC 5322, section 2.1.1).
TARVOMIME_EXTRA_EXPORT Result<void> checkRawHeaderValue(const QByteArray& value);

/// A text as the body of a field: encoded words where it is not plain ASCII, in `charset` or else
/// in UTF-8, and folded at its blanks. Fails for what the checks above refuse.
TARVOMIME_EXTRA_EXPORT Result<QCString> writeHeaderValue(const QString& value,
                                                         int charset = CHARSET_UTF_8);

/// Whether a text may be the name of a field: printable ASCII without a colon (RFC 5322, section
/// 2.2), and not too long for a line.
TARVOMIME_EXTRA_EXPORT Result<void> checkHeaderName(const QByteArray& name);

} // namespace tarvomime
