// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

class EMAIL_Entity;
class EMAIL_Header;

namespace tarvomime::tool {

/// What the header and the body of one part say about it, decoded.
struct PartFacts
{
    /// `charset` is for undeclared 8-bit text in names.
    PartFacts(const EMAIL_Entity& entity, int charset);

    /// "type/subtype", lower-case; "text/plain" for a part that does not say.
    QString type;
    /// Charset and transfer encoding as the part spells them; empty when it does not say.
    QString charset;
    QString encoding;
    /// "attachment" or "inline"; empty when it does not say.
    QString disposition;
    /// The file name of Content-Disposition, and the name of Content-Type.
    QString fileName;
    QString name;
    /// Bytes as they stand in the message, and after decoding (an estimate for base64).
    int storedSize = 0;
    int size = 0;
    /// The private fields, named for programs.
    QJsonObject flags;

    QJsonObject toJson() const;
    /// The same in a few words each, for people.
    QStringList toWords() const;
};

/// The private fields of a header: download state, truncation, smart send, receipts.
QJsonObject extensionFlags(const EMAIL_Header& header);

} // namespace tarvomime::tool
