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
///
/// A body is multipart when the Content-Type of its entity says multipart, or application with the
/// subtype vnd.wap.multipart.related or vnd.wap.multipart.mixed. Positions and lengths are in
/// bytes. Nothing here recurses over the depth of a message.
class TARVOMIME_EXPORT EMAIL_Body : public EMAIL_BaseComponent
{
public:
    EMAIL_Body();
    EMAIL_Body(const QCString& text, EMAIL_BaseComponent* parent);

    /// Deletes the enclosed message, then the parts.
    ~EMAIL_Body() override;
    /// `assemble(nullptr)`; a text that is rebuilt from parts becomes empty where that fails.
    void assemble() override;
    /// Parses `mString` in memory.
    void parse() override;
    /// Takes the text into memory: `mInMemory` and `mEncoded` become true, `mLength` its length.
    void setMessage(const QCString& text) override;

    /// Parses the `length` bytes of `data` from `start` on as this body, by the Content-Type of the
    /// parent entity's header; without that field the text stays as it is.
    ///
    /// With a `path`, `data` is the content of that file, and the body and all below it become
    /// ranges of it. With an empty `path` the body is `mString`, and `data` its text.
    ///
    /// - Multipart: cut into parts at the delimiter lines of the boundary (RFC 2046, section
    ///   5.1.1); the parts are appended to `mBodyParts` and parsed. Text in front of the first and
    ///   behind the closing delimiter is dropped, and so are line breaks at both ends of a part.
    /// - Message, in memory: `mMessage` is made from the text and parsed. The text keeps its outer
    ///   line breaks.
    /// - Any other type, and a message in a file: CR and LF at both ends are dropped.
    ///
    /// 1. The boundary matches as a prefix, whatever follows it on the delimiter line.
    /// 2. A part that no further delimiter ends is dropped: the text may have been cut off.
    /// 3. A part without text is skipped; whether its delimiter was the closing one still counts.
    /// 4. A part that begins with an empty line loses it, so that its first text line is read as
    ///    the header.
    /// 5. Parts that are already there stay when a body is parsed again.
    void parse(const char* data, int start, int length, const QString& path);

    /// Writes the body to `file`; with a null `file` the text of a multipart body is rebuilt in
    /// `mString`, any other text stays. Returns 0, or -1 when there is no parent entity, a range
    /// lies outside its file, `file` does not take the text, the text in memory would be too long,
    /// or there is no memory; what was written before stays, and so do texts in memory.
    ///
    /// Parts are assembled between delimiter lines, without preamble and epilogue. A body in a file
    /// is copied from there with CR LF behind it, or, while `mEncoded` is false, encoded in the
    /// Content-Transfer-Encoding of the parent's header.
    ///
    /// 1. A message in memory is written from `mString`: changes in `mMessage` are not.
    /// 2. Content that is to be encoded starts at the first byte of its file, whatever `mOffset`
    ///    says: it was attached as a file, not cut out of one.
    int assemble(QFile* file);

    bool isInMemory() const { return mInMemory; }
    /// Where the body lies in its file, and whether it is encoded there.
    void getBodyInfo(QString& path, int& offset, int& length, bool& encoded) const;
    /// Makes the body `length` bytes at `offset` of the file `path`; the file is not looked at.
    void setBodyInfo(const QString& path, int offset, int length, bool encoded);
    /// The stored text, up to its first NUL where it comes from a file. Returns 0, or -1 and leaves
    /// `out` alone when the file cannot be opened or does not hold the range.
    int getBodyText(QCString& out) const;

    int numBodyParts() const;
    /// The part at `index`, owned by the body, or null when there is none.
    EMAIL_BodyPart* bodyPart(int index) const;
    /// Takes ownership of `part`, becomes its parent and inserts it before `index`; an index below
    /// 0 or above the count appends. False for a null `part`.
    bool insertBodyPart(EMAIL_BodyPart* part, int index);
    /// Removes and deletes the part at `index`; false when there is none.
    bool removeBodyPart(int index);

    /// The parts in order; owned by the list.
    QPtrList<EMAIL_BodyPart> mBodyParts;
    /// The enclosed message of a message-type body in memory, owned; null when there is none.
    EMAIL_Message* mMessage = nullptr;
    /// The boundary in use, taken from the Content-Type when parsing and when assembling.
    QCString mBoundary;
    /// In a file: the offset of the text.
    int mOffset = 0;
    /// In a file: the length of the text. In memory: of `mString` as `setMessage` got it.
    int mLength = 0;
    /// The path of the file that holds the body.
    QString mFile;
    /// Whether the body is `mString`, and not `mLength` bytes at `mOffset` of `mFile`.
    bool mInMemory = true;
    /// Whether the stored bytes already are in the transfer encoding of the message; otherwise the
    /// file holds raw content.
    bool mEncoded = true;
};
