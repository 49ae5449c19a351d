// SPDX-License-Identifier: MIT
#include "extra/Quoting.h"

#include "extra/AddressCharacters.h"

#include <QStringList>

namespace tarvomime {

namespace {

constexpr int kLineLength = 72;
// RFC 3676 asks for no shorter ones. Lines that somebody else laid out stay whole up to here: their
// ends do not flow into the next lines, and a word or two would be left alone on most.
constexpr int kLongestWhole = 78;
// Deep quotes leave room for a few words.
constexpr int kShortestLine = 20;
// Deeper ones, which nobody reads, stay in one line: their marks on each line of many would take
// the square of the text.
constexpr int kDeepestWrapped = 100;

QString signatureLine()
{
    return QStringLiteral("-- ");
}

QStringList linesOf(const QString& text)
{
    QStringList lines = text.split('\n');
    for (QString& line : lines) {
        if (line.endsWith('\r'))
            line.chop(1);
    }
    return lines;
}

// One line: how deep it is quoted, and what is quoted.
struct Line
{
    int depth = 0;
    QString content;

    bool isSignature() const { return content == signatureLine(); }
    QString written() const
    {
        return depth == 0 ? content
                          : QString(depth, '>') + (content.isEmpty() ? "" : " ") + content;
    }
};

// A blank behind the marks, or before a line that would be taken for a quote, is no part of it.
Line unstuffed(const QString& text)
{
    Line line;
    while (line.depth < text.size() && text.at(line.depth) == '>')
        ++line.depth;
    const bool isStuffed = text.mid(line.depth, 1) == " ";
    line.content = text.mid(line.depth + (isStuffed ? 1 : 0));
    return line;
}

// Quotes as people and programs write them: "> > a" is as deep as ">> a".
Line quoteOf(const QString& text)
{
    Line line;
    int at = 0;
    for (; at < text.size() && text.at(at) == '>'; ++line.depth) {
        const bool goesOn = text.mid(at + 1, 2) == QLatin1String(" >");
        at += goesOn ? 2 : 1;
    }
    const bool isStuffed = line.depth > 0 && text.mid(at, 1) == " ";
    line.content = text.mid(at + (isStuffed ? 1 : 0));
    return line;
}

void trimEnd(QString& text)
{
    int end = static_cast<int>(text.size());
    while (end > 0 && text.at(end - 1) == ' ')
        --end;
    text.truncate(end);
}

// Behind the first blank from `at` on.
int behindBlank(const QString& text, int at)
{
    const auto blank = text.indexOf(' ', at);
    return static_cast<int>(blank < 0 ? text.size() : blank + 1);
}

// Where a line that begins at `start` ends, the blank behind its last word included.
int lineEnd(const QString& text, int start, int length)
{
    if (text.size() - start <= length)
        return static_cast<int>(text.size());
    const auto blank = static_cast<int>(text.lastIndexOf(' ', start + length - 1));
    const int end = blank <= start ? behindBlank(text, start + length) : blank + 1;
    // Alone these would be a signature's line, which does not flow.
    const bool isSignature = text.mid(start, end - start) == signatureLine();
    return isSignature ? behindBlank(text, end) : end;
}

// What programs take for a quote, a stuffed line or the start of another message gets a blank.
QString stuffed(int depth, const QString& content)
{
    const bool isTaken = content.startsWith(' ') || content.startsWith('>') ||
                         content.startsWith(QLatin1String("From "));
    const bool needsBlank = depth > 0 ? !content.isEmpty() : isTaken;
    return QString(depth, '>') + (needsBlank ? " " : "") + content;
}

void appendFlowed(const Line& line, QStringList& out)
{
    const int whole = static_cast<int>(line.content.size());
    const bool staysWhole = line.depth > kDeepestWrapped || line.depth + 1 + whole <= kLongestWhole;
    const int length = staysWhole ? whole : qMax(kShortestLine, kLineLength - line.depth - 1);
    int start = 0;
    do {
        const int end = lineEnd(line.content, start, length);
        out.append(stuffed(line.depth, line.content.mid(start, end - start)));
        start = end;
    } while (start < line.content.size());
}

} // namespace

QString oneLine(QString text)
{
    for (QChar& c : text) {
        if (isControl(c))
            c = ' ';
    }
    return text.simplified();
}

QString quotedText(const QString& text)
{
    QStringList lines = linesOf(text);
    const auto signature = lines.lastIndexOf(signatureLine());
    if (signature >= 0)
        lines = lines.mid(0, static_cast<int>(signature));
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty())
        lines.removeLast();
    for (QString& line : lines)
        line.prepend(line.isEmpty() || line.startsWith('>') ? ">" : "> ");
    return lines.join('\n');
}

QString textFromFlowed(const QString& text, bool delSp)
{
    QStringList out;
    int openDepth = -1;
    for (const QString& raw : linesOf(text)) {
        Line line = unstuffed(raw);
        const bool flows = !line.isSignature() && line.content.endsWith(' ');
        if (flows && delSp)
            line.content.chop(1);
        if (openDepth == line.depth && !line.isSignature())
            out.last() += line.content;
        else
            out.append(line.written());
        openDepth = flows ? line.depth : -1;
    }
    return out.join('\n');
}

QString flowedText(const QString& text)
{
    QStringList out;
    for (const QString& raw : linesOf(text)) {
        Line line = quoteOf(raw);
        // A blank at the end would make the next line flow.
        if (!line.isSignature())
            trimEnd(line.content);
        appendFlowed(line, out);
    }
    return out.join('\n');
}

} // namespace tarvomime
