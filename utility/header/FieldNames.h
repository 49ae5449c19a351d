// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace tarvomime {

/// A string literal that a type can bear.
template <std::size_t kSize>
struct Literal
{
    // NOLINTNEXTLINE(google-explicit-constructor): a literal is one.
    constexpr Literal(const char (&literal)[kSize]) { std::copy_n(literal, kSize, text); }

    char text[kSize]{};
};

/// A name that the library knows: as a constant, and as one shared text, so that naming costs no
/// allocation.
template <Literal kLiteral>
struct KnownName
{
    static constexpr std::string_view kSpelling{kLiteral.text, sizeof kLiteral.text - 1};

    const QCString& operator()() const
    {
        static const QCString text = QCString::fromLiteral(kLiteral.text);
        return text;
    }
};

} // namespace tarvomime

/// The names of the header fields that the library knows, spelled as they are written.
namespace tarvomime::FieldName {

inline const KnownName<"To"> to;
inline const KnownName<"Cc"> cc;
inline const KnownName<"Bcc"> bcc;
inline const KnownName<"Reply-To"> replyTo;
inline const KnownName<"From"> from;
inline const KnownName<"Sender"> sender;
inline const KnownName<"Date"> date;
inline const KnownName<"Subject"> subject;
inline const KnownName<"X-Priority"> xPriority;
inline const KnownName<"Content-Description"> contentDescription;
inline const KnownName<"Content-Id"> contentId;
inline const KnownName<"Content-Transfer-Encoding"> contentTransferEncoding;
inline const KnownName<"Content-Type"> contentType;
inline const KnownName<"Mime-Version"> mimeVersion;
inline const KnownName<"Content-Location"> contentLocation;
inline const KnownName<"X-Mailer"> xMailer;
inline const KnownName<"Content-Disposition"> contentDisposition;
inline const KnownName<"Message-ID"> messageId;

// Private bookkeeping of the phone, and requests for notifications.
inline const KnownName<"X-MESSAGE-PARTID"> partId;
inline const KnownName<"X-QRN-AS-Attn-Size"> attachmentSize;
inline const KnownName<"X-QRN-AS-Attn-Name"> attachmentName;
inline const KnownName<"X-QRN-AS-Attn-Undownload"> attachmentNotDownloaded;
inline const KnownName<"X-QRN-Message-Body-Size"> bodySize;
inline const KnownName<"X-QRN-Message-Body-Truncated"> bodyTruncated;
inline const KnownName<"X-QRN-Smart-Send-RefFolderID"> smartSendFolder;
inline const KnownName<"X-QRN-Smart-Send-RefMessageID"> smartSendMessage;
inline const KnownName<"X-QRN-Smart-Send-Data-Length"> smartSendLength;
inline const KnownName<"X-QRN-Smart-Send-Type"> smartSendType;
inline const KnownName<"X-QRN-DSN"> deliveryNotification;
inline const KnownName<"Disposition-Notification-To"> dispositionNotificationTo;
inline const KnownName<"Return-Receipt-To"> returnReceiptTo;

} // namespace tarvomime::FieldName
