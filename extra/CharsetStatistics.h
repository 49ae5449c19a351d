// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace tarvomime {

/// The charset that the letters of `bytes` and their neighbours look like, under a name that Qt's
/// codecs answer to; empty when they look like none.
QByteArray charsetByStatistics(const QByteArray& bytes);

} // namespace tarvomime
