// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"
#include "tools/tarvomime/Tool.h"

#include <QDir>
#include <QDirIterator>
#include <gtest/gtest.h>

namespace corpus_test {

namespace {

// One process works on many messages: starting one for each would take most of the time.
constexpr int kMessagesPerProcess = 100;

QStringList corpusMessages()
{
    QStringList messages;
    QDirIterator entries(TARVOMIME_CORPUS_DIR, QDir::Files | QDir::Hidden,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = QFileInfo(entries.next()).canonicalFilePath();
        if (QFileInfo(path).size() > 0)
            messages += path;
    }
    messages.sort();
    return messages;
}

bool isDocumented(int status)
{
    return status == 0 || status == 1;
}

class Corpus : public testing::Test
{
protected:
    void SetUp() override
    {
        mMessages = corpusMessages();
        if (mMessages.isEmpty())
            GTEST_SKIP() << "there is no corpus at " << TARVOMIME_CORPUS_DIR;
    }

    void runOnAll(const QStringList& command)
    {
        for (int start = 0; start < mMessages.size(); start += kMessagesPerProcess) {
            const QStringList files = mMessages.mid(start, kMessagesPerProcess);
            const ToolResult result = tool.run(command + files);
            ASSERT_TRUE(isDocumented(result.status))
                << command.join(' ').toStdString() << " from " << files.first().toStdString()
                << " to " << files.last().toStdString() << "\n"
                << result.err.constData();
        }
    }

    QStringList mMessages;
    ToolRunner tool;
};

} // namespace

class CorpusCommand : public Corpus, public testing::WithParamInterface<QStringList>
{
};

TEST_P(CorpusCommand, SurvivesEveryMessage)
{
    runOnAll(GetParam());
    EXPECT_EQ(tool.files(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Tool, CorpusCommand,
                         testing::Values(QStringList{"headers"}, QStringList{"headers", "--raw"},
                                         QStringList{"headers", "--unfold"}, QStringList{"tree"},
                                         QStringList{"tree", "--json"}, QStringList{"show"},
                                         QStringList{"list"}, QStringList{"list", "--json"},
                                         QStringList{"lint"}, QStringList{"lint", "--json"}),
                         [](const auto& row) {
                             return row.param.join('_').remove('-').toStdString();
                         });

TEST_F(Corpus, ExtractWritesIntoItsFolderOnly)
{
    QDir(tool.path("")).mkdir("cage");
    runOnAll({"extract", "--all", "--out", "cage/out"});
    for (const QString& file : tool.files())
        EXPECT_TRUE(file == "cage" || file == "cage/out" || file.startsWith("cage/out/"))
            << file.toStdString();
    EXPECT_EQ(QDir(tool.path("cage/out")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 0);
}

TEST_F(Corpus, PrintedTextHoldsNoControlCharacters)
{
    for (int start = 0; start < mMessages.size(); start += kMessagesPerProcess) {
        const ToolResult result =
            tool.run(QStringList("show") + mMessages.mid(start, kMessagesPerProcess));
        for (const char c : result.out)
            ASSERT_TRUE(static_cast<unsigned char>(c) >= 0x20 || c == '\n' || c == '\t')
                << "from " << mMessages.at(start).toStdString();
    }
}

// In this process: a new one for each message would take minutes.
TEST_F(Corpus, EveryMessageIsReassembled)
{
    const QByteArray out = tool.path("out.eml").toLocal8Bit();
    for (const QString& message : mMessages) {
        const QByteArray path = message.toLocal8Bit();
        const char* const arguments[] = {"tarvomime", "reassemble", path.constData(), "--out",
                                         out.constData()};
        EXPECT_EQ(tarvomime::tool::runTool(5, arguments), 0) << path.constData();
    }
    EXPECT_EQ(tool.files(), QStringList("out.eml"));
}

} // namespace corpus_test
