// SPDX-License-Identifier: MIT
#pragma once

#include "extra/MessageFindings.h"
#include "tests/support/RowNames.h"

#include <QByteArray>
#include <QStringList>

/// A message and what is expected to be found in it.
struct FindingRow
{
    const char* name;
    QByteArray mail;
    /// Each as "severity code part offset length", the last two for bytes only.
    QStringList findings;
};

inline void PrintTo(const FindingRow& row, std::ostream* out)
{
    *out << row.name;
}

inline QByteArray mixed(const QByteArray& body)
{
    return "Content-Type: multipart/mixed; boundary=bound\n\n" + body;
}

/// `line` as often as `count` says.
inline QStringList repeated(const QString& line, int count)
{
    QStringList lines;
    for (int i = 0; i < count; ++i)
        lines += line;
    return lines;
}

/// Offset of the body in what mixed() gives.
constexpr int kBody = 47;

inline QStringList linesOf(const QList<tarvomime::MessageFinding>& findings)
{
    QStringList lines;
    for (const tarvomime::MessageFinding& finding : findings) {
        QString line = tarvomime::severityName(finding.severity) + ' ' +
                       tarvomime::findingName(finding.kind) + ' ' + finding.part;
        if (finding.length > 0)
            line += QString(" %1 %2").arg(finding.offset).arg(finding.length);
        lines += line;
    }
    return lines;
}

/// A text repeats no more of a message than a name of 200 characters and one made of it.
constexpr int kLongestFinding = 500;

inline void expectFindings(const FindingRow& row)
{
    const QList<tarvomime::MessageFinding> findings = tarvomime::messageFindings(row.mail);
    EXPECT_EQ(linesOf(findings).join('\n').toStdString(), row.findings.join('\n').toStdString());
    for (const tarvomime::MessageFinding& finding : findings) {
        EXPECT_FALSE(finding.text.isEmpty());
        EXPECT_LE(finding.text.size(), kLongestFinding);
    }
}
