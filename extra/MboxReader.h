// SPDX-License-Identifier: MIT
#pragma once

#include "extra/Result.h"
#include "extra/TarvomimeExtraExport.h"

#include <QByteArray>
#include <string_view>

class QIODevice;

namespace tarvomime {

/// How the writer of an mbox kept lines of text that begin with "From " from being taken for a
/// separator.
enum class MboxQuoting {
    /// Not at all, or it wrote the length of each message instead (mboxcl2).
    None,
    /// ">" in front of "From " (mboxo): what began with ">From " before cannot be told.
    FromLines,
    /// ">" in front of "From ", ">From ", ">>From " and so on (mboxrd): undone without loss.
    QuotedFromLines
};

/// Where a message lies in an mbox.
struct MboxMessage
{
    /// The bytes of the message, without its separator and the empty line in front of the next.
    qint64 offset = 0;
    qint64 length = 0;
    /// The separator line, without its line end: "From a@b Mon Jun  3 10:15:00 2024". At most a
    /// thousand bytes of it; empty in a file that is no mbox.
    QByteArray separator;
};

/// The messages of an mbox, one after the other, in files of any size.
///
/// A message begins behind a line "From " that stands at the start or behind an empty line and
/// holds a time of day, and ends before the empty line in front of the next one. What does not
/// begin so is one message. The device is read in blocks, once; it must be open, and stay so.
class TARVOMIME_EXTRA_EXPORT MboxReader
{
public:
    /// With `believeLengths`, a Content-Length field that leads exactly to the next separator or to
    /// the end is believed, so that unquoted "From " lines of the text do not cut it. It takes a
    /// device that can seek; in any other the fields are not looked at.
    explicit MboxReader(QIODevice& device, bool believeLengths = false);

    /// Whether the device begins like an mbox.
    bool isMbox();
    /// The next message; false when there is none left, or none that can be read.
    bool next(MboxMessage& message);
    /// Why reading ended before the end; empty otherwise.
    const QString& problem() const { return mProblem; }

private:
    struct Line
    {
        qint64 offset = 0;
        // Behind the line end.
        qint64 end = 0;
        // At most a thousand bytes, without the line end.
        std::string_view start;
        bool isEmpty() const { return start.empty(); }
    };

    bool begin();
    bool takeLine(Line& line);
    bool takeBrokenLine(Line& line);
    bool fill();
    void skipTo(qint64 offset);
    bool leadsToSeparator(qint64 end);
    void noticeLength(const Line& line);

    QIODevice& mDevice;
    bool mBelieveLengths;
    QByteArray mBlock;
    QByteArray mLineStart;
    // Offset in the device of the block's first byte, and the next byte in the block.
    qint64 mBlockOffset = 0;
    qsizetype mAt = 0;
    bool mBegun = false;
    bool mIsMbox = false;
    bool mAtEnd = false;
    QByteArray mSeparator;
    qint64 mNext = 0;
    qint64 mBodyLength = -1;
    qint64 mFirst = 0;
    QString mProblem;
};

/// The bytes of a message as they were before they were stored: quoted "From " lines are restored.
/// Where there are none, they are the same bytes, not a copy.
TARVOMIME_EXTRA_EXPORT QByteArray unquotedMboxMessage(const QByteArray& stored,
                                                      MboxQuoting quoting);

/// Reads a message that `MboxReader` found out of a device that can seek. Fails where it is 2 GiB
/// or more, or cannot be read.
TARVOMIME_EXTRA_EXPORT Result<QByteArray>
readMboxMessage(QIODevice& device, const MboxMessage& message,
                MboxQuoting quoting = MboxQuoting::QuotedFromLines);

} // namespace tarvomime
