// SPDX-License-Identifier: MIT
// Random messages, cut by the library and by the literal rules: both must give the same tree.
#include "tests/support/AllStrings.h"
#include "tests/support/LiteralCutting.h"
#include "tests/support/RandomText.h"
#include "tests/support/TreePrinter.h"
#include "utility/EMAIL_Message.h"

namespace random_trees_test {

namespace {

void expectAsInRules(const QByteArray& text)
{
    EMAIL_Message message(QCString::fromBytes(text), nullptr);
    message.parse();
    const QByteArray printed = printTree(message, EnclosedMessages::Parsed);
    const QByteArray expected = literal::printedTree(text);
    if (printed != expected)
        ADD_FAILURE() << testing::PrintToString(text) << "\nexpected\n"
                      << expected.toStdString() << "printed\n"
                      << printed.toStdString();
}

void expectAsInMemory(const QByteArray& text)
{
    EMAIL_Message inMemory(QCString::fromBytes(text), nullptr);
    inMemory.parse();
    EMAIL_Message inFile;
    inFile.parse(text.constData(), 0, int(text.size()), QStringLiteral("/a/file"));
    EXPECT_EQ(printTree(inFile, EnclosedMessages::AsText, text).toStdString(),
              printTree(inMemory, EnclosedMessages::AsText).toStdString())
        << testing::PrintToString(text);
}

QByteArray multipart(const QByteArray& boundary)
{
    return "Content-Type: multipart/mixed; boundary=" + boundary + "\n";
}

} // namespace

TEST(RandomTrees, OfEveryShortBody)
{
    forAllStrings("\r\n-b:", 6, [](const QByteArray& text) {
        expectAsInRules(multipart("b") + "\n" + text);
        expectAsInMemory(multipart("b") + "\n" + text);
    });
}

TEST(RandomTrees, OfEveryShortMessage)
{
    forAllStrings("\r\n:x ", 6, [](const QByteArray& text) {
        expectAsInRules(text);
        expectAsInMemory(text);
    });
}

TEST(RandomTrees, OfPieces)
{
    RandomText texts(2, {multipart("b"), multipart("c"), multipart("bc"), "\n", "\r\n", "\n--b\n",
                         "\r\n--b--\r\n", "\n--c\n", "\n--c--\n", "\n--bc\n", "A: 1\n", "text",
                         "Content-Type: text/plain\n", "Content-Type: message/rfc822\n\n"});
    for (int round = 0; round < 20000; ++round) {
        const QByteArray text = texts.next(24);
        expectAsInRules(text);
        expectAsInMemory(text);
    }
}

// Deep enough for the index of delimiter lines, with delimiters of any level anywhere.
TEST(RandomTrees, OfDeepNests)
{
    std::vector<QByteArray> tails{"\n", "\r\n", "X: 1\n\ntext", "--", "\n\n\n"};
    QByteArray nest;
    for (const char* boundary :
         {"a", "ab", "b", "ba", "b c", "d", "dd", "e", "f", "ee", "g", "h"}) {
        nest += multipart(boundary) + "\n--" + boundary + "\n";
        tails.push_back(QByteArray("\n--") + boundary + "\n");
        tails.push_back(QByteArray("\r\n--") + boundary + "--\r\n");
    }
    RandomText texts(3, tails);
    for (int round = 0; round < 3000; ++round) {
        const QByteArray text = nest + texts.next(40);
        expectAsInRules(text);
        expectAsInMemory(text);
    }
}

} // namespace random_trees_test
