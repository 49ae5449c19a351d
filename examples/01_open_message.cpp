// SPDX-License-Identifier: MIT
// Opens a stored message and shows sender, subject, date and text.
//
// The file is mapped while it is parsed; afterwards only the header's text is in memory, and the
// body is read when it is asked for.
#include <QFile>
#include <QString>
#include <cstdio>
#include <utility/EMAIL_MIME.h>

namespace {

void show(const char* name, const QString& value)
{
    std::printf("%-10s%s\n", name, value.simplified().toUtf8().constData());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s MESSAGE\n", argv[0]);
        return 2;
    }
    EMAIL_MIME message;
    if (message.parse(QFile::decodeName(argv[1])) != 0) {
        std::fprintf(stderr, "cannot open %s\n", argv[1]);
        return 1;
    }
    // The charset counts for 8-bit text that does not say what it is.
    const int charset = CHARSET_ISO_8859_1;
    show("From:", message.getFrom(charset));
    show("To:", message.getTo(charset));
    show("Subject:", message.getSubject(charset));
    show("Date:", message.getDateStr());
    std::printf("%-10s%d\n", "Attached:", message.getAttachNum());

    QString text;
    if (message.getBody(text, charset) != 0) {
        std::fprintf(stderr, "cannot read the text\n");
        return 1;
    }
    std::printf("\n%s\n", text.remove('\r').trimmed().toUtf8().constData());
    return 0;
}
