// SPDX-License-Identifier: MIT
#include "extra/ReplyPeople.h"

#include "extra/AddressList.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"

#include <QSet>
#include <QUrl>

namespace tarvomime {

namespace {

// Adds each person once.
class Gathering
{
public:
    explicit Gathering(const QStringList& excluded)
    {
        for (const QString& address : excluded)
            mSeen.insert(address.toCaseFolded());
    }

    void add(const QList<Mailbox>& from, QList<Mailbox>& to)
    {
        for (Mailbox mailbox : from) {
            const QString key = mailbox.address.toCaseFolded();
            if (!mailbox.isAddress() || mSeen.contains(key))
                continue;
            mSeen.insert(key);
            mailbox.group = QString();
            to.append(mailbox);
        }
    }

private:
    QSet<QString> mSeen;
};

bool holdsOnly(const QList<Mailbox>& mailboxes, const QString& address)
{
    for (const Mailbox& mailbox : mailboxes) {
        if (!isSameAddress(mailbox.address, address))
            return false;
    }
    return true;
}

// The address in "List-Post: <mailto:list@a.example>"; empty where answers are not wanted.
QString listAddress(const EMAIL_Header& header)
{
    const EMAIL_Field* field = header.getField("List-Post");
    if (field == nullptr)
        return {};
    const QByteArray body = field->mBody;
    const QByteArray scheme("<mailto:");
    const auto start = body.toLower().indexOf(scheme);
    const auto end = start < 0 ? start : body.indexOf('>', start);
    if (end < 0)
        return {};
    const auto first = start + scheme.size();
    const QUrl url(QString::fromUtf8(body.mid(first, end - first)));
    const QString address = url.path(QUrl::FullyDecoded);
    return addressProblem(address).isEmpty() ? address : QString();
}

QList<Mailbox> answersWantedAt(const EMAIL_Header& original, const QString& list)
{
    const QList<Mailbox> wanted = readAddressList(original, "Reply-To");
    const bool isListOnly = !list.isEmpty() && holdsOnly(wanted, list);
    return wanted.isEmpty() || isListOnly ? readAddressList(original, "From") : wanted;
}

} // namespace

ReplyPeople replyPeople(const EMAIL_Header& original, ReplyKind kind,
                        const QStringList& ownAddresses)
{
    const QString list = listAddress(original);
    ReplyPeople people;
    if (kind == ReplyKind::List && !list.isEmpty()) {
        Mailbox mailbox;
        mailbox.address = list;
        people.to.append(mailbox);
        return people;
    }
    Gathering gathering(ownAddresses);
    gathering.add(answersWantedAt(original, list), people.to);
    const bool isOwn = people.to.isEmpty();
    if (isOwn || kind == ReplyKind::All)
        gathering.add(readAddressList(original, "To"), isOwn ? people.to : people.cc);
    if (kind == ReplyKind::All)
        gathering.add(readAddressList(original, "Cc"), people.cc);
    // Whoever writes to nobody else writes to oneself.
    if (people.to.isEmpty() && people.cc.isEmpty())
        Gathering({}).add(readAddressList(original, "From"), people.to);
    return people;
}

} // namespace tarvomime
