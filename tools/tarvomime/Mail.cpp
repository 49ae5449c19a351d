// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Mail.h"

#include "extra/AddressList.h"
#include "extra/EncodedWords.h"
#include "extra/MboxReader.h"
#include "tools/tarvomime/DeclaredCharset.h"
#include "tools/tarvomime/InputFile.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

#include <QStringList>

namespace tarvomime::tool {

QByteArray bytesAt(const MailPlace& place)
{
    const char* start = place.file->data() + place.offset;
    const QByteArray stored = QByteArray::fromRawData(start, static_cast<int>(place.length));
    return place.isInMbox() ? unquotedMboxMessage(stored, MboxQuoting::QuotedFromLines) : stored;
}

QByteArray fallbackCharset(const std::string& charset)
{
    return charset.empty() ? QByteArray("windows-1252") : QByteArray(charset.c_str());
}

Mail::Mail(const MailPlace& place, const std::string& charset)
    : mPlace(place), mBytes(bytesAt(place)), mFallback(fallbackCharset(charset))
{
    mMessage.mLength = static_cast<int>(mBytes.size());
    mMessage.mMessage->setMessage(QCString::fromBytes(mBytes));
    mMessage.mMessage->parse();
    if (!charset.empty())
        declareCharset(*mMessage.mMessage, mFallback);
}

const EMAIL_Header& Mail::header() const
{
    return *mMessage.mMessage->mHeader;
}

const MessageContent& Mail::content()
{
    if (!mContent)
        mContent = readContent(*mMessage.mMessage);
    return *mContent;
}

QString Mail::text(const char* field) const
{
    const EMAIL_Field* found = header().getField(field);
    return found == nullptr ? QString() : decodedWords(found->mBody, mFallback);
}

QString Mail::people(const char* field) const
{
    QStringList people;
    for (const Mailbox& mailbox : readAddressList(header(), field, mFallback))
        people.append(mailboxText(mailbox));
    return people.join(QStringLiteral(", "));
}

} // namespace tarvomime::tool
