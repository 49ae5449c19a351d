// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>

namespace tarvomime {
struct MessageContent;
}

namespace tarvomime::tool {

/// What the header and the body of one part say about it, decoded. What the part spells itself are
/// its bytes, which need not be text.
struct PartSummary
{
    /// `fallback` is the charset of undeclared 8-bit text in names.
    PartSummary(const MessageContent& content, int index, const QByteArray& fallback);

    /// The way to it, "1.2"; empty below a hundred levels.
    QByteArray number;
    /// "type/subtype", lower-case; "text/plain" for a part that does not say.
    QByteArray type;
    /// Charset and transfer encoding as the part spells them; empty when it does not say.
    QString charset;
    QByteArray encoding;
    /// "attachment" or "inline"; empty when it does not say.
    QString disposition;
    /// The file name of Content-Disposition, and the name of Content-Type.
    QString fileName;
    QString name;
    /// Of the message that the part encloses.
    QString subject;
    /// Bytes as they stand in the message, and after decoding (an estimate for base64).
    int storedSize = 0;
    int size = 0;
    /// The private fields, named for programs.
    QJsonObject flags;

    QJsonObject toJson() const;
    /// The same in a few words each, for people.
    QByteArray toWords() const;
};

} // namespace tarvomime::tool
