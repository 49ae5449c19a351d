// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <string>

namespace tarvomime::tool {

class Mail;

/// How a list is printed and sorted.
struct ListFormat
{
    bool json = false;
    bool files = false;
    std::string color;
    /// Cells of the terminal; 0 where there is none to fit in.
    int width = 0;
    /// "date", "from", "subject" or "size"; empty for the order in which messages are found.
    std::string sort;
    bool reverse = false;
};

/// A message's line and what decides its place.
struct ListRow
{
    QByteArray line;
    qint64 number = 0;
    QString text;
};

ListRow listRow(Mail& mail, const ListFormat& format);

/// Whether `a` stands before `b`.
bool isBefore(const ListRow& a, const ListRow& b);

} // namespace tarvomime::tool
