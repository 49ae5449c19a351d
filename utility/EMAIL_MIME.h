// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_BasicMsg.h"

class EMAIL_Entity;
class EMAIL_MultiPart;

/// The application's handle on a multipart message (RFC 2046): a message whose top-level body parts
/// are read and written as `EMAIL_MultiPart` trees.
///
/// Parts that are read are copies: changing one changes the message only when it is written back.
/// Bodies are never decoded or encoded on the way, and a body that lies in a file stays there.
/// Conversions do not recurse over the depth of the tree.
class TARVOMIME_EXPORT EMAIL_MIME : public EMAIL_BasicMsg
{
public:
    EMAIL_MIME();
    explicit EMAIL_MIME(const QByteArray& raw);
    explicit EMAIL_MIME(const QString& raw);

    ~EMAIL_MIME() override;
    /// Also gives a message of multipart type a fresh boundary.
    void setDefaultFileds() override;

    // Top-level parts.

    /// Number of top-level body parts; 0 without a message.
    int getMultiPartCount() const;
    /// Reads the top-level part at `index` into `part`, which should be a new one: sub-parts are
    /// appended to those it has. False when there is no such part or the message is no container
    /// (multipart, or one of the two WAP multipart types of application).
    ///
    /// 1. For a message type held in memory the enclosed message is read, although it counts as no
    ///    part; index 0 is the one that always reaches it.
    /// 2. A part without Content-Type gets the field, text/plain, by being read.
    bool getMultiPart(int index, EMAIL_MultiPart& part) const;
    /// Inserts a new body part built from `part` before `index`; an index outside the list appends.
    /// A handle without a message gets a new one.
    void addMultiPart(const EMAIL_MultiPart& part, int index);
    /// Inserts `part` at `index`; with `replace`, the part that is there is removed before. Of the
    /// replaced part only what `EMAIL_MultiPart` models survives.
    ///
    /// 1. The result is true even when there was nothing to replace.
    bool setMultiPart(const EMAIL_MultiPart& part, int index, bool replace);
    /// Removes the top-level part at `index`; false when there is none.
    bool removeMultiPart(int index);
    /// The boundary of the message's Content-Type; empty without one.
    QCString getBoundary() const;
    /// Makes sure that no line of a body begins with a boundary of the message, nor one boundary
    /// with another: the containers for which that does not hold get a fresh one. Call it when all
    /// parts are there. `addMultiPart` cannot: it does not see what is added later. Returns 0, or
    /// -1 with nothing changed when a body in a file cannot be read, there is no memory, or a
    /// Content-Type field of another class would have to change.
    ///
    /// Programs that compose in the same second draw the same boundaries: a message of one of them,
    /// attached in the other, would end the part that holds it too early.
    int makeBoundariesUnique();
    /// Strips the message's header as `EMAIL_BasicMsg` does, and the download state from all its
    /// parts, whose identifiers stay. Every top-level part is rebuilt: containers get fresh
    /// boundaries, and fields that `EMAIL_MultiPart` does not model are lost.
    void makeHeaderSendable();

    // Conversion between parts and components.

    /// Writes the members of `part` into an empty header. Name and file name become encoded words
    /// in the part's charset where needed, and are quoted unless a double quote begins or ends
    /// them.
    ///
    /// 1. Without type or subtype no Content-Type is written, but a method or a name creates one.
    /// 2. A charset is written for every type; one that is not set reads "us-ascii".
    /// 3. A container gets a fresh boundary, not the one of `part`.
    /// 4. Content-Transfer-Encoding is written always.
    /// 5. The disposition type is written only together with a file name.
    /// 6. The announced size is written whenever it is not negative, so a new part writes 0.
    static void setHeadFromMultiPart(const EMAIL_MultiPart& part, EMAIL_Header* header);
    /// Reads a header into the members of `part`; members without a field to read from mostly keep
    /// what they held.
    ///
    /// 1. A missing Content-Type field is created as text/plain and stays in the header.
    /// 2. The description is not decoded.
    static void setHeadToMultiPart(EMAIL_Header* header, EMAIL_MultiPart& part);
    /// Builds a body part with everything below it from `part` and inserts it into the body of
    /// `entity` before `index`; an index outside the list appends.
    static void mulitPartToEntity(const EMAIL_MultiPart& part, EMAIL_Entity& entity, int index);
    /// Reads `entity` with everything below it into `part`; sub-parts are appended to those it has.
    static void entityToMulitPart(const EMAIL_Entity* entity, EMAIL_MultiPart& part);
    /// Reads the entity (header, blank line, body) stored in the file `path` into `part`; its body
    /// stays a range of the file. Without header lines `hasHeader` is false and `part` left alone.
    /// Returns 0, or -1 with `hasHeader` true when the file cannot be mapped.
    static int convertFileToMulitPart(const QString& path, EMAIL_MultiPart& part, bool& hasHeader);

    // Questions of a message list and viewer. They recognise a fixed list of shapes and look no
    // deeper. The message text is
    //  - the body of a text/plain message or of one without a type;
    //  - in multipart/alternative: the first sub-part of the first part, or the first part itself
    //    when it has none;
    //  - in any other container: the first part when it is text/plain; else the first sub-part of
    //    multipart/alternative, which is the first part or the first sub-part of
    //    multipart/related.
    // The first sub-part of an alternative is taken whatever its type: senders put text/plain
    // first.

    /// Whether a message list should show an attachment mark.
    ///
    /// 1. A text message that is not plain counts as having an attachment, HTML and calendars
    ///    included; alternative and report multiparts never do.
    bool hasAttachment() const;
    /// Number of attachments; those below the top level are not counted.
    ///
    /// 1. A message without a type counts as one attachment, although `hasAttachment()` is false.
    int getAttachNum() const;
    /// Whether everything of the message has been downloaded: of an invitation the calendar, of
    /// another alternative any part, else every part.
    ///
    /// 1. A truncation marker of any value but -1 means incomplete.
    bool isCompleteMessage() const;

    using EMAIL_BasicMsg::getBody;
    /// Fills `text` with the message text; left alone when there is none. Returns 0, or -1 when the
    /// body of a single-part message cannot be read.
    int getBody(QString& text, int charset) const;
    /// Writes the decoded body of a single-part message to an open file, see
    /// `EMAIL_BasicMsg::getBody`. For a multipart message nothing is written and 0 returned.
    int getBody(QFile* out, const ProgressCallback& progress = nullptr) const;
    /// The server's identifier of the part that holds the message text; empty for a single-part
    /// message, left alone when there is no text. Returns 0.
    int getBodyPartId(QString& partId) const;
    /// `mode` 0: fills `text`; `mode` 1: fills `partId`.
    int getBodyOrPartId(QString& text, QString& partId, int mode, int charset) const;

    /// Writes the decoded calendar parts to an open file, one after the other: those on the top
    /// level of multipart/alternative or of a multipart/alternative that comes first in another
    /// multipart, or a text/calendar message itself. Returns 0 also when there is none, or -1 when
    /// the body of a text/calendar message cannot be read or written.
    int getICalendar(QFile* out) const;
    /// The server's identifier of the calendar part, the last one's where there are several; empty
    /// for none and for a text/calendar message. Returns 0.
    int getCalendarPartId(QString& partId) const;
    /// `mode` 0: writes to `out`; `mode` 1: fills `partId`, which is emptied first in every mode.
    int getCalendarOrPartId(QFile* out, QString& partId, int mode) const;
    /// Fills two parts for an invitation (RFC 6047): `text` in UTF-8, and the calendar file
    /// `icsPath` as "meeting.ics" with `method`. The caller keeps both and adds them to a
    /// multipart/alternative message. Returns 0, or -1 when the file cannot be read or is
    /// no regular one; `calPart` then has no body.
    static int getIcsPart(const QString& icsPath, const QString& text, const QString& method,
                          EMAIL_MultiPart* textPart, EMAIL_MultiPart* calPart);
    /// Makes the file `path`, the message text in its transfer encoding, the body of the text part
    /// and marks it downloaded. Only text/plain parts are taken. A missing file counts as empty.
    ///
    /// 1. The first part is rebuilt: its containers get fresh boundaries.
    void setRawBody(const QString& path);

private:
    const EMAIL_Entity* topLevelPart(int index) const;
    const EMAIL_Entity* messageTextPart() const;
};
