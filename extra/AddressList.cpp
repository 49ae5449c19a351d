// SPDX-License-Identifier: MIT
#include "extra/AddressList.h"

#include "extra/AddressScanner.h"
#include "extra/EncodedWords.h"
#include "extra/Phrase.h"
#include "extra/ShortText.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"

#include <algorithm>
#include <utility>

namespace tarvomime {

namespace {

// Words in the order they came, in the two ways they are needed: as a name and as an address.
class Words
{
public:
    bool isEmpty() const { return mName.isEmpty() && mRaw.isEmpty(); }
    const QByteArray& name() const { return mName; }
    const QByteArray& raw() const { return mRaw; }

    void append(const AddressToken& token)
    {
        const bool blank = token.spaceBefore && !isEmpty();
        // Where the local part of an address could begin: behind a blank that no dot reaches over.
        if (blank && !token.raw.startsWith('.') && !mRaw.endsWith('.')) {
            mNameStart = static_cast<int>(mName.size());
            mRawStart = static_cast<int>(mRaw.size());
        }
        mName += (blank ? " " : "") + token.text;
        mRaw += (blank ? " " : "") + token.raw;
    }

    // Cuts off the last words that no blank stands between, as they are written.
    QByteArray takeLast()
    {
        QByteArray last = mRaw.mid(mRawStart).trimmed();
        mName.truncate(mNameStart);
        mRaw.truncate(mRawStart);
        mNameStart = mRawStart = 0;
        return last;
    }

private:
    QByteArray mName;
    QByteArray mRaw;
    int mNameStart = 0;
    int mRawStart = 0;
};

// Blanks may stand around the dots and the "@" of an address; they are not part of it, but those in
// quotes and brackets are.
QByteArray withoutBlanksAtDots(const QByteArray& address)
{
    const auto joins = [](char c) { return c == '.' || c == '@'; };
    AddressScanner scanner({address.constData(), static_cast<std::size_t>(address.size())});
    QByteArray out;
    for (AddressToken token = scanner.take(); token.kind != AddressToken::End;
         token = scanner.take()) {
        const bool isApart =
            token.spaceBefore && !out.isEmpty() && !joins(out.back()) && !joins(token.raw.front());
        out += (isApart ? " " : "") + token.raw;
    }
    return out;
}

class ListReader
{
public:
    ListReader(std::string_view body, const QByteArray& fallbackCharset)
        : mScanner(body), mFallback(fallbackCharset)
    {
    }

    QList<Mailbox> read()
    {
        do {
            mToken = mScanner.take();
            handle();
        } while (mToken.kind != AddressToken::End);
        return mMailboxes;
    }

private:
    // Where in a mailbox the reader stands.
    enum class State { Name, Domain, BehindAddress, Angle, Route };

    void handle()
    {
        if (mToken.kind == AddressToken::Comment)
            mComment += (mComment.isEmpty() ? "" : " ") + mToken.text;
        else if (mToken.kind == AddressToken::End)
            finishList();
        else if (mState == State::Angle || mState == State::Route)
            handleInAngle();
        else if (mToken.isWord())
            handleWord();
        else
            handleSpecial();
    }

    void handleInAngle()
    {
        if (mToken.is('>')) {
            mState = State::BehindAddress;
        } else if (mState == State::Route) {
            if (mToken.is(':'))
                mState = State::Angle;
            else if (mToken.is(';'))
                handleSpecial();
        } else if (mToken.is('@') && mAddress.isEmpty()) {
            mState = State::Route;
        } else if (mToken.is(',') || mToken.is(';')) {
            handleSpecial();
        } else if (!mToken.is('<')) {
            mAddress += (mToken.spaceBefore && !mAddress.isEmpty() ? " " : "") + mToken.raw;
        }
    }

    void handleWord()
    {
        const bool goesOn =
            mState == State::Domain && (!mToken.spaceBefore || mAddress.endsWith('@') ||
                                        mAddress.endsWith('.') || mToken.raw.startsWith('.'));
        if (goesOn) {
            mAddress += mToken.raw;
            return;
        }
        if (mState == State::Domain)
            mState = State::BehindAddress;
        if (mState == State::Name)
            mWords.append(mToken);
        else
            mTrailing.append(mToken);
    }

    void handleSpecial()
    {
        switch (mToken.text.at(0)) {
        case ',':
            finishMailbox();
            break;
        case ';':
            finishMailbox();
            finishGroup();
            break;
        case ':':
            handleColon();
            break;
        case '@':
            handleAt();
            break;
        case '<':
            openAngle();
            break;
        default:
            break; // a ">" that nothing opened
        }
    }

    void handleColon()
    {
        const bool opensGroup = mState == State::Name && mGroup.isNull();
        if (!opensGroup) {
            handleWord();
            return;
        }
        mGroup = decoded(mWords.name());
        if (mGroup.isNull())
            mGroup = QStringLiteral("");
        mGroupStart = static_cast<int>(mMailboxes.size());
        startMailbox();
    }

    void handleAt()
    {
        if (mState != State::Name) {
            handleWord();
            return;
        }
        mAddress = mWords.takeLast() + '@';
        mState = State::Domain;
    }

    // What looked like an address is the name of the one in brackets.
    void openAngle()
    {
        if (mState != State::Name && !mHadAngle) {
            AddressToken shown;
            shown.text = shown.raw = mAddress;
            shown.spaceBefore = true;
            mWords.append(shown);
            mAddress.clear();
        }
        if (mHadAngle) {
            // A "," was forgotten; what follows the first address is the name of the second.
            const Words name = std::exchange(mTrailing, Words());
            finishMailbox();
            mWords = name;
        }
        mHadAngle = true;
        mState = State::Angle;
    }

    // Addresses that only blanks divide. Where anything else is among them, all are words.
    QList<QByteArray> takeForgottenAddresses()
    {
        if (mHadAngle || mTrailing.isEmpty())
            return {};
        QList<QByteArray> pieces = mTrailing.raw().split(' ');
        const bool areAddresses =
            std::all_of(pieces.begin(), pieces.end(), [this](const QByteArray& piece) {
                return addressProblem(ShortTextReader(mFallback).read(piece)).isEmpty();
            });
        if (!areAddresses)
            return {};
        mTrailing = Words();
        return pieces;
    }

    QString decoded(const QByteArray& bytes) const { return decodedWords(bytes, mFallback); }

    QString name() const
    {
        for (const QByteArray& bytes : {mWords.name(), mTrailing.name(), mComment}) {
            QString text = decoded(bytes).trimmed();
            if (!text.isEmpty())
                return text;
        }
        return {};
    }

    // A comment alone is white space, not somebody.
    bool isNothing() const { return mWords.isEmpty() && mAddress.isEmpty() && !mHadAngle; }

    void finishMailbox()
    {
        if (!isNothing()) {
            const QList<QByteArray> forgotten = takeForgottenAddresses();
            const bool hasAddress = mHadAngle || mState != State::Name;
            appendMailbox(hasAddress ? name() : decoded(mComment),
                          hasAddress ? mAddress : mWords.raw());
            for (const QByteArray& address : forgotten)
                appendMailbox(QString(), address);
        }
        startMailbox();
    }

    void appendMailbox(const QString& name, const QByteArray& address)
    {
        Mailbox mailbox;
        mailbox.address = ShortTextReader(mFallback).read(withoutBlanksAtDots(address.trimmed()));
        mailbox.name = name;
        mailbox.group = mGroup;
        mailbox.problem = addressProblem(mailbox.address);
        mMailboxes.append(mailbox);
    }

    void startMailbox()
    {
        mWords = mTrailing = Words();
        mAddress.clear();
        mComment.clear();
        mHadAngle = false;
        mState = State::Name;
    }

    void finishGroup()
    {
        if (!mGroup.isNull() && mMailboxes.size() == mGroupStart) {
            Mailbox empty;
            empty.group = mGroup;
            mMailboxes.append(empty);
        }
        mGroup = QString();
    }

    void finishList()
    {
        finishMailbox();
        finishGroup();
    }

    AddressScanner mScanner;
    QByteArray mFallback;
    QList<Mailbox> mMailboxes;
    QString mGroup;
    int mGroupStart = 0;
    AddressToken mToken;
    State mState = State::Name;
    Words mWords;
    Words mTrailing;
    QByteArray mAddress;
    QByteArray mComment;
    bool mHadAngle = false;
};

Failure cannotStand(const Mailbox& mailbox, const QString& reason)
{
    const QString& shown = mailbox.address.isEmpty() ? mailbox.name : mailbox.address;
    return {'"' + shown + "\": " + reason};
}

Result<QString> writtenMailbox(const Mailbox& mailbox)
{
    const QString problem = addressProblem(mailbox.address);
    if (!problem.isEmpty())
        return cannotStand(mailbox, problem);
    // Readers would find two addresses in one, or in two of them one encoded word.
    for (const char* dividing : {",", ":", "=?"}) {
        if (mailbox.address.contains(QLatin1String(dividing)))
            return cannotStand(mailbox, QStringLiteral("an address with \",\", \":\" or \"=?\" "
                                                       "cannot be written into a list"));
    }
    const QString name = encodedPhrase(mailbox.name);
    return name.isEmpty() ? mailbox.address : name + " <" + mailbox.address + '>';
}

} // namespace

QList<Mailbox> readAddressList(const QCString& body, const QByteArray& fallbackCharset)
{
    return ListReader(body.view(), fallbackCharset).read();
}

QList<Mailbox> readAddressList(const EMAIL_Header& header, const QCString& fieldName,
                               const QByteArray& fallbackCharset)
{
    const QCString wanted = fieldName.lower();
    QList<Mailbox> mailboxes;
    for (const EMAIL_Field* field : header.mFields) {
        if (field->mName.lower() == wanted)
            mailboxes += readAddressList(field->mBody, fallbackCharset);
    }
    return mailboxes;
}

QList<Mailbox> readTypedAddressList(const QString& text)
{
    return readAddressList(QCString(text.toUtf8()));
}

Result<QString> writeAddressList(const QList<Mailbox>& mailboxes)
{
    if (mailboxes.size() == 1 && mailboxes.first().isEmptyGroup())
        return encodedPhrase(mailboxes.first().group) + ":;";
    QString list;
    for (const Mailbox& mailbox : mailboxes) {
        if (mailbox.isEmptyGroup())
            continue;
        Result<QString> written = writtenMailbox(mailbox);
        if (!written)
            return written;
        list += (list.isEmpty() ? "" : ", ") + *written;
    }
    return list;
}

} // namespace tarvomime
