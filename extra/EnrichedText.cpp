// SPDX-License-Identifier: MIT
#include "extra/EnrichedText.h"

namespace tarvomime {

namespace {

// RFC 1896, section 3: a command is a "<", at most sixty letters, digits and "-", and a ">".
constexpr int kLongestCommand = 60;
// Deeper quotes are no longer told apart.
constexpr int kDeepestQuote = 10;

bool isCommandCharacter(QChar c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
}

// Writes text line by line, quotes marked.
class LineWriter
{
public:
    void put(QChar c)
    {
        if (c == '\n') {
            mText += c;
            mAtLineStart = true;
            return;
        }
        if (mAtLineStart && mDepth > 0)
            mText += QString(qMin(mDepth, kDeepestQuote), '>') + ' ';
        mAtLineStart = false;
        mText += c;
    }
    void startLine()
    {
        if (!mAtLineStart)
            put('\n');
    }
    void quote(int change)
    {
        startLine();
        mDepth = qMax(0, mDepth + change);
    }
    // A line end that only wraps.
    void wrap()
    {
        if (!mAtLineStart)
            put(' ');
    }
    QString text() const
    {
        int end = int(mText.size());
        while (end > 0 && mText.at(end - 1) == ' ')
            --end;
        return mText.left(end);
    }

private:
    QString mText;
    bool mAtLineStart = true;
    int mDepth = 0;
};

// What both forms have in common: commands in angle brackets.
class EnrichedReader
{
public:
    enum class Form { Enriched, RichText };

    EnrichedReader(const QString& text, Form form) : mText(text), mForm(form) {}

    QString run()
    {
        while (mAt < mText.size()) {
            if (mText.at(mAt) == '<' && takeBracket())
                continue;
            if (mText.at(mAt) == '\n')
                takeLineEnds();
            else
                put(mText.at(mAt++));
        }
        return mOut.text();
    }

private:
    void put(QChar c)
    {
        if (mHidden == 0)
            mOut.put(c);
    }

    // A command, or a "<" that is written as such; false for one that is nothing but itself.
    bool takeBracket()
    {
        if (mForm == Form::Enriched && mText.mid(mAt + 1, 1) == "<") {
            put('<');
            mAt += 2;
            return true;
        }
        const bool ends = mText.mid(mAt + 1, 1) == "/";
        const int start = mAt + (ends ? 2 : 1);
        int end = start;
        while (end < mText.size() && end - start < kLongestCommand &&
               isCommandCharacter(mText.at(end)))
            ++end;
        if (end == start || end == mText.size() || mText.at(end) != '>')
            return false;
        obey(mText.mid(start, end - start).toLower(), ends);
        mAt = end + 1;
        return true;
    }

    void obey(const QString& command, bool ends)
    {
        const int change = ends ? -1 : 1;
        if (command == "param" || command == "comment")
            mHidden = qMax(0, mHidden + change);
        else if (command == "nofill" || command == "verbatim")
            mUnfilled = qMax(0, mUnfilled + change);
        else if (mHidden == 0 && (command == "excerpt" || command == "quotation"))
            mOut.quote(change);
        else if (mForm == Form::RichText && !ends && command == "lt")
            put('<');
        else if (mForm == Form::RichText && !ends && (command == "nl" || command == "np"))
            put('\n');
        else if (mForm == Form::RichText && mHidden == 0 && command == "paragraph")
            mOut.startLine();
    }

    // One line end wraps; of several, one is taken away.
    void takeLineEnds()
    {
        int count = 0;
        for (; mAt < mText.size() && mText.at(mAt) == '\n'; ++mAt)
            ++count;
        const bool wraps = mForm == Form::RichText || count == 1;
        if (mHidden == 0 && mUnfilled == 0 && wraps)
            mOut.wrap();
        const int written = mUnfilled > 0 ? count : wraps ? 0 : count - 1;
        for (int i = 0; i < written; ++i)
            put('\n');
    }

    const QString& mText;
    Form mForm;
    LineWriter mOut;
    int mAt = 0;
    int mHidden = 0;
    int mUnfilled = 0;
};

QString read(QString text, EnrichedReader::Form form)
{
    text.remove('\r');
    return EnrichedReader(text, form).run();
}

} // namespace

QString textFromEnriched(const QString& enriched)
{
    return read(enriched, EnrichedReader::Form::Enriched);
}

QString textFromRichText(const QString& richText)
{
    return read(richText, EnrichedReader::Form::RichText);
}

} // namespace tarvomime
