// SPDX-License-Identifier: MIT
// interop_read FILE...: prints what the library finds in each message, a line of JSON a file.
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_MultiPart.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryFile>
#include <cstdio>

namespace {

QString contentOf(const EMAIL_MultiPart& part)
{
    QTemporaryFile file;
    if (!file.open() || part.getBody(&file) != 0)
        return QStringLiteral("(unreadable)");
    file.seek(0);
    return QString::fromLatin1(file.readAll().toBase64());
}

QJsonObject nodeOf(const EMAIL_MultiPart& part)
{
    const QString type = part.getTypeStr() + '/' + part.getSubTypeStr();
    if (part.getType() == TYPE_MULTIPART) {
        QJsonArray parts;
        for (int i = 0; i < part.getSubMultiPartCount(); ++i)
            parts.append(nodeOf(*part.getSubMultiPart(i)));
        return {{"type", type}, {"parts", parts}};
    }
    QJsonObject node{{"type", type},
                     {"name", part.getName()},
                     {"file", part.getDispFileName()},
                     {"attachment", part.getDispType() == 1},
                     {"bytes", contentOf(part)}};
    if (part.getType() == TYPE_TEXT) {
        QString text;
        part.getTextBody(text, CHARSET_US_ASCII);
        node["text"] = text;
    }
    return node;
}

QJsonObject messageOf(const QString& path)
{
    EMAIL_MIME message;
    bool hasHeader = false;
    EMAIL_MultiPart root(nullptr);
    if (message.parse(path) != 0 ||
        EMAIL_MIME::convertFileToMulitPart(path, root, hasHeader) != 0 || !hasHeader)
        return {};
    QString text;
    message.getBody(text, CHARSET_US_ASCII);
    return {{"subject", message.getSubject(0)},
            {"from", message.getFrom(0)},
            {"to", message.getTo(0)},
            {"body", text},
            {"attachments", message.getAttachNum()},
            {"root", nodeOf(root)}};
}

} // namespace

int main(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        const QJsonDocument line(messageOf(QString::fromLocal8Bit(argv[i])));
        std::printf("%s\n", line.toJson(QJsonDocument::Compact).constData());
    }
    return 0;
}
