// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <string_view>

/// The names of the header fields that the library knows, spelled as they are written. Each is one
/// shared text: naming a field costs no allocation. `toSpelling` and so on are the same as
/// constants.
namespace tarvomime::FieldName {

#define TARVOMIME_FIELD_NAME(function, spelling)                                                   \
    constexpr std::string_view function##Spelling = spelling;                                      \
    inline const QCString& function()                                                              \
    {                                                                                              \
        static const QCString name = QCString::fromLiteral(spelling);                              \
        return name;                                                                               \
    }

TARVOMIME_FIELD_NAME(to, "To")
TARVOMIME_FIELD_NAME(cc, "Cc")
TARVOMIME_FIELD_NAME(bcc, "Bcc")
TARVOMIME_FIELD_NAME(replyTo, "Reply-To")
TARVOMIME_FIELD_NAME(from, "From")
TARVOMIME_FIELD_NAME(sender, "Sender")
TARVOMIME_FIELD_NAME(date, "Date")
TARVOMIME_FIELD_NAME(subject, "Subject")
TARVOMIME_FIELD_NAME(xPriority, "X-Priority")
TARVOMIME_FIELD_NAME(contentDescription, "Content-Description")
TARVOMIME_FIELD_NAME(contentId, "Content-Id")
TARVOMIME_FIELD_NAME(contentTransferEncoding, "Content-Transfer-Encoding")
TARVOMIME_FIELD_NAME(contentType, "Content-Type")
TARVOMIME_FIELD_NAME(mimeVersion, "Mime-Version")
TARVOMIME_FIELD_NAME(contentLocation, "Content-Location")
TARVOMIME_FIELD_NAME(xMailer, "X-Mailer")
TARVOMIME_FIELD_NAME(contentDisposition, "Content-Disposition")
TARVOMIME_FIELD_NAME(messageId, "Message-ID")

// Private bookkeeping of the phone, and requests for notifications.
TARVOMIME_FIELD_NAME(partId, "X-MESSAGE-PARTID")
TARVOMIME_FIELD_NAME(attachmentSize, "X-QRN-AS-Attn-Size")
TARVOMIME_FIELD_NAME(attachmentName, "X-QRN-AS-Attn-Name")
TARVOMIME_FIELD_NAME(attachmentNotDownloaded, "X-QRN-AS-Attn-Undownload")
TARVOMIME_FIELD_NAME(bodySize, "X-QRN-Message-Body-Size")
TARVOMIME_FIELD_NAME(bodyTruncated, "X-QRN-Message-Body-Truncated")
TARVOMIME_FIELD_NAME(smartSendFolder, "X-QRN-Smart-Send-RefFolderID")
TARVOMIME_FIELD_NAME(smartSendMessage, "X-QRN-Smart-Send-RefMessageID")
TARVOMIME_FIELD_NAME(smartSendLength, "X-QRN-Smart-Send-Data-Length")
TARVOMIME_FIELD_NAME(smartSendType, "X-QRN-Smart-Send-Type")
TARVOMIME_FIELD_NAME(deliveryNotification, "X-QRN-DSN")
TARVOMIME_FIELD_NAME(dispositionNotificationTo, "Disposition-Notification-To")
TARVOMIME_FIELD_NAME(returnReceiptTo, "Return-Receipt-To")

#undef TARVOMIME_FIELD_NAME

} // namespace tarvomime::FieldName
