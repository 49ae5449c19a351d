// SPDX-License-Identifier: MIT
// Answers a message to all, forwards it inside a text and as an attachment, and forwards it without
// downloading it: the smart-send fields refer to the message on the server, which adds its text
// when the mail goes out.
#include <QFile>
#include <cstdio>
#include <extra/AddressList.h>
#include <extra/Quoting.h>
#include <extra/Reply.h>
#include <utility/EMAIL_Header.h>
#include <utility/EMAIL_MIME.h>
#include <utility/EMAIL_MultiPart.h>

using tarvomime::Result;

namespace {

constexpr int charset = CHARSET_ISO_8859_1;
constexpr int forwardOperation = 2; // the mail client chooses the numbers

// The person who writes. Date and id are made where they are not given; here they are, so that
// each run prints the same.
tarvomime::ReplyOptions writer(const char* id)
{
    tarvomime::ReplyOptions options;
    options.from.name = QStringLiteral("Okafor, Mira");
    options.from.address = QStringLiteral("mira@garten.example");
    options.kind = tarvomime::ReplyKind::All;
    options.date = QDateTime::fromSecsSinceEpoch(1717490700);
    options.messageId = id;
    return options;
}

bool complain(const Result<void>& result)
{
    if (!result)
        std::fprintf(stderr, "%s\n", result.reason().toLocal8Bit().constData());
    return !result;
}

void print(const QCString& text)
{
    std::printf("%s\n", QByteArray(text).replace("\r\n", "\n").constData());
}

bool answer(const EMAIL_MIME& original)
{
    QString text;
    original.getBody(text, charset);
    EMAIL_BasicMsg reply;
    if (complain(
            tarvomime::startReply(*original.getHeader(), writer("<answer@garten.example>"), reply)))
        return false;
    reply.setCTE(CTE_8BIT);
    tarvomime::setFlowedBody(reply, "Ich komme.\n\n" + tarvomime::quotedText(text));
    print(reply.assemble());
    return true;
}

bool forwardInText(const EMAIL_MIME& original)
{
    QString text;
    original.getBody(text, charset);
    EMAIL_BasicMsg message;
    if (complain(tarvomime::startForward(*original.getHeader(), writer("<inline@garten.example>"),
                                         message)))
        return false;
    message.setTo("lukasz@garten.example");
    message.setCTE(CTE_8BIT);
    tarvomime::setFlowedBody(message, "Bitte lesen.\n\n" +
                                          tarvomime::forwardedText(*original.getHeader(), text,
                                                                   "Weitergeleitete Nachricht"));
    print(message.assemble());
    return true;
}

bool forwardAttached(const EMAIL_MIME& original, const QByteArray& bytes)
{
    EMAIL_MIME message;
    if (complain(tarvomime::startForward(*original.getHeader(), writer("<attached@garten.example>"),
                                         message)))
        return false;
    message.setTo("lukasz@garten.example");
    message.setType(TYPE_MULTIPART);
    message.setSubTypeStr("mixed");
    message.setDefaultFileds();
    EMAIL_MultiPart part;
    tarvomime::attachMessage(bytes, part);
    message.addMultiPart(part, -1);
    const bool whole = QByteArray(message.assemble()).contains(bytes);
    std::printf("%s, the original %s\n\n", message.getSubject(charset).toUtf8().constData(),
                whole ? "is attached as it is" : "is lost");
    return whole;
}

void forwardOnServer(const EMAIL_MIME& original)
{
    const QByteArray note("Bitte lesen.");
    EMAIL_BasicMsg message;
    if (complain(tarvomime::startForward(*original.getHeader(), writer("<server@garten.example>"),
                                         message)))
        return;
    message.setTo("lukasz@garten.example");
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
    QFile file(argc == 2 ? QFile::decodeName(argv[1]) : QString());
    if (original.parse(file.fileName()) != 0 || !file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "usage: %s MESSAGE\n", argv[0]);
        return 2;
    }
    if (!answer(original) || !forwardInText(original) || !forwardAttached(original, file.readAll()))
        return 1;
    forwardOnServer(original);
    return 0;
}
