// SPDX-License-Identifier: MIT
#include "tools/tarvomime/ListRow.h"

#include "extra/ReplySubject.h"
#include "tools/tarvomime/Cells.h"
#include "tools/tarvomime/Mail.h"
#include "tools/tarvomime/PlaceJson.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Style.h"
#include "utility/EMAIL_DateTime.h"
#include "utility/EMAIL_Header.h"

#include <QDateTime>
#include <algorithm>
#include <limits>
#include <vector>

namespace tarvomime::tool {

namespace {

constexpr int kDate = 16;
constexpr int kWidestSender = 30;
constexpr int kNarrowestSender = 12;
constexpr int kMarks = 5;
constexpr int kNarrowestSubject = 20;
constexpr int kSubjectBesideFile = 40;
constexpr int kUnbounded = std::numeric_limits<int>::max();

// The library takes a year as it is written. Of less than four digits people read it as RFC 5322,
// section 4.3, does: old mail is from "95", and clocks that count from 1900 wrote "108".
int yearSince1900(int asWritten)
{
    const int year = asWritten + 1900;
    if (year < 0 || year >= 1000)
        return asWritten;
    return year < 50 ? year + 100 : year;
}

// When the message says that it was written, in seconds since 1970; 0 where it does not.
qint64 timeOf(const Mail& mail)
{
    const EMAIL_DateTime* field = mail.header().getDate();
    if (field == nullptr)
        return 0;
    EMAIL_DateTime date;
    date.mTime = field->mTime;
    date.mTime.tm_year = yearSince1900(field->mTime.tm_year);
    date.mZone = field->mZone;
    // Times before 1970 are counted back from the top of the range.
    return static_cast<long>(date.getTime());
}

// "2024-06-03 10:15" in the user's zone.
QString localDate(qint64 time)
{
    return time == 0 ? QString() : QDateTime::fromSecsSinceEpoch(time).toString("yyyy-MM-dd HH:mm");
}

// Empty for years that the form has no room for.
QString utcDate(qint64 time)
{
    return time == 0 ? QString()
                     : QDateTime::fromSecsSinceEpoch(time, Qt::UTC).toString(Qt::ISODate);
}

int attachmentCount(Mail& mail)
{
    return static_cast<int>(mail.content().messages[0].attachments.size());
}

// "@2" for two attachments, "!" for a message that was not downloaded completely.
QString marks(Mail& mail)
{
    const int count = attachmentCount(mail);
    const QString attachments = count > 0 ? '@' + QString::number(count) : QString();
    return mail.message().isCompleteMessage() ? attachments : attachments + '!';
}

// The text as a terminal shows it, so that its cells can be counted.
QString shown(const QString& text)
{
    return QString::fromUtf8(printableLine(text.simplified()));
}

// How a file of its messages is named on a command line.
QString fileOf(const MailPlace& place)
{
    const QString file = QString::fromUtf8(printableLine(place.file->path()));
    return place.isInMbox() ? file + " --message " + QString::number(place.number) : file;
}

// A column of a line. What is only blank is none.
struct Cell
{
    QString text;
    int width;
    QByteArray (Style::*paint)(const QByteArray& text) const;
};

// The line ends with the last column that holds something.
QByteArray joined(const std::vector<Cell>& cells, const Style& style)
{
    std::size_t count = cells.size();
    while (count > 0 && cells[count - 1].text.isEmpty())
        --count;
    QByteArray line;
    for (std::size_t i = 0; i < count; ++i) {
        const Cell& cell = cells[i];
        const QString text = i + 1 < count ? column(cell.text, cell.width) + QString(2, ' ')
                                           : cutToCells(cell.text, cell.width);
        line += cell.paint == nullptr ? text.toUtf8() : (style.*cell.paint)(text.toUtf8());
    }
    return line;
}

int subjectWidth(const ListFormat& format, int widthBefore)
{
    if (format.files)
        return kSubjectBesideFile;
    return format.width == 0 ? kUnbounded : std::max(format.width - widthBefore, kNarrowestSubject);
}

QByteArray lineFor(Mail& mail, const ListFormat& format)
{
    const int sender = format.width == 0
                           ? kWidestSender
                           : std::clamp(format.width / 4, kNarrowestSender, kWidestSender);
    std::vector<Cell> cells = {{localDate(timeOf(mail)), kDate, &Style::faint},
                               {shown(mail.people("From")), sender, nullptr},
                               {marks(mail), kMarks, &Style::mark},
                               {shown(mail.text("Subject")),
                                subjectWidth(format, kDate + sender + kMarks + 3 * 2), nullptr}};
    if (format.files)
        cells.push_back({fileOf(mail.place()), kUnbounded, nullptr});
    return joined(cells, Style(format.color));
}

QByteArray jsonFor(Mail& mail)
{
    const EMAIL_MIME& message = mail.message();
    QJsonObject object = placeAsJson(mail.place());
    object.insert("size", mail.place().length);
    const QString date = utcDate(timeOf(mail));
    if (!date.isEmpty())
        object.insert("date", date);
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
        row.number = timeOf(mail);
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
