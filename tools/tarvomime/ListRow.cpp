// SPDX-License-Identifier: MIT
#include "tools/tarvomime/ListRow.h"

#include "extra/ReplySubject.h"
#include "tools/tarvomime/Cells.h"
#include "tools/tarvomime/Mail.h"
#include "tools/tarvomime/PlaceJson.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Style.h"

#include <QDateTime>
#include <algorithm>

namespace tarvomime::tool {

namespace {

constexpr int kWidestSender = 30;
constexpr int kNarrowestSender = 12;
constexpr int kMarks = 5;
constexpr int kNarrowestSubject = 20;
constexpr int kSubjectBesideFile = 40;

/// "2024-06-03 10:15" in the user's zone.
QString localDate(unsigned long date)
{
    if (date == 0)
        return {};
    return QDateTime::fromSecsSinceEpoch(qint64(date)).toString("yyyy-MM-dd HH:mm");
}

QString utcDate(unsigned long date)
{
    return QDateTime::fromSecsSinceEpoch(qint64(date), Qt::UTC).toString(Qt::ISODate);
}

int attachmentCount(Mail& mail)
{
    return static_cast<int>(mail.content().messages[0].attachments.size());
}

/// "@2" for two attachments, "!" for a message that was not downloaded completely.
QString marks(Mail& mail)
{
    const int count = attachmentCount(mail);
    const QString attachments = count > 0 ? '@' + QString::number(count) : QString();
    return mail.message().isCompleteMessage() ? attachments : attachments + '!';
}

/// The text as a terminal shows it, so that its cells can be counted.
QString shown(const QString& text)
{
    return QString::fromUtf8(printableLine(text.simplified()));
}

/// How a file of its messages is named on a command line.
QByteArray fileOf(const MailPlace& place)
{
    const QByteArray file = printableLine(place.file->path());
    return place.isInMbox() ? file + " --message " + QByteArray::number(place.number) : file;
}

QByteArray subjectAndFile(Mail& mail, const ListFormat& format, int room)
{
    const QString subject = shown(mail.text("Subject"));
    if (format.files)
        return column(subject, kSubjectBesideFile).toUtf8() + "  " + fileOf(mail.place());
    return (room > 0 ? cutToCells(subject, std::max(room, kNarrowestSubject)) : subject).toUtf8();
}

QByteArray lineFor(Mail& mail, const ListFormat& format)
{
    const Style style(format.color);
    const int sender = format.width == 0
                           ? kWidestSender
                           : std::clamp(format.width / 4, kNarrowestSender, kWidestSender);
    const QByteArray date = column(localDate(mail.message().getDate()), 16).toUtf8();
    const int room = format.width == 0 ? 0 : format.width - 16 - sender - kMarks - 3 * 2;
    return style.faint(date) + "  " + column(shown(mail.people("From")), sender).toUtf8() + "  " +
           style.mark(column(marks(mail), kMarks).toUtf8()) + "  " +
           subjectAndFile(mail, format, room);
}

QByteArray jsonFor(Mail& mail)
{
    const EMAIL_MIME& message = mail.message();
    QJsonObject object = placeAsJson(mail.place());
    object.insert("size", mail.place().length);
    const unsigned long date = message.getDate();
    if (date != 0)
        object.insert("date", utcDate(date));
    object.insert("displayDate", message.getDateStr());
    object.insert("from", mail.people("From"));
    object.insert("to", mail.people("To"));
    object.insert("subject", mail.text("Subject"));
    const int attachments = attachmentCount(mail);
    object.insert("hasAttachment", attachments > 0);
    object.insert("attachments", attachments);
    object.insert("complete", message.isCompleteMessage());
    return compactJson(object);
}

} // namespace

ListRow listRow(Mail& mail, const ListFormat& format)
{
    ListRow row{(format.json ? jsonFor(mail) : lineFor(mail, format)) + '\n', 0, {}};
    if (format.sort == "date")
        row.number = static_cast<qint64>(mail.message().getDate());
    if (format.sort == "size")
        row.number = mail.place().length;
    if (format.sort == "from")
        row.text = mail.people("From").toCaseFolded();
    if (format.sort == "subject")
        row.text = baseSubject(mail.text("Subject")).toCaseFolded();
    return row;
}

bool isBefore(const ListRow& a, const ListRow& b)
{
    return a.number != b.number ? a.number < b.number : a.text < b.text;
}

} // namespace tarvomime::tool
