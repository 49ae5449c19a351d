// SPDX-License-Identifier: MIT
// Which class a header field gets, and how its name is written.
#include "types/AllocationCheck.h"
#include "types/Ascii.h"
#include "utility/EMAIL_AddrList.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DateTime.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Header.h"
#include "utility/header/FieldFactory.h"
#include "utility/header/FieldNames.h"

#include <array>
#include <bit>
#include <cstdint>
#include <new>

namespace {

using namespace tarvomime;

template <class Typed>
EMAIL_Field* make(EMAIL_Header* header)
{
    return new (std::nothrow) Typed(QCString(), header);
}

struct KnownField
{
    std::string_view spelling;
    const QCString& (*name)();
    EMAIL_Field* (*create)(EMAIL_Header*);
};

// 1. "Content-Id", "Mime-Version" and "Message-ID" are spelled as they are on purpose, though RFC
//    2045 and RFC 5322 write two of them otherwise: stored messages carry these spellings.
// The private "X-QRN-" fields are not listed: they keep the spelling they come with.
constexpr std::array<KnownField, 18> kKnownFields{{
    {FieldName::toSpelling, FieldName::to, make<EMAIL_AddrList>},
    {FieldName::ccSpelling, FieldName::cc, make<EMAIL_AddrList>},
    {FieldName::bccSpelling, FieldName::bcc, make<EMAIL_AddrList>},
    {FieldName::replyToSpelling, FieldName::replyTo, make<EMAIL_AddrList>},
    {FieldName::fromSpelling, FieldName::from, make<EMAIL_AddrList>},
    {FieldName::senderSpelling, FieldName::sender, make<EMAIL_AddrList>},
    {FieldName::dateSpelling, FieldName::date, make<EMAIL_DateTime>},
    {FieldName::subjectSpelling, FieldName::subject, make<EMAIL_Field>},
    {FieldName::xPrioritySpelling, FieldName::xPriority, make<EMAIL_Field>},
    {FieldName::contentDescriptionSpelling, FieldName::contentDescription, make<EMAIL_Field>},
    {FieldName::contentIdSpelling, FieldName::contentId, make<EMAIL_Field>},
    {FieldName::contentTransferEncodingSpelling, FieldName::contentTransferEncoding,
     make<EMAIL_Field>},
    {FieldName::contentTypeSpelling, FieldName::contentType, make<EMAIL_ContentType>},
    {FieldName::mimeVersionSpelling, FieldName::mimeVersion, make<EMAIL_Field>},
    {FieldName::contentLocationSpelling, FieldName::contentLocation, make<EMAIL_Field>},
    {FieldName::xMailerSpelling, FieldName::xMailer, make<EMAIL_Field>},
    {FieldName::contentDispositionSpelling, FieldName::contentDisposition,
     make<EMAIL_DispositionType>},
    {FieldName::messageIdSpelling, FieldName::messageId, make<EMAIL_Field>},
}};

constexpr std::size_t kLongestName = FieldName::contentTransferEncodingSpelling.size();

using RowsByLength = std::array<std::uint32_t, kLongestName + 1>;

// One bit for each row whose name has that many bytes: at most three rows are ever compared.
constexpr RowsByLength makeRowsByLength()
{
    RowsByLength rows{};
    for (std::size_t row = 0; row < kKnownFields.size(); ++row)
        rows[kKnownFields[row].spelling.size()] |= 1U << row;
    return rows;
}

constexpr RowsByLength kRowsByLength = makeRowsByLength();

const KnownField* findKnown(std::string_view name)
{
    std::uint32_t rows = name.size() <= kLongestName ? kRowsByLength[name.size()] : 0;
    for (; rows != 0; rows &= rows - 1) {
        const KnownField& known = kKnownFields[static_cast<std::size_t>(std::countr_zero(rows))];
        if (equalIgnoringCase(known.spelling, name))
            return &known;
    }
    return nullptr;
}

} // namespace

EMAIL_Field* EMAIL_Header::createField(const QCString& name)
{
    return createFieldOf(*this, name, name.view());
}

EMAIL_Field* tarvomime::createFieldOf(EMAIL_Header& header, const QCString& text,
                                      std::string_view name)
{
    const KnownField* known = findKnown(name);
    EMAIL_Field* created = known != nullptr ? known->create(&header) : make<EMAIL_Field>(&header);
    TARVOMIME_CHECK_ALLOCATION(created, "created", "utility/EMAIL_Header.cpp",
                               "EMAIL_Field* EMAIL_Header::createField(const QCString&)");
    created->mName = known != nullptr ? known->name() : text.slice(name);
    return created;
}
