// SPDX-License-Identifier: MIT
#include "extra/Mailbox.h"

#include "extra/AddressCharacters.h"

#include <algorithm>

namespace tarvomime {

namespace {

// Words of atoms with single dots between them.
bool isDotAtom(const QString& text)
{
    QChar before('.');
    for (const QChar c : text) {
        if (c == '.' ? before == '.' : !isAtomCharacter(c))
            return false;
        before = c;
    }
    return before != '.';
}

// `text` is what stands between the delimiters.
bool isEnclosedText(const QString& text, QChar open, QChar close)
{
    bool escaped = false;
    for (const QChar c : text) {
        if (isControl(c) || (!escaped && (c == open || c == close)))
            return false;
        escaped = !escaped && c == '\\';
    }
    return !escaped;
}

bool isEnclosed(const QString& text, QChar open, QChar close)
{
    return text.size() >= 2 && text.startsWith(open) && text.endsWith(close) &&
           isEnclosedText(text.mid(1, text.size() - 2), open, close);
}

} // namespace

QString addressProblem(const QString& address)
{
    const auto at = address.lastIndexOf('@');
    if (address.isEmpty())
        return QStringLiteral("there is no address");
    if (at < 0)
        return QStringLiteral("the address has no \"@\"");
    const QString local = address.left(at);
    const QString domain = address.mid(at + 1);
    if (local.isEmpty())
        return QStringLiteral("nothing stands before the \"@\"");
    if (domain.isEmpty())
        return QStringLiteral("nothing stands behind the \"@\"");
    if (!isDotAtom(local) && !isEnclosed(local, '"', '"'))
        return QStringLiteral("what stands before the \"@\" cannot");
    if (!isDotAtom(domain) && !isEnclosed(domain, '[', ']'))
        return QStringLiteral("what stands behind the \"@\" is no domain");
    return {};
}

bool isSameAddress(const QString& one, const QString& other)
{
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

QString mailboxText(const Mailbox& mailbox)
{
    if (mailbox.isEmptyGroup())
        return mailbox.group + ":;";
    if (mailbox.name.isEmpty())
        return mailbox.address;
    QString name = mailbox.name;
    if (!isPhraseOfAtoms(name))
        name = '"' + name.replace('\\', "\\\\").replace('"', "\\\"") + '"';
    return name + " <" + mailbox.address + '>';
}

} // namespace tarvomime
