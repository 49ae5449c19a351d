// SPDX-License-Identifier: MIT
#pragma once

#include "types/QPtrList.h"
#include "utility/EMAIL_BaseComponent.h"

#include <QString>

class EMAIL_BodyPart;
class EMAIL_Message;
class QFile;

/// The body of an entity: a text in memory, or a range of bytes of a file; for a multipart type
/// also the parts it was cut into, for a message type the enclosed message (RFC 2046, section 5).
class TARVOMIME_EXPORT EMAIL_Body : public EMAIL_BaseComponent
{
public:
    EMAIL_Body();
    EMAIL_Body(const QCString& text, EMAIL_BaseComponent* parent);

    /// Deletes the enclosed message and the parts, without recursion over their depth.
    ~EMAIL_Body() override;
    void assemble() override;
    void parse() override;
    /// Takes the text into memory: `mInMemory` and `mEncoded` become true.
    void setMessage(const QCString& text) override;

    void parse(const char* data, int start, int length, const QString& path);
    int assemble(QFile* file);

    bool isInMemory() const { return mInMemory; }
    void getBodyInfo(QString& path, int& offset, int& length, bool& encoded) const;
    void setBodyInfo(const QString& path, int offset, int length, bool encoded);
    int getBodyText(QCString& out) const;

    int numBodyParts() const;
    EMAIL_BodyPart* bodyPart(int index) const;
    bool insertBodyPart(EMAIL_BodyPart* part, int index);
    bool removeBodyPart(int index);

    QPtrList<EMAIL_BodyPart> mBodyParts;
    EMAIL_Message* mMessage = nullptr;
    QCString mBoundary;
    int mOffset = 0;
    int mLength = 0;
    QString mFile;
    bool mInMemory = true;
    bool mEncoded = true;
};
