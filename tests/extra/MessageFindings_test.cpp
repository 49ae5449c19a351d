// SPDX-License-Identifier: MIT
#include "extra/MessageFindings.h"

#include <QDirIterator>
#include <QFile>
#include <QStringList>
#include <gtest/gtest.h>

namespace message_findings_test {

using namespace tarvomime;

TEST(FindingsOfADeepMessage, End)
{
    const QByteArray mail =
        QByteArray("Content-Type: message/rfc822\n\n").repeated(5000) + "A: b\n\n";
    const QList<MessageFinding> findings = messageFindings(mail);
    ASSERT_EQ(findings.size(), 1);
    EXPECT_EQ(findings.last().kind, FindingKind::TooDeep);
}

TEST(NamesOfFindings, Differ)
{
    QStringList names;
    for (int kind = 0; kind <= int(FindingKind::TooDeep); ++kind)
        names += QString::fromLatin1(findingName(FindingKind(kind)));
    EXPECT_EQ(names.removeDuplicates(), 0);
}

TEST(FindingsOfRealMail, LieInTheirMessage)
{
    if (!QDir(TARVOMIME_CORPUS_DIR).exists())
        GTEST_SKIP() << "no collection of real messages at " TARVOMIME_CORPUS_DIR;
    QDirIterator files(TARVOMIME_CORPUS_DIR, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        for (const MessageFinding& finding : messageFindings(bytes)) {
            EXPECT_GE(finding.offset, 0);
            EXPECT_LE(finding.offset + finding.length, bytes.size())
                << file.fileName().toStdString();
        }
    }
}

} // namespace message_findings_test
