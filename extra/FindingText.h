// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarvomime {

/// What findings show of a name that the message gives: its first 200 characters, and "..." where
/// there are more. A name may be as long as the message, and many findings may show it.
QString shownName(const QString& name);

/// The same of words that senders take from a list (charsets, transfer encodings, methods): 64.
QString shownLabel(const QString& label);

} // namespace tarvomime
