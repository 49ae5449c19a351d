// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TarvomimeExtraExport.h"

#include <QByteArray>
#include <QtGlobal>

namespace tarvomime {

/// How much a message asks of its reader, counted before it is parsed.
struct MessageMeasure
{
    /// Levels of parts and enclosed messages below the message.
    int depth = 0;
    /// Parts and enclosed messages, the message itself included.
    qint64 parts = 0;
    /// Header fields of all of them.
    qint64 fields = 0;
    /// Bytes of the longest line, without its line end.
    qint64 longestLine = 0;
    /// Bytes of the largest header.
    qint64 largestHeader = 0;
    /// Bytes of all bodies when their transfer encoding is undone; never less than that.
    qint64 decodedSize = 0;
};

/// Counts over the raw bytes of a message, line by line, without building anything: a caller with
/// limits of its own asks first and parses then. Parsing makes no more levels, parts and fields
/// than are counted here; broken messages may make fewer.
TARVOMIME_EXTRA_EXPORT MessageMeasure measureMessage(const QByteArray& bytes);

} // namespace tarvomime
