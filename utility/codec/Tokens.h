// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "types/QValueList.h"

/// The rules behind `EMAIL_Util::split` and `EMAIL_Util::stripChar`. Pieces are slices of the
/// source.
namespace tarvomime {

void splitAtFirst(const QCString& separator, const QCString& source, QCString& left,
                  QCString& right, bool strip);
QValueList<QCString> splitAtEvery(const QCString& separator, const QCString& source, bool strip);
void stripChar(char c, const QCString& source, QCString& out);

/// A parameter's value without the double quotes around it. One or two bytes, which `stripChar`
/// leaves alone, come back as they are: a value is never lost.
QCString withoutQuotes(const QCString& value);

} // namespace tarvomime
