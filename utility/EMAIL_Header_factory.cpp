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

template <class Typed, class Name>
constexpr KnownField row(Name)
{
    return {Name::kSpelling, []() -> const QCString& { return Name()(); }, make<Typed>};
}

// 1. "Content-Id", "Mime-Version" and "Message-ID" are spelled as they are on purpose, though RFC
//    2045 and RFC 5322 write two of them otherwise: stored messages carry these spellings.
// The private "X-QRN-" fields are not listed: they keep the spelling they come with.
constexpr std::array<KnownField, 18> kKnownFields{{
    row<EMAIL_AddrList>(FieldName::to),
    row<EMAIL_AddrList>(FieldName::cc),
    row<EMAIL_AddrList>(FieldName::bcc),
    row<EMAIL_AddrList>(FieldName::replyTo),
    row<EMAIL_AddrList>(FieldName::from),
    row<EMAIL_AddrList>(FieldName::sender),
    row<EMAIL_DateTime>(FieldName::date),
    row<EMAIL_Field>(FieldName::subject),
    row<EMAIL_Field>(FieldName::xPriority),
    row<EMAIL_Field>(FieldName::contentDescription),
    row<EMAIL_Field>(FieldName::contentId),
    row<EMAIL_Field>(FieldName::contentTransferEncoding),
    row<EMAIL_ContentType>(FieldName::contentType),
    row<EMAIL_Field>(FieldName::mimeVersion),
    row<EMAIL_Field>(FieldName::contentLocation),
    row<EMAIL_Field>(FieldName::xMailer),
    row<EMAIL_DispositionType>(FieldName::contentDisposition),
    row<EMAIL_Field>(FieldName::messageId),
}};

constexpr std::size_t kLongestName = FieldName::contentTransferEncoding.kSpelling.size();

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
