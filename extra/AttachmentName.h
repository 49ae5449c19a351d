// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TarvomimeExtraExport.h"

#include <QByteArray>
#include <QString>

class EMAIL_Header;
class EMAIL_MIME;

namespace tarvomime {

/// The name to show of the part that has this header; empty when it has none.
///
/// It is the "filename" of Content-Disposition, else the "name" of Content-Type, else one of these
/// under the other's name, else the name that a server announced for what was not downloaded.
/// `fieldParameter` says how it is decoded. The name is the sender's: write no file under it but
/// under what `safeFileName` or `TargetFolder` make of it.
TARVOMIME_EXTRA_EXPORT QString attachmentName(const EMAIL_Header& header,
                                              const QByteArray& fallbackCharset = "windows-1252");

/// The name of the message's part that getMultiPart() gives at `index`. The part itself cannot tell
/// it: what it holds as its names was decoded without knowing of RFC 2231.
TARVOMIME_EXTRA_EXPORT QString attachmentName(const EMAIL_MIME& message, int index,
                                              const QByteArray& fallbackCharset = "windows-1252");

} // namespace tarvomime
