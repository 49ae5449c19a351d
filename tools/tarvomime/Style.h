// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <string>

namespace tarvomime::tool {

class Arguments;

/// Colours of a terminal, or none. What is painted was made printable before.
class Style
{
public:
    /// `when` is "always", "never" or "auto": on a terminal that knows colours, unless NO_COLOR is
    /// set.
    explicit Style(const std::string& when);

    /// The name that stands above what follows.
    QByteArray heading(const QByteArray& text) const { return paint("1", text); }
    /// The name of a value.
    QByteArray label(const QByteArray& text) const { return paint("36", text); }
    /// A number or mark that a command line may repeat.
    QByteArray mark(const QByteArray& text) const { return paint("33", text); }
    /// What is not the thing itself: lines of a drawing, quoted text.
    QByteArray faint(const QByteArray& text) const { return paint("2", text); }
    QByteArray added(const QByteArray& text) const { return paint("32", text); }
    QByteArray removed(const QByteArray& text) const { return paint("31", text); }

private:
    QByteArray paint(const char* colour, const QByteArray& text) const;

    bool mColoured;
};

/// Adds "--color WHEN".
void addColor(Arguments& arguments, std::string& when);

} // namespace tarvomime::tool
