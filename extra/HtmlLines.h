// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

namespace tarvomime {

/// Builds lines of text out of running text: white space is collapsed, breaks are gathered until
/// text follows, and each line begins with the marks of the quotes and lists it stands in.
class HtmlLines
{
public:
    /// Running text: white space counts as one blank, and as none at the start of a line.
    void append(QStringView text);
    /// Text whose line ends and blanks stay.
    void appendPreformatted(QStringView text);
    /// What follows begins a new line.
    void endLine() { mBreaks = qMax(mBreaks, 1); }
    /// What follows begins a new line behind an empty one.
    void endParagraph() { mBreaks = qMax(mBreaks, 2); }
    /// A line break of its own: two of them make an empty line.
    void breakLine();
    /// Stands before the next text, unless that begins a line.
    void separate(const QString& separator) { mSeparator = separator; }

    /// Lines from now on begin with `prefix`, until the matching `popPrefix`.
    void pushPrefix(const QString& prefix) { mPrefixes.append(prefix); }
    void popPrefix();
    /// The next line begins with this in place of the innermost prefix.
    void setMarker(const QString& marker) { mMarker = marker; }

    /// How many characters were written so far.
    qsizetype length() const { return mText.size(); }
    QStringView written(qsizetype from) const { return QStringView(mText).mid(from); }
    /// The finished text, with a line end at its end unless it is empty.
    QString take();

private:
    bool isAtLineStart() const { return mText.isEmpty() || mBreaks > 0; }
    void appendWord(QStringView word);
    void startText();
    void startLine();
    QString prefixOf(qsizetype depth) const;

    QString mText;
    QStringList mPrefixes;
    // The fewest prefixes since the last text: those of the empty lines behind it.
    qsizetype mFewestPrefixes = 0;
    QString mMarker;
    QString mSeparator;
    // Line ends to be written before the next text.
    int mBreaks = 0;
    bool mWantsBlank = false;
};

} // namespace tarvomime
