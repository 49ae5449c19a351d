// SPDX-License-Identifier: MIT
#pragma once

#include "extra/MessageContent.h"
#include "tools/tarvomime/MailSource.h"
#include "utility/EMAIL_MIME.h"

#include <QByteArray>
#include <optional>
#include <string>

namespace tarvomime::tool {

/// The bytes of a message as they were before an mbox took them in: quoted "From " lines are
/// restored. They refer to the file of the place where that is no mbox.
QByteArray bytesAt(const MailPlace& place);

/// The charset to read undeclared text in where its bytes tell nothing: what the user says, if that
/// is anything.
QByteArray fallbackCharset(const std::string& charset);

/// A message that was found, parsed in memory: its texts are slices of the mapped file.
class Mail
{
public:
    /// `charset` is for text that does not say its own; empty where that is to be proposed.
    Mail(const MailPlace& place, const std::string& charset);
    Mail(const Mail&) = delete;
    Mail& operator=(const Mail&) = delete;

    const MailPlace& place() const { return mPlace; }
    std::string name() const { return mPlace.name(); }
    EMAIL_MIME& message() { return mMessage; }
    const EMAIL_Header& header() const;
    /// What a reader sees of it.
    const MessageContent& content();
    const QByteArray& fallback() const { return mFallback; }

    /// A field's value for people; empty without the field.
    QString text(const char* field) const;
    /// The people of an address field, for people.
    QString people(const char* field) const;

private:
    MailPlace mPlace;
    QByteArray mBytes;
    QByteArray mFallback;
    EMAIL_MIME mMessage;
    std::optional<MessageContent> mContent;
};

} // namespace tarvomime::tool
