// SPDX-License-Identifier: MIT
#include "tests/support/LiteralCutting.h"

#include "tests/support/TreePrinter.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"

namespace literal {

namespace {

bool isLineBreak(char c)
{
    return c == '\r' || c == '\n';
}

bool equals(const QByteArray& text, int position, const QByteArray& pattern)
{
    for (int i = 0; i < int(pattern.size()); ++i) {
        if (text.at(position + i) != pattern.at(i))
            return false;
    }
    return true;
}

int behindNextLineFeed(const QByteArray& text, int position, int end)
{
    while (position < end && text.at(position) != '\n')
        ++position;
    return position < end ? position + 1 : end;
}

Range trimmed(const QByteArray& text, Range range)
{
    while (range.start < range.end && isLineBreak(text.at(range.start)))
        ++range.start;
    while (range.end > range.start && isLineBreak(text.at(range.end - 1)))
        --range.end;
    return range;
}

// Where a header line stands at a position: a line end takes one or two bytes.
int lineEndAt(const QByteArray& text, int position, int end)
{
    if (position < end && text.at(position) == '\n')
        return 1;
    return position + 1 < end && text.at(position) == '\r' && text.at(position + 1) == '\n' ? 2 : 0;
}

int headerEnd(const QByteArray& text, Range range)
{
    int lineStart = range.start;
    bool isHeaderLine = false;
    int position = range.start;
    while (position < range.end) {
        const char c = text.at(position);
        if (c == ':' || (position == lineStart && (c == ' ' || c == '\t')))
            isHeaderLine = true;
        const int lineEnd = lineEndAt(text, position, range.end);
        if (lineEnd == 0) {
            ++position;
            continue;
        }
        if (!isHeaderLine)
            return lineStart;
        position += lineEnd;
        if (lineEndAt(text, position, range.end) == lineEnd)
            return position;
        lineStart = position;
        isHeaderLine = false;
    }
    return range.end;
}

class Printer
{
public:
    explicit Printer(const QByteArray& text) : mText(text) {}

    QByteArray entity(const char* label, Range range, int depth)
    {
        while (range.start < range.end && isLineBreak(mText.at(range.start)))
            ++range.start;
        const int end = headerEnd(mText, range);
        EMAIL_Header header(mText.mid(range.start, end - range.start), nullptr);
        header.parse();
        QByteArray out = line(depth, label);
        for (const EMAIL_Field* field : header.mFields)
            out += line(depth + 1,
                        "field " + printText(field->mName) + " = " + printText(field->mBody));
        int bodyStart = end;
        if (bodyStart < range.end && mText.at(bodyStart) == '\n')
            bodyStart += 1;
        if (bodyStart + 1 < range.end && mText.mid(bodyStart, 2) == "\r\n")
            bodyStart += 2;
        return out + body(header.getContentType(), {bodyStart, range.end}, depth + 1);
    }

private:
    static QByteArray line(int depth, const QByteArray& text)
    {
        return QByteArray(2 * depth, ' ') + text + '\n';
    }

    QByteArray text(Range range) const { return mText.mid(range.start, range.end - range.start); }

    QByteArray leaf(Range range, int depth) const
    {
        return line(depth, range.start == range.end ? "no text" : "text " + printText(text(range)));
    }

    QByteArray body(const EMAIL_ContentType* type, Range range, int depth)
    {
        if (type == nullptr)
            return leaf(range, depth);
        if (type->mTypeEnum == 3)
            return message(range, depth);
        const bool isWap =
            type->mTypeEnum == 4 && (type->mSubTypeEnum == 71 || type->mSubTypeEnum == 72);
        if (type->mTypeEnum != 2 && !isWap)
            return leaf(trimmed(mText, range), depth);
        // A body without text is not parsed, so that it keeps no boundary.
        const QByteArray boundary = range.start == range.end ? QCString("") : type->mBoundary;
        QByteArray out = line(depth, "multipart " + printText(boundary));
        for (const Range part : cut(mText, range.start, range.end, boundary))
            out += entity("part", part, depth + 1);
        return out;
    }

    QByteArray message(Range range, int depth)
    {
        QByteArray out = line(depth, "message text " + printText(text(range)));
        if (range.start < range.end)
            out += entity("enclosed message", range, depth + 1);
        return out;
    }

    QByteArray mText;
};

} // namespace

Delimiter findDelimiter(const QByteArray& text, int position, int end, const QByteArray& boundary)
{
    const int bl = int(boundary.size());
    const QByteArray line = "--" + boundary;
    if (position + bl + 1 < end && equals(text, position, line)) {
        const bool closing = position + bl + 3 < end && equals(text, position + bl + 2, "--");
        return {true, closing, position, behindNextLineFeed(text, position + bl + 2, end)};
    }
    for (int match = position; match + bl + 2 < end; ++match) {
        if (text.at(match) != '\n' || !equals(text, match + 1, line))
            continue;
        const int behind = match + bl + 3;
        const bool closing = behind + 1 < end && equals(text, behind, "--");
        const bool afterCr = match > position && text.at(match - 1) == '\r';
        return {true, closing, afterCr ? match - 1 : match, behindNextLineFeed(text, behind, end)};
    }
    return {};
}

std::vector<Range> cut(const QByteArray& text, int start, int end, const QByteArray& boundary)
{
    std::vector<Range> parts;
    Delimiter delimiter = findDelimiter(text, start, end, boundary);
    if (!delimiter.found || delimiter.closing)
        return parts;
    for (;;) {
        const Delimiter next = findDelimiter(text, delimiter.next, end, boundary);
        if (!next.found)
            return parts;
        const Range part = trimmed(text, {delimiter.next, next.start});
        if (part.start < part.end)
            parts.push_back(part);
        if (next.closing)
            return parts;
        delimiter = next;
    }
}

QByteArray printedTree(const QByteArray& message)
{
    return Printer(message).entity("message", {0, int(message.size())}, 0);
}

} // namespace literal
