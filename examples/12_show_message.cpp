// SPDX-License-Identifier: MIT
// Shows a message as its reader sees it: the text, whatever form and charset it came in, what is
// attached, and what protects it.
#include <QFile>
#include <cstdio>
#include <extra/MessageContent.h>
#include <extra/MessageInput.h>
#include <extra/MessageMeasure.h>
#include <utility/EMAIL_MIME.h>
#include <utility/EMAIL_Message.h>

namespace {

// A limit of this program's own: more parts than a person can look through.
constexpr qint64 mostParts = 1000;

void list(const char* what, const tarvomime::MessageContent& content, const QList<int>& parts)
{
    for (const int part : parts) {
        const tarvomime::Result<QByteArray> bytes = tarvomime::partBytes(content.parts[part]);
        std::printf("%s %s: %s, %d bytes\n", what, tarvomime::partNumber(content, part).constData(),
                    content.parts[part].type.constData(), bytes ? int(bytes->size()) : -1);
    }
}

int fail(const QString& reason)
{
    std::fprintf(stderr, "%s\n", qPrintable(reason));
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s MESSAGE\n", argv[0]);
        return 2;
    }
    QFile file(QFile::decodeName(argv[1]));
    if (!file.open(QIODevice::ReadOnly))
        return fail(file.errorString());
    if (tarvomime::measureMessage(file.readAll()).parts > mostParts)
        return fail("more parts than this program shows");
    file.seek(0);

    EMAIL_MIME message;
    tarvomime::MessageInput input;
    if (const tarvomime::Result<void> read = input.read(file, message); !read)
        return fail(read.reason());
    const tarvomime::MessageContent content = tarvomime::readContent(*message.mMessage);
    const tarvomime::Result<QString> text = tarvomime::shownText(content);
    if (!text)
        return fail(text.reason());
    std::printf("%s\n", text->toUtf8().constData());
    list("inline", content, content.messages[0].inlineParts);
    list("attachment", content, content.messages[0].attachments);
    for (const tarvomime::SecurityWrapper& wrapper : content.messages[0].wrappers)
        std::printf("protected by %s\n", wrapper.protocol.constData());
    return 0;
}
