// SPDX-License-Identifier: MIT
// Real and hostile mail from outside this repository: every message parses by the rules, in memory
// as in a file, and what it assembles to settles.
#include "tests/support/LiteralCutting.h"
#include "tests/support/TreePrinter.h"
#include "utility/EMAIL_Message.h"

#include <QDir>
#include <QDirIterator>

namespace corpus_test {

namespace {

const QString corpusFolder = QStringLiteral(TARVOMIME_CORPUS_DIR);

class Corpus : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!QDir(corpusFolder).exists())
            GTEST_SKIP() << "no mail corpus at " << corpusFolder.toStdString();
    }

    // Calls `visit` with the path and the content of every file, up to its first NUL: text in
    // memory ends there.
    template <typename Visit>
    void forEachMessage(Visit visit)
    {
        int messages = 0;
        QDirIterator files(corpusFolder, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
            QByteArray content = file.readAll();
            if (content.contains('\0'))
                content.truncate(content.indexOf('\0'));
            visit(file.fileName().toStdString(), content);
            ++messages;
        }
        EXPECT_GT(messages, 1000) << "the corpus is incomplete";
    }
};

QByteArray reassembled(const QByteArray& text)
{
    EMAIL_Message message(QCString::fromBytes(text), nullptr);
    message.parse();
    message.assemble();
    return message.getMessage();
}

} // namespace

TEST_F(Corpus, IsTheSameInMemoryAndInAFile)
{
    forEachMessage([](const std::string& path, const QByteArray& text) {
        EMAIL_Message inMemory(QCString::fromBytes(text), nullptr);
        inMemory.parse();
        EMAIL_Message inFile;
        inFile.parse(text.constData(), 0, int(text.size()), QStringLiteral("/a/file"));
        EXPECT_TRUE(printTree(inFile, EnclosedMessages::AsText, text) ==
                    printTree(inMemory, EnclosedMessages::AsText))
            << path;
    });
}

// The literal rules take the square of a message's size where it is hostile.
TEST_F(Corpus, IsCutAsTheLiteralRulesSay)
{
    constexpr int longest = 50000;
    forEachMessage([](const std::string& path, const QByteArray& text) {
        if (text.size() > longest)
            return;
        EMAIL_Message message(QCString::fromBytes(text), nullptr);
        message.parse();
        EXPECT_TRUE(printTree(message, EnclosedMessages::Parsed) == literal::printedTree(text))
            << path;
    });
}

// A boundary of nothing but quotes is left as it is where others lose theirs, and gets a pair more
// each time it is written: such a message never settles.
TEST_F(Corpus, SettlesWhenReassembled)
{
    forEachMessage([](const std::string& path, const QByteArray& text) {
        const QByteArray second = reassembled(reassembled(text));
        if (!second.contains(";Boundary=\"\"\"")) {
            EXPECT_TRUE(reassembled(second) == second) << path;
        }
    });
}

} // namespace corpus_test
