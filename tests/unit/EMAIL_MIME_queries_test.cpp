// SPDX-License-Identifier: MIT
#include "tests/support/OpenResources.h"
#include "tests/support/RecordingFile.h"
#include "tests/support/RowNames.h"
#include "tests/support/StoredFile.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

#include <memory>

namespace email_mime_queries_test {

namespace {

// A container of the given type; its boundary must differ from those of its parts.
QByteArray container(const QByteArray& type, const QByteArray& boundary,
                     const QList<QByteArray>& parts)
{
    QByteArray text = "Content-Type: " + type + "; boundary=" + boundary + "\r\n\r\n";
    for (const QByteArray& part : parts)
        text += "--" + boundary + "\r\n" + part + "\r\n";
    return text + "--" + boundary + "--\r\n";
}

QByteArray leaf(const QByteArray& type, const QByteArray& id, const QByteArray& fields = "")
{
    return "Content-Type: " + type + "\r\nX-MESSAGE-PARTID: " + id + "\r\n" + fields +
           "\r\ntext of " + id;
}

const QByteArray notDownloaded("X-QRN-AS-Attn-Undownload: 1\r\n");
const QByteArray alternative = container("multipart/alternative", "ALT",
                                         {leaf("text/plain", "alt1"), leaf("text/html", "alt2")});
const QByteArray emptyAlternative = container("multipart/alternative", "EMP", {});
const QByteArray related =
    container("multipart/related", "REL", {alternative, leaf("image/png", "rel2")});
const QByteArray relatedHtml = container("multipart/related", "REL", {leaf("text/html", "rel1")});
const QByteArray relatedPlain = container("multipart/related", "REL", {leaf("text/plain", "rel1")});

const QByteArray plain = leaf("text/plain", "p");
const QByteArray html = leaf("text/html", "h");
const QByteArray image = leaf("image/png", "i");

struct QueryRow
{
    const char* name;
    QByteArray message;
    bool hasAttachment;
    int attachments;
    // Identifier of the text part; "(none)" when there is no message text, "" for the message
    // itself.
    const char* textId;
};

void PrintTo(const QueryRow& row, std::ostream* out)
{
    *out << row.name << ": ";
    printEscaped(row.message, out);
}

class MessageQuery : public testing::TestWithParam<QueryRow>
{
protected:
    static void expectAnswers(const EMAIL_MIME& mime)
    {
        const QueryRow& row = GetParam();
        EXPECT_EQ(mime.hasAttachment(), row.hasAttachment);
        EXPECT_EQ(mime.getAttachNum(), row.attachments);
        QString id(QStringLiteral("(none)"));
        EXPECT_EQ(mime.getBodyPartId(id), 0);
        EXPECT_EQ(id, QString::fromLatin1(row.textId));
        const bool isSingle = QByteArray(row.textId).isEmpty();
        const QString expected = isSingle ? QStringLiteral("text of p")
                                 : QByteArray(row.textId) == "(none)"
                                     ? QStringLiteral("(none)")
                                     : QStringLiteral("text of ") + QString::fromLatin1(row.textId);
        QString text(QStringLiteral("(none)"));
        EXPECT_EQ(mime.getBody(text, 0), 0);
        EXPECT_EQ(text, expected);
        QString untouched(QStringLiteral("(none)"));
        EXPECT_EQ(mime.getBodyOrPartId(untouched, untouched, 2, 0), 0);
        EXPECT_EQ(untouched, QStringLiteral("(none)")) << "no other mode does anything";
        QString either(QStringLiteral("(none)"));
        EXPECT_EQ(mime.getBodyOrPartId(either, untouched, 0, 0), 0);
        EXPECT_EQ(either, expected);
        either = QStringLiteral("(none)");
        EXPECT_EQ(mime.getBodyOrPartId(untouched, either, 1, 0), 0);
        EXPECT_EQ(either, id);
        EXPECT_EQ(untouched, QStringLiteral("(none)"));
    }
};

} // namespace

TEST_P(MessageQuery, InMemory)
{
    expectAnswers(EMAIL_MIME(GetParam().message));
}

TEST_P(MessageQuery, InAFile)
{
    const StoredFile stored(GetParam().message);
    EMAIL_MIME mime;
    ASSERT_EQ(mime.parse(stored.path()), 0);
    const OpenResources before = OpenResources::of(stored.path());
    expectAnswers(mime);
    EXPECT_EQ(OpenResources::of(stored.path()), before);
}

INSTANTIATE_TEST_SUITE_P(
    Single, MessageQuery,
    testing::Values(
        QueryRow{"no type", "A: 1\r\n\r\ntext of p", false, 1, ""},
        QueryRow{"unknown type", "Content-Type: odd/thing\r\n\r\ntext of p", false, 1, ""},
        QueryRow{"text plain", plain, false, 0, ""}, QueryRow{"text html", html, true, 1, "(none)"},
        QueryRow{"text calendar", leaf("text/calendar", "c"), true, 1, "(none)"},
        QueryRow{"pdf", leaf("application/pdf", "a"), true, 1, "(none)"},
        QueryRow{"image", image, true, 1, "(none)"},
        QueryRow{"enclosed message", leaf("message/rfc822", "m"), true, 1, "(none)"},
        QueryRow{"image of nothing", "Content-Type: image/png\r\n\r\n", false, 1, "(none)"},
        QueryRow{"wap alternative is no container",
                 container("application/vnd.wap.multipart.alternative", "W", {plain, image}), true,
                 1, "(none)"}),
    rowName<QueryRow>);

INSTANTIATE_TEST_SUITE_P(
    Multipart, MessageQuery,
    testing::Values(
        QueryRow{"mixed without parts", container("multipart/mixed", "M", {}), false, 0, "(none)"},
        QueryRow{"mixed of text", container("multipart/mixed", "M", {plain}), false, 0, "p"},
        QueryRow{"mixed of text and two attachments",
                 container("multipart/mixed", "M", {plain, image, html}), true, 2, "p"},
        QueryRow{"mixed of html first", container("multipart/mixed", "M", {html, image}), true, 2,
                 "(none)"},
        QueryRow{"mixed of html alone", container("multipart/mixed", "M", {html}), false, 1,
                 "(none)"},
        QueryRow{"mixed of alternative", container("multipart/mixed", "M", {alternative, image}),
                 true, 1, "alt1"},
        QueryRow{"mixed of an empty alternative",
                 container("multipart/mixed", "M", {emptyAlternative, image}), true, 1, "(none)"},
        QueryRow{"mixed of related of alternative",
                 container("multipart/mixed", "M", {related, image}), true, 2, "alt1"},
        QueryRow{"mixed of related of html", container("multipart/mixed", "M", {relatedHtml}),
                 false, 1, "(none)"},
        QueryRow{"mixed of related of plain", container("multipart/mixed", "M", {relatedPlain}),
                 false, 1, "(none)"},
        QueryRow{"mixed of an untyped part",
                 container("multipart/mixed", "M", {"X-MESSAGE-PARTID: u\r\n\r\ntext of u", image}),
                 true, 1, "u"},
        QueryRow{"related of alternative", related, true, 1, "alt1"},
        QueryRow{"alternative of leaves", alternative, false, 0, "alt1"},
        QueryRow{"alternative of html alone", container("multipart/alternative", "A", {html}),
                 false, 0, "h"},
        QueryRow{"alternative of related", container("multipart/alternative", "A", {relatedHtml}),
                 false, 0, "rel1"},
        QueryRow{"alternative without parts", emptyAlternative, false, 0, "(none)"},
        QueryRow{"report", container("multipart/report", "R", {plain, image}), false, 1, "p"},
        QueryRow{"wap mixed", container("application/vnd.wap.multipart.mixed", "W", {plain, image}),
                 true, 1, "p"},
        QueryRow{"wap related", container("application/vnd.wap.multipart.related", "W", {html}),
                 true, 1, "(none)"}),
    rowName<QueryRow>);

namespace {

struct BlankRow
{
    const char* name;
    QByteArray body;
    bool hasAttachment;
};

void PrintTo(const BlankRow& row, std::ostream* out)
{
    *out << row.name;
}

class BlankImage : public testing::TestWithParam<BlankRow>
{
};

} // namespace

TEST_P(BlankImage, IsNoAttachmentWhileShortAndOfCrLfOnly)
{
    EMAIL_MIME mime(QByteArray("Content-Type: image/png\r\n\r\n"));
    mime.mMessage->mBody->setMessage(GetParam().body);
    EXPECT_EQ(mime.hasAttachment(), GetParam().hasAttachment);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BlankImage,
    testing::Values(BlankRow{"empty", "", false}, BlankRow{"a lone CR LF", "\r\n", false},
                    BlankRow{"46 characters of CR LF", QByteArray("\r\n").repeated(23), false},
                    BlankRow{"48 characters of CR LF", QByteArray("\r\n").repeated(24), true},
                    BlankRow{"a lone LF", "\n", true}, BlankRow{"CR CR LF LF", "\r\r\n\n", true},
                    BlankRow{"text", "x\r\n", true}),
    rowName<BlankRow>);

TEST(EMAIL_MIMEQueries, ImageInAFileIsJudgedByItsLength)
{
    EMAIL_MIME mime(QByteArray("Content-Type: image/png\r\n\r\n"));
    mime.setBodyInfo(QStringLiteral("/no/such/file"), 0, 1, true);
    EXPECT_TRUE(mime.hasAttachment());
    mime.setBodyInfo(QStringLiteral("/no/such/file"), 0, 0, true);
    EXPECT_FALSE(mime.hasAttachment());
}

namespace {

struct CompleteRow
{
    const char* name;
    QByteArray message;
    bool complete;
};

void PrintTo(const CompleteRow& row, std::ostream* out)
{
    *out << row.name << ": ";
    printEscaped(row.message, out);
}

class Completeness : public testing::TestWithParam<CompleteRow>
{
};

const QByteArray missingPlain = leaf("text/plain", "p", notDownloaded);
const QByteArray missingHtml = leaf("text/html", "h", notDownloaded);
const QByteArray calendar = leaf("text/calendar", "c");
const QByteArray missingCalendar = leaf("text/calendar", "c", notDownloaded);

QByteArray mixed(const QList<QByteArray>& parts)
{
    return container("multipart/mixed", "M", parts);
}

QByteArray alternativeOf(const QList<QByteArray>& parts)
{
    return container("multipart/alternative", "A", parts);
}

const char* const truncated = "X-QRN-Message-Body-Truncated: ";

} // namespace

TEST_P(Completeness, IsJudged)
{
    EXPECT_EQ(EMAIL_MIME(GetParam().message).isCompleteMessage(), GetParam().complete);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Completeness,
    testing::Values(
        CompleteRow{"single", plain, true},
        CompleteRow{"truncated 0", truncated + QByteArray("0\r\n") + mixed({plain}), false},
        CompleteRow{"truncated 1", truncated + QByteArray("1\r\n") + plain, false},
        CompleteRow{"truncated -1", truncated + QByteArray("-1\r\n") + plain, true},
        CompleteRow{"truncated -2", truncated + QByteArray("-2\r\n") + plain, false},
        CompleteRow{"truncated no number", truncated + QByteArray("x\r\n") + plain, false},
        CompleteRow{"truncated report",
                    truncated + QByteArray("1\r\n") + container("multipart/report", "R", {plain}),
                    false},
        CompleteRow{"report of missing parts", container("multipart/report", "R", {missingPlain}),
                    true},
        CompleteRow{"no parts", mixed({}), true},
        CompleteRow{"mixed downloaded", mixed({plain, image}), true},
        CompleteRow{"mixed with one missing", mixed({plain, missingHtml}), false},
        CompleteRow{"nested parts are not looked at",
                    mixed({alternativeOf({missingPlain, missingHtml})}), true},
        CompleteRow{"alternative downloaded", alternativeOf({plain, html}), true},
        CompleteRow{"alternative with one missing", alternativeOf({missingPlain, html}), true},
        CompleteRow{"alternative with all missing", alternativeOf({missingPlain, missingHtml}),
                    false},
        CompleteRow{"invitation downloaded", alternativeOf({missingPlain, calendar}), true},
        CompleteRow{"invitation without its calendar", alternativeOf({plain, missingCalendar}),
                    false},
        CompleteRow{"one of two calendars", alternativeOf({missingCalendar, calendar}), true}),
    rowName<CompleteRow>);

TEST(EMAIL_MIMEQueries, PartsThatCannotBeReadAreIncomplete)
{
    EMAIL_MIME mime;
    mime.addMultiPart(EMAIL_MultiPart(nullptr), 0);
    EXPECT_FALSE(mime.isCompleteMessage());
    mime.setTypeStr(QStringLiteral("message"));
    EXPECT_FALSE(mime.isCompleteMessage());
}

// Nobody but an application that handles the list itself can put one there.
TEST(EMAIL_MIMEQueries, NullPartsAreNone)
{
    for (const char* subType : {"mixed", "alternative"}) {
        EMAIL_MIME mime;
        mime.setTypeStr(QStringLiteral("multipart"));
        mime.setSubTypeStr(QString::fromLatin1(subType));
        mime.mMessage->mBody->mBodyParts.append(nullptr);
        EXPECT_EQ(mime.getAttachNum(), 0) << subType;
        EXPECT_FALSE(mime.isCompleteMessage()) << subType;
        QString text(QStringLiteral("(none)"));
        EXPECT_EQ(mime.getBody(text, 0), 0);
        EXPECT_EQ(mime.getBodyPartId(text), 0);
        EXPECT_EQ(mime.getCalendarPartId(text), 0);
        RecordingFile file;
        EXPECT_EQ(mime.getICalendar(&file), 0);
        EXPECT_EQ(file.written(), "");
        EXPECT_EQ(mime.makeBoundariesUnique(), 0);
    }
}

TEST(EMAIL_MIMEQueries, HandleWithoutAMessageAnswersNeutrally)
{
    EMAIL_MIME mime;
    delete mime.mMessage;
    mime.mMessage = nullptr;
    EXPECT_FALSE(mime.hasAttachment());
    EXPECT_EQ(mime.getAttachNum(), 1) << "no type counts as one attachment";
    EXPECT_TRUE(mime.isCompleteMessage());
    QString text(QStringLiteral("x"));
    EXPECT_EQ(mime.getBody(text, 0), 0);
    EXPECT_TRUE(text.isEmpty());
    text = QStringLiteral("x");
    EXPECT_EQ(mime.getBodyPartId(text), 0);
    EXPECT_TRUE(text.isEmpty());
    EXPECT_EQ(mime.getCalendarPartId(text), 0);
    RecordingFile file;
    EXPECT_EQ(mime.getICalendar(&file), 0);
    EXPECT_EQ(mime.getBody(&file), 0);
    EXPECT_EQ(file.written(), "");
    mime.setRawBody(QStringLiteral("/no/such/file"));
    EXPECT_EQ(mime.mMessage, nullptr);
}

TEST(EMAIL_MIMEQueries, CharsetOfTheCallerCountsWhereNoneIsNamed)
{
    const QByteArray utf8("\xce\xb1");
    const EMAIL_MIME named(
        mixed({"Content-Type: text/plain; charset=utf-8\r\n\r\n" + utf8, image}));
    QString text;
    named.getBody(text, CHARSET_ISO_8859_1);
    EXPECT_EQ(text, QString::fromUtf8(utf8));
    const EMAIL_MIME unnamed(mixed({"Content-Type: text/plain\r\n\r\n" + utf8, image}));
    unnamed.getBody(text, CHARSET_UTF_8);
    EXPECT_EQ(text, QString::fromUtf8(utf8));
    unnamed.getBody(text, CHARSET_UNKNOWN);
    EXPECT_EQ(text, QString::fromLatin1(utf8)) << "read as Latin-1";
    const EMAIL_MIME single("Content-Type: text/plain; charset=odd\r\n\r\n" + utf8);
    single.getBody(text, CHARSET_UTF_8);
    EXPECT_EQ(text, QString::fromUtf8(utf8));
}

TEST(EMAIL_MIMEQueries, BodyOfASinglePartMessageIsWritten)
{
    const EMAIL_MIME single(QByteArray("Content-Type: image/png\r\n"
                                       "Content-Transfer-Encoding: base64\r\n\r\nYWJj"));
    RecordingFile file;
    EXPECT_EQ(single.getBody(&file), 0);
    EXPECT_EQ(file.written(), "abc");
    const EMAIL_MIME multipart(mixed({plain}));
    RecordingFile other;
    EXPECT_EQ(multipart.getBody(&other), 0);
    EXPECT_EQ(other.written(), "") << "nothing is written for a multipart message";
}

TEST(EMAIL_MIMEQueries, UnreadableBodyOfASinglePartMessageIsReported)
{
    const StoredFile stored(plain);
    EMAIL_MIME mime;
    ASSERT_EQ(mime.parse(stored.path()), 0);
    stored.cutTo(5);
    QString text(QStringLiteral("kept"));
    EXPECT_EQ(mime.getBody(text, 0), -1);
    EXPECT_EQ(text, QStringLiteral("kept"));
    RecordingFile file;
    EXPECT_EQ(mime.getBody(&file), -1);
}

TEST(EMAIL_MIMEQueries, UnreadableTextPartLeavesTheTextAlone)
{
    const StoredFile stored(mixed({plain, image}));
    EMAIL_MIME mime;
    ASSERT_EQ(mime.parse(stored.path()), 0);
    stored.cutTo(5);
    const OpenResources before = OpenResources::of(stored.path());
    QString text(QStringLiteral("kept"));
    EXPECT_EQ(mime.getBody(text, 0), 0) << "the part's failure is not passed on";
    EXPECT_EQ(text, QStringLiteral("kept"));
    EXPECT_EQ(OpenResources::of(stored.path()), before);
}

namespace {

struct RawBodyRow
{
    const char* name;
    QByteArray message;
    // Path of indices from part 0 down to the text part; null when nothing is taken.
    const char* path;
};

void PrintTo(const RawBodyRow& row, std::ostream* out)
{
    *out << row.name;
}

class RawBody : public testing::TestWithParam<RawBodyRow>
{
};

} // namespace

TEST_P(RawBody, BecomesTheBodyOfTheTextPart)
{
    const StoredFile stored("downloaded");
    EMAIL_MIME mime(GetParam().message);
    const QByteArray before = mime.assemble();
    mime.setRawBody(stored.path());
    if (GetParam().path == nullptr) {
        EXPECT_EQ(mime.assemble(), before);
        return;
    }
    EMAIL_MultiPart first(nullptr);
    ASSERT_TRUE(mime.getMultiPart(0, first));
    const EMAIL_MultiPart* part = &first;
    for (const char* index = GetParam().path; *index != '\0'; ++index)
        part = part->getSubMultiPart(*index - '0');
    QString path;
    int offset = -1;
    int length = -1;
    bool encoded = false;
    part->getBodyInfo(path, offset, length, encoded);
    EXPECT_EQ(path, stored.path());
    EXPECT_EQ(offset, 0);
    EXPECT_EQ(length, 10);
    EXPECT_TRUE(encoded);
    EXPECT_TRUE(part->isAttDownloaded());
    EXPECT_EQ(part->getPartID(), QStringLiteral("p"));
    QString text;
    mime.getBody(text, 0);
    EXPECT_EQ(text, QStringLiteral("downloaded"));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RawBody,
    testing::Values(RawBodyRow{"mixed of text", mixed({missingPlain, image}), ""},
                    RawBodyRow{"mixed of alternative", mixed({alternativeOf({missingPlain, html})}),
                               "0"},
                    RawBodyRow{"mixed of related of alternative",
                               mixed({container("multipart/related", "REL",
                                                {alternativeOf({missingPlain, html}), image})}),
                               "00"},
                    RawBodyRow{"alternative of text", alternativeOf({missingPlain, html}), ""},
                    RawBodyRow{"alternative of html", alternativeOf({html, missingPlain}), nullptr},
                    RawBodyRow{"alternative of related", alternativeOf({relatedPlain}), nullptr},
                    RawBodyRow{"mixed of html", mixed({html, missingPlain}), nullptr},
                    RawBodyRow{"mixed of html alternative",
                               mixed({alternativeOf({html, missingPlain})}), nullptr},
                    RawBodyRow{"mixed of related of text", mixed({relatedPlain}), nullptr},
                    RawBodyRow{"mixed of an empty alternative", mixed({emptyAlternative}), nullptr},
                    RawBodyRow{"mixed without parts", mixed({}), nullptr}),
    rowName<RawBodyRow>);

TEST(EMAIL_MIMEQueries, RawBodyRebuildsTheFirstPart)
{
    const StoredFile stored("downloaded");
    EMAIL_MIME mime(mixed({alternativeOf({missingPlain, html}), image}));
    mime.setRawBody(stored.path());
    EMAIL_MultiPart first(nullptr);
    ASSERT_TRUE(mime.getMultiPart(0, first));
    EXPECT_EQ(first.mBoundary.size(), 36) << "a fresh boundary";
    EXPECT_EQ(mime.getMultiPartCount(), 2);
    EXPECT_EQ(first.getSubMultiPart(1)->getBody(), "text of h");
}

TEST(EMAIL_MIMEQueries, RawBodyWithoutATextPartAddsNoFields)
{
    const StoredFile stored("downloaded");
    EMAIL_MIME mime(mixed({container("multipart/related", "REL", {"X: 1\r\n\r\nuntyped"})}));
    const EMAIL_Body& relatedBody = *mime.mMessage->mBody->bodyPart(0)->mBody;
    mime.setRawBody(stored.path());
    EXPECT_EQ(relatedBody.bodyPart(0)->mHeader->mFields.count(), 1);
}

namespace {

struct IdRow
{
    const char* name;
    QByteArray message;
};

void PrintTo(const IdRow& row, std::ostream* out)
{
    *out << row.name << ": ";
    printEscaped(row.message, out);
}

class MissingId : public testing::TestWithParam<IdRow>
{
};

const QByteArray emptyId("X-MESSAGE-PARTID: \r\n");

} // namespace

// What `getPartID()` gives of a part that is read out.
TEST_P(MissingId, IsNull)
{
    const EMAIL_MIME mime(GetParam().message);
    QString id(QStringLiteral("old"));
    const bool isCalendar = GetParam().message.contains("calendar");
    EXPECT_EQ(isCalendar ? mime.getCalendarPartId(id) : mime.getBodyPartId(id), 0);
    EXPECT_TRUE(id.isNull());
    EMAIL_MultiPart part(nullptr);
    ASSERT_TRUE(mime.getMultiPart(0, part));
    EXPECT_TRUE(part.getPartID().isNull());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, MissingId,
    testing::Values(IdRow{"text", mixed({"Content-Type: text/plain\r\n\r\nx"})},
                    IdRow{"empty text id",
                          mixed({"Content-Type: text/plain\r\n" + emptyId + "\r\nx"})},
                    IdRow{"calendar", alternativeOf({"Content-Type: text/calendar\r\n\r\nx"})},
                    IdRow{"empty calendar id",
                          alternativeOf({"Content-Type: text/calendar\r\n" + emptyId + "\r\nx"})}),
    rowName<IdRow>);

TEST(EMAIL_MIMEQueries, RawBodyOfASinglePartMessageIsItsBody)
{
    const StoredFile stored("downloaded");
    for (const QByteArray& message :
         {plain, html, container("application/vnd.wap.multipart.mixed", "W", {missingPlain})}) {
        EMAIL_MIME mime(message);
        QString path;
        int offset = -1;
        int length = -1;
        bool encoded = false;
        mime.setRawBody(stored.path());
        mime.getBodyInfo(path, offset, length, encoded);
        EXPECT_EQ(path, stored.path());
        EXPECT_EQ(offset, 0);
        EXPECT_EQ(length, 10);
        EXPECT_TRUE(encoded);
        for (const QString& missing : {stored.missingPath(), QString()}) {
            mime.setRawBody(missing);
            mime.getBodyInfo(path, offset, length, encoded);
            EXPECT_EQ(length, 0) << "a missing file counts as empty";
        }
    }
}

} // namespace email_mime_queries_test
