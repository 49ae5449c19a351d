// SPDX-License-Identifier: MIT
// Which class a header field gets, and how its name is written.
#include "types/Ascii.h"
#include "utility/EMAIL_AddrList.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DateTime.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Header.h"
#include "utility/header/FieldNames.h"

#include <algorithm>
#include <array>

namespace {

using namespace tarvomime;

template <class Typed>
EMAIL_Field* make(EMAIL_Header* header)
{
    return new Typed(QCString(), header);
}

struct KnownField
{
    std::string_view key;
    const QCString& (*name)();
    EMAIL_Field* (*create)(EMAIL_Header*);
};

// 1. "Content-Id", "Mime-Version" and "Message-ID" are spelled as they are on purpose, though RFC
//    2045 and RFC 5322 write two of them otherwise: stored messages carry these spellings.
// The private "X-QRN-" fields are not listed: they keep the spelling they come with.
constexpr std::array<KnownField, 18> knownFields{{
    {"to", FieldName::to, make<EMAIL_AddrList>},
    {"cc", FieldName::cc, make<EMAIL_AddrList>},
    {"bcc", FieldName::bcc, make<EMAIL_AddrList>},
    {"reply-to", FieldName::replyTo, make<EMAIL_AddrList>},
    {"from", FieldName::from, make<EMAIL_AddrList>},
    {"sender", FieldName::sender, make<EMAIL_AddrList>},
    {"date", FieldName::date, make<EMAIL_DateTime>},
    {"subject", FieldName::subject, make<EMAIL_Field>},
    {"x-priority", FieldName::xPriority, make<EMAIL_Field>},
    {"content-description", FieldName::contentDescription, make<EMAIL_Field>},
    {"content-id", FieldName::contentId, make<EMAIL_Field>},
    {"content-transfer-encoding", FieldName::contentTransferEncoding, make<EMAIL_Field>},
    {"content-type", FieldName::contentType, make<EMAIL_ContentType>},
    {"mime-version", FieldName::mimeVersion, make<EMAIL_Field>},
    {"content-location", FieldName::contentLocation, make<EMAIL_Field>},
    {"x-mailer", FieldName::xMailer, make<EMAIL_Field>},
    {"content-disposition", FieldName::contentDisposition, make<EMAIL_DispositionType>},
    {"message-id", FieldName::messageId, make<EMAIL_Field>},
}};

} // namespace

EMAIL_Field* EMAIL_Header::createField(const QCString& name)
{
    const auto* known =
        std::find_if(knownFields.begin(), knownFields.end(), [&name](const KnownField& row) {
            return equalIgnoringCase(row.key, name.view());
        });
    const bool isKnown = known != knownFields.end();
    EMAIL_Field* created = isKnown ? known->create(this) : make<EMAIL_Field>(this);
    created->mName = isKnown ? known->name() : name;
    return created;
}
