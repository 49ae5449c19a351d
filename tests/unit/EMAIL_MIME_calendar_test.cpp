// SPDX-License-Identifier: MIT
#include "tests/support/OpenResources.h"
#include "tests/support/RecordingFile.h"
#include "tests/support/RowNames.h"
#include "tests/support/StoredFile.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

#include <sys/stat.h>

namespace email_mime_calendar_test {

namespace {

QByteArray part(const QByteArray& type, const QByteArray& id)
{
    return "Content-Type: " + type + "\r\nX-MESSAGE-PARTID: " + id + "\r\n" +
           "Content-Transfer-Encoding: base64\r\n\r\n" + ("<" + id + ">").toBase64();
}

QByteArray multipart(const QByteArray& subType, const QByteArray& boundary,
                     const QList<QByteArray>& parts)
{
    QByteArray text = "Content-Type: multipart/" + subType + "; boundary=" + boundary + "\r\n\r\n";
    for (const QByteArray& p : parts)
        text += "--" + boundary + "\r\n" + p + "\r\n";
    return text + "--" + boundary + "--\r\n";
}

const QByteArray plain = part("text/plain", "p");
const QByteArray first = part("text/calendar", "c1");
const QByteArray second = part("TEXT/Calendar; method=REQUEST", "c2");
const QByteArray invitation = multipart("alternative", "ALT", {plain, first, second});

struct CalendarRow
{
    const char* name;
    QByteArray message;
    const char* written;
    const char* id;
};

void PrintTo(const CalendarRow& row, std::ostream* out)
{
    *out << row.name;
}

class CalendarParts : public testing::TestWithParam<CalendarRow>
{
protected:
    static void expectAnswers(const EMAIL_MIME& mime)
    {
        RecordingFile file;
        EXPECT_EQ(mime.getICalendar(&file), 0);
        EXPECT_EQ(file.written(), GetParam().written);
        QString id(QStringLiteral("stale"));
        EXPECT_EQ(mime.getCalendarPartId(id), 0);
        EXPECT_EQ(id, QString::fromLatin1(GetParam().id));
        for (const int mode : {0, 1, 2}) {
            id = QStringLiteral("stale");
            EXPECT_EQ(mime.getCalendarOrPartId(&file, id, mode), 0);
            EXPECT_EQ(id, mode == 1 ? QString::fromLatin1(GetParam().id) : QString())
                << "emptied in mode " << mode;
        }
    }
};

} // namespace

TEST_P(CalendarParts, InMemory)
{
    expectAnswers(EMAIL_MIME(GetParam().message));
}

TEST_P(CalendarParts, InAFile)
{
    const StoredFile stored(GetParam().message);
    EMAIL_MIME mime;
    ASSERT_EQ(mime.parse(stored.path()), 0);
    const OpenResources before = OpenResources::of(stored.path());
    expectAnswers(mime);
    EXPECT_EQ(OpenResources::of(stored.path()), before);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CalendarParts,
    testing::Values(
        CalendarRow{"calendar alone", first, "<c1>", ""}, CalendarRow{"plain text", plain, "", ""},
        CalendarRow{"alternative of two calendars", invitation, "<c1><c2>", "c2"},
        CalendarRow{"alternative without calendar", multipart("alternative", "A", {plain}), "", ""},
        CalendarRow{"alternative without parts", multipart("alternative", "A", {}), "", ""},
        CalendarRow{"mixed of an invitation", multipart("mixed", "M", {invitation, plain}),
                    "<c1><c2>", "c2"},
        CalendarRow{"mixed of a calendar", multipart("mixed", "M", {first}), "", ""},
        CalendarRow{"invitation that is not first", multipart("mixed", "M", {plain, invitation}),
                    "", ""},
        CalendarRow{"invitation too deep",
                    multipart("mixed", "M", {multipart("related", "R", {invitation})}), "", ""},
        CalendarRow{"wap container",
                    QByteArray(multipart("mixed", "M", {invitation}))
                        .replace("multipart/mixed", "application/vnd.wap.multipart.mixed"),
                    "", ""}),
    rowName<CalendarRow>);

TEST(EMAIL_MIMECalendar, FailureShowsForASingleCalendarOnly)
{
    QFile full(QStringLiteral("/dev/full"));
    ASSERT_TRUE(full.open(QIODevice::WriteOnly));
    EXPECT_EQ(EMAIL_MIME(first).getICalendar(&full), -1);
    EXPECT_EQ(EMAIL_MIME(invitation).getICalendar(&full), 0);
    EXPECT_EQ(EMAIL_MIME(first).getICalendar(nullptr), -1);
    EXPECT_EQ(EMAIL_MIME(invitation).getICalendar(nullptr), 0);
}

// Nobody but an application that handles the lists itself can put one there.
TEST(EMAIL_MIMECalendar, NullPartsEndTheMessageAndNoPart)
{
    EMAIL_MIME alternative(invitation);
    alternative.mMessage->mBody->mBodyParts.prepend(nullptr);
    RecordingFile none;
    EXPECT_EQ(alternative.getICalendar(&none), 0);
    EXPECT_EQ(none.written(), "");
    EMAIL_MIME wrapped(multipart("mixed", "MIX", {invitation}));
    wrapped.mMessage->mBody->bodyPart(0)->mBody->mBodyParts.prepend(nullptr);
    RecordingFile both;
    EXPECT_EQ(wrapped.getICalendar(&both), 0);
    EXPECT_EQ(both.written(), "<c1><c2>");
}

TEST(EMAIL_MIMECalendar, InvitationIsBuiltOfTwoParts)
{
    const QByteArray ics("BEGIN:VCALENDAR\r\nSUMMARY:caf\xc3\xa9\r\nEND:VCALENDAR\r\n");
    const StoredFile stored(ics);
    const OpenResources before = OpenResources::of(stored.path());
    const QString text = QString::fromUtf8("Come at \xce\xb1");
    EMAIL_MultiPart textPart(nullptr);
    EMAIL_MultiPart calPart(nullptr);
    EXPECT_EQ(
        EMAIL_MIME::getIcsPart(stored.path(), text, QStringLiteral("REQUEST"), &textPart, &calPart),
        0);
    EXPECT_EQ(OpenResources::of(stored.path()), before);
    EXPECT_EQ(textPart.getType(), TYPE_TEXT);
    EXPECT_EQ(textPart.getSubTypeStr(), QStringLiteral("plain"));
    EXPECT_EQ(textPart.getCTE(), CTE_8BIT);
    EXPECT_EQ(textPart.getCharset(), CHARSET_UTF_8);
    EXPECT_EQ(textPart.mBodyData, text.toUtf8());
    EXPECT_EQ(calPart.getType(), TYPE_TEXT);
    EXPECT_EQ(calPart.getSubTypeStr(), QStringLiteral("calendar"));
    EXPECT_EQ(calPart.getCTE(), CTE_8BIT);
    EXPECT_EQ(calPart.getCharset(), 0) << "not set";
    EXPECT_EQ(calPart.getName(), QStringLiteral("meeting.ics"));
    EXPECT_EQ(calPart.getMethod(), QStringLiteral("REQUEST"));
    EXPECT_EQ(calPart.mBodyData, ics);
    EXPECT_EQ(calPart.mBodyLength, int(ics.size()));

    EMAIL_MIME mime;
    mime.setType(TYPE_MULTIPART);
    mime.setSubTypeStr(QStringLiteral("alternative"));
    mime.setDefaultFileds();
    mime.addMultiPart(textPart, -1);
    mime.addMultiPart(calPart, -1);
    const EMAIL_MIME received{QByteArray(mime.assemble())};
    QString read;
    EXPECT_EQ(received.getBody(read, 0), 0);
    EXPECT_EQ(read, text);
    RecordingFile file;
    EXPECT_EQ(received.getICalendar(&file), 0);
    EXPECT_EQ(file.written(), ics.trimmed()) << "line breaks at the ends are the delimiter's";
}

TEST(EMAIL_MIMECalendar, UnreadableFileLeavesTheCalendarWithoutABody)
{
    const StoredFile stored("");
    const OpenResources before = OpenResources::of(stored.path());
    const StoredFile folder("");
    // Nobody writes into it.
    ASSERT_EQ(mkfifo(qPrintable(folder.missingPath()), 0600), 0);
    for (const QString& path : {stored.missingPath(), QStringLiteral("/"), QString(),
                                folder.missingPath(), QStringLiteral("/dev/null")}) {
        EMAIL_MultiPart textPart(nullptr);
        EMAIL_MultiPart calPart(nullptr);
        EXPECT_EQ(EMAIL_MIME::getIcsPart(path, QStringLiteral("x"), QStringLiteral("CANCEL"),
                                         &textPart, &calPart),
                  -1);
        EXPECT_EQ(textPart.getBody(), "x");
        EXPECT_EQ(calPart.getMethod(), QStringLiteral("CANCEL"));
        EXPECT_TRUE(calPart.mBodyData.isEmpty());
    }
    EXPECT_EQ(OpenResources::of(stored.path()), before);
    EMAIL_MultiPart only(nullptr);
    EXPECT_EQ(EMAIL_MIME::getIcsPart(stored.path(), QString(), QString(), nullptr, &only), -1);
    EXPECT_EQ(EMAIL_MIME::getIcsPart(stored.path(), QString(), QString(), &only, nullptr), -1);
}

TEST(EMAIL_MIMECalendar, FileMayBeEmptyAndNeedNotBeWritable)
{
    for (const char* calendar : {"", "BEGIN:VCALENDAR\r\n"}) {
        const StoredFile stored(calendar);
        ASSERT_TRUE(QFile::setPermissions(stored.path(), QFileDevice::ReadOwner));
        EMAIL_MultiPart textPart(nullptr);
        EMAIL_MultiPart calPart(nullptr);
        EXPECT_EQ(EMAIL_MIME::getIcsPart(stored.path(), QString(), QStringLiteral("REQUEST"),
                                         &textPart, &calPart),
                  0);
        EXPECT_EQ(calPart.mBodyData, calendar);
    }
}

} // namespace email_mime_calendar_test
