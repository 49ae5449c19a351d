// SPDX-License-Identifier: MIT
// Answers a message, and forwards it without downloading it: the smart-send fields refer to the
// message on the server, which adds its text when the mail goes out.
#include <QFile>
#include <QStringList>
#include <cstdio>
#include <utility/EMAIL_Header.h>
#include <utility/EMAIL_MIME.h>

namespace {

constexpr int charset = CHARSET_ISO_8859_1;
constexpr int forwardOperation = 2; // the mail client chooses the numbers

QString quoted(const QString& text)
{
    return "> " + text.trimmed().remove('\r').replace('\n', "\n> ");
}

void print(const QCString& text)
{
    std::printf("%s\n", QByteArray(text).replace("\r\n", "\n").constData());
}

void answer(const EMAIL_MIME& original)
{
    QString text;
    original.getBody(text, charset);
    const QString replyTo = original.getReplyTo(charset);
    EMAIL_BasicMsg reply;
    reply.setTo(replyTo.isEmpty() ? original.getFrom(charset) : replyTo);
    reply.setSubject("Re: " + original.getSubject(charset));
    reply.setMimeVersion("1.0");
    reply.setCharset(CHARSET_UTF_8);
    reply.setCTE(CTE_8BIT);
    reply.setBody("Ich komme.\r\n\r\n" + quoted(text).replace('\n', "\r\n"), true);
    print(reply.assemble());
}

void forward(const EMAIL_MIME& original)
{
    const QByteArray note("Bitte lesen.");
    EMAIL_BasicMsg message;
    message.setTo("lukasz@garten.example");
    message.setSubject("Fwd: " + original.getSubject(charset));
    message.setBody(QString::fromLatin1(note), true);
    // Folder 3 and message 4711 are how the mail store knows the original.
    message.setSmartSendInfo(3, 4711, static_cast<unsigned int>(note.size()), forwardOperation);
    print(message.assemble());

    // The header text that goes to the server beside the data.
    print(message.getHeader()->getSmartData());
    std::printf("operation %d\n", message.getOperation());
}

} // namespace

int main(int argc, char** argv)
{
    EMAIL_MIME original;
    if (argc != 2 || original.parse(QFile::decodeName(argv[1])) != 0) {
        std::fprintf(stderr, "usage: %s MESSAGE\n", argv[0]);
        return 2;
    }
    answer(original);
    forward(original);
    return 0;
}
