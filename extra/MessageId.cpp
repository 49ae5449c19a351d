// SPDX-License-Identifier: MIT
#include "extra/MessageId.h"

#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"

#include <QRandomGenerator>
#include <QUrl>
#include <algorithm>

namespace tarvomime {

namespace {

// A header line has at most 998 characters.
constexpr int kLongestId = 900;
constexpr int kMostReferences = 50;

QCString bodyOf(const EMAIL_Header& header, const char* name)
{
    const EMAIL_Field* field = header.getField(name);
    return field == nullptr ? QCString() : field->mBody;
}

QByteArray randomText()
{
    QRandomGenerator* random = QRandomGenerator::system();
    return QByteArray::number(random->generate64(), 36) + '.' +
           QByteArray::number(random->generate64(), 36);
}

// Of printable ASCII, as it must be where it is written again.
bool isMessageId(std::string_view id)
{
    return id.back() == '>' && id.size() > 2 && id.size() <= kLongestId &&
           std::all_of(id.begin(), id.end(), [](char c) { return c > ' ' && c < '\x7F'; });
}

} // namespace

QCString makeMessageId(const QString& senderAddress)
{
    const QString domain = senderAddress.mid(senderAddress.lastIndexOf('@') + 1);
    QByteArray ascii = QUrl::toAce(domain);
    if (ascii.isEmpty())
        ascii = "message.invalid";
    return QCString('<' + randomText() + '@' + ascii + '>');
}

QList<QCString> readMessageIds(const QCString& body)
{
    QList<QCString> ids;
    const std::string_view text = body.view();
    std::size_t start = text.find('<');
    while (start != std::string_view::npos) {
        const std::size_t end = text.find_first_of("<> \t\r\n", start + 1);
        if (end == std::string_view::npos)
            break;
        const std::string_view id = text.substr(start, end - start + 1);
        if (isMessageId(id))
            ids.append(body.slice(id));
        start = text.find('<', id.back() == '<' ? end : end + 1);
    }
    return ids;
}

ThreadFields replyThread(const EMAIL_Header& original)
{
    const QList<QCString> own = readMessageIds(bodyOf(original, "Message-ID"));
    if (own.isEmpty())
        return {};
    QList<QCString> references = readMessageIds(bodyOf(original, "References"));
    if (references.isEmpty()) {
        references = readMessageIds(bodyOf(original, "In-Reply-To"));
        if (references.size() > 1)
            references.clear();
    }
    references.append(own.first());
    ThreadFields fields{own.first(), references.first()};
    const auto dropped = qMax<qint64>(0, references.size() - kMostReferences);
    for (auto i = 1 + dropped; i < references.size(); ++i)
        fields.references += "\r\n\t" + references.at(static_cast<int>(i));
    return fields;
}

} // namespace tarvomime
