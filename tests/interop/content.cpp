// SPDX-License-Identifier: MIT
// interop_content FILE...: prints what the library on top finds in each message, a line of JSON a
// file: people, names of parts, the text to show, attachments.
#include "extra/AddressList.h"
#include "extra/AttachmentName.h"
#include "extra/EncodedWords.h"
#include "extra/MessageContent.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdio>

using namespace tarvomime;

namespace {

QJsonArray peopleOf(const EMAIL_Header& header, const char* field)
{
    QJsonArray people;
    for (const Mailbox& mailbox : readAddressList(header, field)) {
        if (!mailbox.isEmptyGroup())
            people.append(QJsonArray{mailbox.name, mailbox.address});
    }
    return people;
}

QJsonArray partsOf(const MessageContent& content)
{
    QJsonArray parts;
    for (const ContentPart& part : content.parts)
        parts.append(
            QJsonArray{QString::fromLatin1(part.type), attachmentName(*part.entity->mHeader)});
    return parts;
}

QJsonArray attachmentsOf(const MessageContent& content)
{
    QJsonArray attachments;
    for (const int index : content.messages[0].attachments)
        attachments.append(QString::fromLatin1(content.parts[index].type));
    return attachments;
}

QJsonObject describe(const QByteArray& bytes)
{
    EMAIL_Message message;
    message.setMessage(QCString::fromBytes(bytes));
    message.parse();
    const EMAIL_Header& header = *message.mHeader;
    const MessageContent content = readContent(message);
    const EMAIL_Field* subject = header.getField("Subject");
    return {{"subject", subject == nullptr ? QString() : decodedWords(subject->mBody)},
            {"from", peopleOf(header, "From")},
            {"to", peopleOf(header, "To")},
            {"cc", peopleOf(header, "Cc")},
            {"parts", partsOf(content)},
            {"attachments", attachmentsOf(content)},
            {"text", shownText(content).valueOr({})}};
}

} // namespace

int main(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        QFile file(QFile::decodeName(argv[i]));
        const bool isOpen = file.open(QIODevice::ReadOnly);
        const QJsonObject found = isOpen ? describe(file.readAll()) : QJsonObject();
        std::printf("%s\n", QJsonDocument(found).toJson(QJsonDocument::Compact).constData());
    }
    return 0;
}
