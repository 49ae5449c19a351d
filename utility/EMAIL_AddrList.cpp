// SPDX-License-Identifier: MIT
#include "utility/EMAIL_AddrList.h"

#include "types/AllocationCheck.h"
#include "utility/EMAIL_Numbers.h"
#include "utility/text/Joined.h"
#include "utility/text/Tokens.h"

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

namespace {

constexpr int kMailboxType = 1;
constexpr int kGroupType = 2;

using NewAddress = std::unique_ptr<EMAIL_Address>;

// `g` is the name by which the assertion's readers know a missing address.
void checkAddress(bool isThere)
{
    TARVOMIME_CHECK_ALLOCATION(isThere, "g", "utility/EMAIL_AddrList.cpp",
                               "virtual void EMAIL_AddrList::parse()");
}

NewAddress newAddress(int type)
{
    NewAddress address(new (std::nothrow) EMAIL_Address);
    checkAddress(address != nullptr);
    address->mAddrType = type;
    return address;
}

NewAddress newMailbox(const QCString& text)
{
    NewAddress mailbox = newAddress(kMailboxType);
    // Room for one: a growing list would take room for more. Not made from a list in braces, which
    // Qt builds without a look at whether there was memory for it.
    mailbox->mAddresses.reserve(1);
    mailbox->mAddresses.append(text);
    return mailbox;
}

NewAddress newGroup(const QCString& name, const QCString& members)
{
    NewAddress group = newAddress(kGroupType);
    group->mGroupName = name;
    group->mAddresses = tarvomime::splitAtEvery(QCString::fromLiteral(","), members, true);
    return group;
}

void append(QPtrList<EMAIL_Address>& list, NewAddress address)
{
    checkAddress(list.append(address.get()));
    static_cast<void>(address.release());
}

bool isWritten(const EMAIL_Address* address)
{
    if (address == nullptr)
        return false;
    if (address->mAddrType == kGroupType)
        return true;
    return !address->mAddresses.isEmpty() && !address->mAddresses.first().isEmpty();
}

template <class Take>
void forEachPiece(const EMAIL_Address& address, Take take)
{
    if (address.mAddrType != kGroupType) {
        take(address.mAddresses.first().view());
        return;
    }
    take(address.mGroupName.view());
    take(": ");
    for (const QCString& member : address.mAddresses)
        take(member.view());
}

// Hands every piece of the written list to `take`, in order.
template <class Take>
void forEachPiece(const QPtrList<EMAIL_Address>& list, Take take)
{
    bool isFirst = true;
    for (const EMAIL_Address* address : list) {
        if (!isWritten(address))
            continue;
        if (!std::exchange(isFirst, false))
            take(",\r\n\t");
        forEachPiece(*address, take);
    }
}

QCString writtenList(const QPtrList<EMAIL_Address>& list)
{
    qint64 size = 0;
    forEachPiece(list, [&size](std::string_view piece) { size += qint64(piece.size()); });
    if (size > QCString::longestLength)
        return tarvomime::refusedText();
    QByteArray body("");
    body.reserve(static_cast<int>(size));
    forEachPiece(list, [&body](std::string_view piece) {
        body.append(piece.data(), static_cast<int>(piece.size()));
    });
    return QCString::fromBytes(body);
}

// Index of the quote that closes the one at index 0, or -1.
int closingQuote(const QCString& text)
{
    int quote = text.find('"', 1);
    while (quote >= 0 && text[quote - 1] == '\\')
        quote = text.find('"', quote + 1);
    return quote;
}

} // namespace

EMAIL_AddrList::EMAIL_AddrList() : EMAIL_AddrList(QCString(), nullptr) {}

EMAIL_AddrList::EMAIL_AddrList(const QCString& text, EMAIL_BaseComponent* parent)
    : EMAIL_Field(text, parent)
{
    mAddrList.setAutoDelete(true);
}

EMAIL_AddrList::~EMAIL_AddrList() = default;

void EMAIL_AddrList::assemble()
{
    const QCString written = mParsed == 1 ? writtenList(mAddrList) : mBody;
    if (tarvomime::isRefused(written)) {
        mString = written;
        return;
    }
    mBody = written;
    EMAIL_Field::assemble();
}

void EMAIL_AddrList::parse()
{
    mAddrList.clear();
    if (mBody.isEmpty())
        return;
    // Until all is read, the text is what counts.
    mParsed = 0;
    const int length = mBody.length();
    const auto endsPiece = [](char c) { return c == ',' || c == ':'; };
    int start = 0;
    while (start < length) {
        const char* separator = std::find_if(mBody.begin() + start, mBody.end(), endsPiece);
        const int stop = static_cast<int>(separator - mBody.begin());
        if (mBody[stop] == ':') {
            append(mAddrList, newGroup(mBody.mid(start, stop - start), mBody.mid(stop + 1)));
            break;
        }
        // The body's last character belongs to the last mailbox, even when it is a ",".
        const int size = stop >= length - 1 ? length - start : stop - start;
        append(mAddrList, newMailbox(mBody.mid(start, size).stripWhiteSpace()));
        start = stop + 1;
    }
    mParsed = 1;
}

EMAIL_Address::EMAIL_Address() = default;

EMAIL_Address::~EMAIL_Address() = default;

QCString EMAIL_Address::getRouteAddress(QCString const& text)
{
    if (text.isEmpty())
        return QCString::fromLiteral("");
    QCString rest = text;
    if (const int quote = text[0] == '"' ? closingQuote(text) : -1; quote >= 0)
        rest = text.mid(quote + 1);
    const int open = rest.find('<');
    const int close = rest.find('>');
    if (open < 0 || close < 0)
        return rest;
    return close < open ? rest.mid(open + 1) : rest.mid(open + 1, close - open - 1);
}
