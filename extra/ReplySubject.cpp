// SPDX-License-Identifier: MIT
#include "extra/ReplySubject.h"

#include <QStringList>

namespace tarvomime {

namespace {

using Prefixes = const QStringList&;

// What mail programs write in their users' languages, lower-case. The single letters that some
// write in Italian are left out: they begin too many subjects.
Prefixes replyPrefixes()
{
    static const QStringList prefixes = {
        QStringLiteral("re"),   QStringLiteral("aw"),   QStringLiteral("antw"),
        QStringLiteral("sv"),   QStringLiteral("vs"),   QStringLiteral("res"),
        QStringLiteral("rif"),  QStringLiteral("odp"),  QStringLiteral("ynt"),
        QStringLiteral("réf"),  QStringLiteral("vá"),   QStringLiteral("απ"),
        QStringLiteral("回复"), QStringLiteral("回覆"), QStringLiteral("答复"),
        QStringLiteral("返信"),
    };
    return prefixes;
}

Prefixes forwardPrefixes()
{
    static const QStringList prefixes = {
        QStringLiteral("fwd"),  QStringLiteral("fw"),     QStringLiteral("wg"),
        QStringLiteral("tr"),   QStringLiteral("vb"),     QStringLiteral("vl"),
        QStringLiteral("enc"),  QStringLiteral("rv"),     QStringLiteral("pd"),
        QStringLiteral("ilt"),  QStringLiteral("doorst"), QStringLiteral("πρθ"),
        QStringLiteral("转发"), QStringLiteral("轉寄"),   QStringLiteral("転送"),
    };
    return prefixes;
}

int skipBlanks(const QString& text, int at)
{
    while (at < text.size() && text.at(at).isSpace())
        ++at;
    return at;
}

// Behind a counter such as "[2]", "(2)" or "^2", or `at` itself.
int skipCounter(const QString& text, int at)
{
    int end = at;
    if (end < text.size() && QStringLiteral("[(^").contains(text.at(end)))
        ++end;
    const int digits = end;
    while (end < text.size() && text.at(end).isDigit())
        ++end;
    if (end == digits)
        return at;
    if (end < text.size() && QStringLiteral("])").contains(text.at(end)))
        ++end;
    return end;
}

// Behind the prefix that begins at `at` and its colon, or `at` itself where there is none.
int skipPrefix(const QString& text, int at, Prefixes prefixes)
{
    constexpr int kLongest = 8;
    int end = at;
    while (end < text.size() && end - at < kLongest && text.at(end).isLetter())
        ++end;
    if (!prefixes.contains(text.mid(at, end - at).toLower()))
        return at;
    end = skipBlanks(text, skipCounter(text, end));
    const bool hasColon =
        end < text.size() && (text.at(end) == ':' || text.at(end) == QChar(0xFF1A));
    return hasColon ? skipBlanks(text, end + 1) : at;
}

int skipPrefixes(const QString& text, int at, Prefixes prefixes)
{
    for (;;) {
        const int next = skipPrefix(text, at, prefixes);
        if (next == at)
            return at;
        at = next;
    }
}

QString without(const QString& subject, Prefixes prefixes)
{
    const int start = skipPrefixes(subject, skipBlanks(subject, 0), prefixes);
    // A mailing list's mark may stand before the prefixes.
    const int markEnd =
        subject.mid(start, 1) == "[" ? static_cast<int>(subject.indexOf(']', start)) + 1 : 0;
    const int behindMark = markEnd > 0 ? skipBlanks(subject, markEnd) : 0;
    const int rest = skipPrefixes(subject, behindMark, prefixes);
    if (markEnd == 0 || rest == behindMark)
        return subject.mid(start).trimmed();
    return (subject.mid(start, markEnd - start) + ' ' + subject.mid(rest)).trimmed();
}

} // namespace

QString replySubject(const QString& original)
{
    return "Re: " + without(original, replyPrefixes());
}

QString forwardSubject(const QString& original)
{
    return "Fwd: " + without(original, forwardPrefixes());
}

QString baseSubject(const QString& subject)
{
    return without(subject, replyPrefixes() + forwardPrefixes());
}

} // namespace tarvomime
