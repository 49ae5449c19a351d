// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace tarvomime {

/// `html` with no tag that has more than a thousand attributes, and without NUL bytes. The parser
/// compares each attribute with all before it, so that a tag of a million would take hours, and
/// ends the document at a NUL. What is too much of a tag is left out.
QByteArray guardedHtml(const QByteArray& html);

} // namespace tarvomime
