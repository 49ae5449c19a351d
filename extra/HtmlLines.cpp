// SPDX-License-Identifier: MIT
#include "extra/HtmlLines.h"

#include <utility>

namespace tarvomime {

namespace {

// Prefixes are repeated on each line: without a bound, nested quotes would make the text longer
// than any multiple of its source.
constexpr qsizetype kDeepestPrefix = 10;

// Two empty lines: more say nothing.
constexpr int kMostBreaks = 3;

constexpr QChar kNoBreakSpace(0x00A0);

bool isHtmlBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r' || c == u'\f';
}

// Characters that fill room without being seen: soft hyphen, grapheme joiner, zero-width space
// and no-break space.
bool isUnseen(QChar c)
{
    return c == QChar(0x00AD) || c == QChar(0x034F) || c == QChar(0x200B) || c == QChar(0xFEFF);
}

QChar seen(QChar c)
{
    return c == kNoBreakSpace ? QChar(u' ') : c;
}

void chopBlanks(QString& text)
{
    while (text.endsWith(u' '))
        text.chop(1);
}

} // namespace

void HtmlLines::append(QStringView text)
{
    qsizetype at = 0;
    while (at < text.size()) {
        if (isHtmlBlank(text[at])) {
            mWantsBlank = true;
            ++at;
            continue;
        }
        qsizetype end = at;
        while (end < text.size() && !isHtmlBlank(text[end]))
            ++end;
        appendWord(text.mid(at, end - at));
        at = end;
    }
}

void HtmlLines::appendWord(QStringView word)
{
    for (const QChar c : word) {
        if (isUnseen(c) || (c == kNoBreakSpace && isAtLineStart()))
            continue;
        startText();
        mText += seen(c);
    }
}

void HtmlLines::appendPreformatted(QStringView text)
{
    for (const QChar c : text) {
        if (c == u'\n') {
            breakLine();
        } else if (c != u'\r') {
            startText();
            mText += seen(c);
        }
    }
}

void HtmlLines::breakLine()
{
    mBreaks = qMin(mBreaks + 1, kMostBreaks);
}

void HtmlLines::popPrefix()
{
    if (!mPrefixes.isEmpty())
        mPrefixes.removeLast();
    mFewestPrefixes = qMin<qsizetype>(mFewestPrefixes, mPrefixes.size());
}

void HtmlLines::startText()
{
    if (isAtLineStart())
        startLine();
    else if (!mSeparator.isEmpty())
        mText += mSeparator;
    else if (mWantsBlank)
        mText += u' ';
    mSeparator.clear();
    mWantsBlank = false;
}

void HtmlLines::startLine()
{
    // A text does not begin with empty lines.
    if (!mText.isEmpty()) {
        chopBlanks(mText);
        mText += u'\n';
        QString emptyLine = prefixOf(mFewestPrefixes);
        chopBlanks(emptyLine);
        for (int i = 1; i < mBreaks; ++i)
            mText += emptyLine + u'\n';
    }
    mBreaks = 0;
    mFewestPrefixes = mPrefixes.size();
    mText += prefixOf(mPrefixes.size() - (mMarker.isEmpty() ? 0 : 1)) + mMarker;
    mMarker.clear();
}

QString HtmlLines::prefixOf(qsizetype depth) const
{
    QString prefix;
    for (qsizetype i = 0; i < qMin(depth, kDeepestPrefix); ++i)
        prefix += mPrefixes[i];
    return prefix;
}

QString HtmlLines::take()
{
    chopBlanks(mText);
    if (!mText.isEmpty())
        mText += u'\n';
    return std::move(mText);
}

} // namespace tarvomime
