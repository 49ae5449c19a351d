// SPDX-License-Identifier: MIT
#pragma once

#include "extra/CharsetText.h"
#include "extra/Result.h"
#include "extra/TarvomimeExtraExport.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <memory>

class EMAIL_Entity;

namespace tarvomime {

/// What a part is to a reader.
enum class PartRole {
    /// It holds parts.
    Container,
    /// Text to show.
    Body,
    /// Another form of what is shown.
    Alternative,
    /// What the HTML refers to: an image, a style sheet.
    Inline,
    Attachment,
    /// An enclosed message, which is an attachment as well.
    Message,
    /// A calendar beside the text that says the same to people (RFC 6047).
    Invitation,
    /// The signature of multipart/signed.
    Signature
};

/// One part of a message, in its place in the tree.
struct ContentPart
{
    /// Not owned; it belongs to the message, or to the content for what is enclosed in a file.
    const EMAIL_Entity* entity = nullptr;
    /// Index of the containing part; -1 for the message itself.
    int parent = -1;
    /// Position among its siblings, counted from 1.
    int ordinal = 1;
    /// Index of the enclosed message that it belongs to; 0 for the message itself.
    int message = 0;
    PartRole role = PartRole::Attachment;
    /// "type/subtype" in lower case; "text/plain" for a part that does not say.
    QByteArray type;
    /// Without the angle brackets; empty where there is none.
    QByteArray contentId;
};

/// One piece of the text to show, in the forms that the sender offers. Either list may be empty.
struct ShownBody
{
    QList<int> plain;
    QList<int> html;
};

/// What stands around a message or a part of it to protect it (RFC 1847, RFC 8551).
struct SecurityWrapper
{
    enum class Kind { Signed, Encrypted };
    Kind kind = Kind::Signed;
    /// The media type that says how: "application/pgp-signature". Lower case.
    QByteArray protocol;
    /// The wrapping part; the signed one and its signature, -1 where they are not parts.
    int wrapper = -1;
    int content = -1;
    int signature = -1;
};

/// What one message, the outer or an enclosed one, gives its reader. Numbers are indexes of parts.
struct ShownMessage
{
    int part = 0;
    /// Index of the message that encloses it; -1 for the outer one.
    int parent = -1;
    QList<ShownBody> bodies;
    QList<int> inlineParts;
    QList<int> attachments;
    /// The first calendar; -1 for none.
    int invitation = -1;
    QList<SecurityWrapper> wrappers;
};

/// A whole message as its reader sees it. No body is decoded for it.
struct MessageContent
{
    /// All parts in reading order, those of enclosed messages included; the first is the message.
    QList<ContentPart> parts;
    /// The message itself, then those enclosed in it, in reading order.
    QList<ShownMessage> messages;
    /// Keeps what `parts` points to beside the message.
    std::shared_ptr<void> enclosed;
};

/// Walks over the tree of a parsed message once. The result refers to `message`, which must outlive
/// it, unchanged. Multiparts of every kind count, the two WAP containers too:
///
/// 1. Of alternatives the last plain text and the last HTML are taken, each for its purpose, unless
///    they are empty.
/// 2. The root of multipart/related is text, the rest is what it refers to.
/// 3. Of multipart/report the first part is text; the rest is attached, for programs.
/// 4. Text is shown unless it says to be an attachment. With a file name it is an attachment too,
///    unless it comes first.
/// 5. A part that an empty line begins and that does not say what it is has no header, whatever its
///    first line looks like, as far as that line's words can tell.
/// 6. A multipart body without a single delimiter is shown as it stands.
///
/// Messages that take turns with containers for more than about a hundred levels in a file, which
/// only an attacker writes, stay in one piece below that.
TARVOMIME_EXTRA_EXPORT MessageContent readContent(const EMAIL_Entity& message);

/// The part's number: the message is "1", the second part in it "1.2". Empty below a hundred
/// levels, where numbers would outgrow the message.
TARVOMIME_EXTRA_EXPORT QByteArray partNumber(const MessageContent& content, int part);

/// The part of that number; -1 where the message has none.
TARVOMIME_EXTRA_EXPORT int findPart(const MessageContent& content, const QByteArray& number);

/// Whether the text of a part is HTML.
TARVOMIME_EXTRA_EXPORT bool isHtmlPart(const ContentPart& part);

/// The bytes of a part that holds no others, with the transfer encoding undone.
TARVOMIME_EXTRA_EXPORT Result<QByteArray> partBytes(const ContentPart& part);

/// The text of a part, in the charset that it declares, HTML in itself at last, or in the proposed
/// one (see `readText`). Line ends are "\n". HTML stays HTML.
TARVOMIME_EXTRA_EXPORT Result<ReadText> partText(const ContentPart& part,
                                                 const QByteArray& fallback = "windows-1252");

/// The text to show of a message, by its index in `messages`: plain where the sender offers it,
/// else made of HTML; lines that flow (RFC 3676) are joined, text/enriched and text/richtext become
/// plain. A message without a text of its own shows that of the first message enclosed
/// in it which has one. Empty where there is none.
TARVOMIME_EXTRA_EXPORT Result<QString> shownText(const MessageContent& content, int message = 0,
                                                 const QByteArray& fallback = "windows-1252");

/// The same as HTML: the sender's where it is offered, as it stands (scripts, remote images and
/// all), else made of plain text. `findInline` leads to what it refers to.
TARVOMIME_EXTRA_EXPORT Result<QString> shownHtml(const MessageContent& content, int message = 0,
                                                 const QByteArray& fallback = "windows-1252");

/// The part of a message that its HTML refers to by `url`, "cid:..." or a Content-Location; -1 for
/// none.
TARVOMIME_EXTRA_EXPORT int findInline(const MessageContent& content, int message,
                                      const QString& url);

} // namespace tarvomime
