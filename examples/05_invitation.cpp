// SPDX-License-Identifier: MIT
// Sends a meeting invitation, and reads one: a text for people beside a calendar for their phones.
#include <QFile>
#include <cstdio>
#include <utility/EMAIL_MIME.h>
#include <utility/EMAIL_MultiPart.h>

namespace {

bool send(const QString& calendar, const QString& target)
{
    EMAIL_MultiPart textPart;
    EMAIL_MultiPart calendarPart;
    const QString text = QString::fromUtf8("Wir treffen uns im Gewächshaus.");
    if (EMAIL_MIME::getIcsPart(calendar, text, "REQUEST", &textPart, &calendarPart) != 0)
        return false;
    EMAIL_MIME message;
    message.setTypeStr("multipart");
    message.setSubTypeStr("alternative");
    message.setDefaultFileds();
    message.setFrom("joern@garten.example");
    message.setTo("mira@garten.example");
    message.setSubject("Einladung");
    message.addMultiPart(textPart, -1);
    message.addMultiPart(calendarPart, -1);
    QFile file(target);
    return file.open(QIODevice::WriteOnly) && message.assemble(&file) == 0;
}

bool receive(const QString& path)
{
    EMAIL_MIME message;
    if (message.parse(path) != 0)
        return false;
    QString text;
    message.getBody(text, CHARSET_UTF_8);
    std::printf("%s\n", text.toUtf8().constData());
    for (int i = 0; i < message.getMultiPartCount(); ++i) {
        EMAIL_MultiPart part;
        if (message.getMultiPart(i, part) && !part.getMethod().isEmpty())
            std::printf("method %s, %s\n", qPrintable(part.getMethod()),
                        qPrintable(part.getName()));
    }
    std::printf("attachment mark: %s\n", message.hasAttachment() ? "yes" : "no");
    std::fflush(stdout);
    QFile out;
    return out.open(stdout, QIODevice::WriteOnly) && message.getICalendar(&out) == 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s CALENDAR MESSAGE\n", argv[0]);
        return 2;
    }
    const QString message = QFile::decodeName(argv[2]);
    return send(QFile::decodeName(argv[1]), message) && receive(message) ? 0 : 1;
}
